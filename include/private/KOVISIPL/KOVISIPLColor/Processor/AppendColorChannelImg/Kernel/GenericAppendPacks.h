#pragma once

#include "KOVIS/KOVISSimd/GenericRegister.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/AppendPacks.h"

namespace kovis::imaproc::color::kernel
{
/// Plain x86-64, one pixel: integers keep their low bits. A float goes through the truncation instructions, since a cast of one
/// out of range is undefined: through 32 bits, and through 64 to unsigned int.
template <class Tin, class Tout>
struct AppendBlock<simd::generic::Register, Tin, Tout>
{
    static KOVIS_SIMD_INLINE void run(const Tin* from, Tout* to)
    {
        if constexpr (!std::is_same_v<Tin, float> || std::is_same_v<Tout, float>)
        {
            *to = static_cast<Tout>(*from);
        }
        else if constexpr (std::is_same_v<Tout, unsigned int>)
        {
            *to = static_cast<Tout>(_mm_cvttss_si64(_mm_set_ss(*from)));
        }
        else
        {
            *to = static_cast<Tout>(simd::generic::Register::truncate(*from));
        }
    }
};
} // namespace kovis::imaproc::color::kernel
