#pragma once

// A target region is a stretch of a source file whose functions are compiled for one instruction set, while the rest of the
// file stays plain x86-64. Register and kernel headers are included inside it; every other header comes before it, so that
// nothing which other units share is ever compiled with a set's instructions.
//
//     #include "KOVIS/KOVISSimd/TargetRegion.h"
//     KOVIS_TARGET_BEGIN("avx2")
//     #include "KOVIS/KOVISSimd/Avx2Register.h"
//     #include ".../linearConvert.h"
//     ... explicit instantiations ...
//     KOVIS_TARGET_END

#include "KOVIS/KOVISSimd/Forms.h"
#include "KOVIS/KOVISSimd/PowTables.h"
#include "KOVIS/KOVISUtil/NumericLimits.h"

#include <immintrin.h>

#define KOVIS_PRAGMA(TEXT) _Pragma(#TEXT)

#if defined(__clang__)
#define KOVIS_TARGET_BEGIN(SETS) KOVIS_PRAGMA(clang attribute push(__attribute__((target(SETS))), apply_to = function))
#define KOVIS_TARGET_END KOVIS_PRAGMA(clang attribute pop)
#define KOVIS_UNROLL KOVIS_PRAGMA(clang loop unroll(full))
#else
#define KOVIS_TARGET_BEGIN(SETS) KOVIS_PRAGMA(GCC push_options) KOVIS_PRAGMA(GCC target(SETS))
#define KOVIS_TARGET_END KOVIS_PRAGMA(GCC pop_options)
#define KOVIS_UNROLL KOVIS_PRAGMA(GCC unroll 8)
#endif

/// Every function of a register type and every helper of a kernel: it never stands on its own in an object file, so there is
/// no copy that the linker could keep for a unit of another form.
#define KOVIS_SIMD_INLINE inline __attribute__((always_inline))
