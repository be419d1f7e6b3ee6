#pragma once

#include "KOVIS/KOVISCore/KOVISCoreExport.h"
#include "KOVIS/KOVISUtil/eInstructionSet.h"

#include <string>

namespace kovis::core
{
/// Whether this computer can run code of an instruction set and KOVIS_MAX_INSTRUCTION_SET does not hide it. The variable is read
/// once; it is one of generic, sse2, avx, avx2, fma3, avx512, and hides what is stronger. An unknown name hides nothing and is
/// logged as an error. Safe from any thread, also from static initialisers.
KOVISCORE_EXPORT bool isAvailable(const eInstructionSet& set);

/// The names that KOVIS_MAX_INSTRUCTION_SET takes, from the weakest on, separated by ", ".
KOVISCORE_EXPORT const char* getInstructionSetNames();
/// Whether `name` is one of them.
KOVISCORE_EXPORT bool isInstructionSetName(const std::string& name);

/// Whether a GPU may be used. False where this build has no device code, where no usable device is there, and where support has
/// been switched off. Safe from any thread.
KOVISCORE_EXPORT bool isGpuSupportActivated();
/// Switches the use of GPUs off and on again; on is the default.
KOVISCORE_EXPORT void setGpuSupportActivated(bool bActivated);
} // namespace kovis::core
