#pragma once

// Included inside a target region, after the packs of a form.

namespace kovis::imaproc::color::kernel
{
/// One block from Tin to Tout. The register type gives what all algorithms need of a form, AppendPacks<Register> the rest.
template <class Register, class Tin, class Tout>
struct AppendBlock
{
    using Packs = AppendPacks<Register>;
    using Int = typename Register::Int;

    static constexpr bool g_bFloatIn = std::is_same_v<Tin, float>;
    static constexpr bool g_bFloatOut = std::is_same_v<Tout, float>;
    static constexpr bool g_bSameBits = g_bFloatIn == g_bFloatOut && sizeof(Tin) == sizeof(Tout);
    /// 32-bit lanes per register; a block is four registers of them.
    static constexpr unsigned long g_nbLanes = Register::s_blockLength / 4;

    static KOVIS_SIMD_INLINE void run(const Tin* from, Tout* to)
    {
        if constexpr (g_bSameBits)
        {
            Register::copy(from, reinterpret_cast<Tin*>(to));
        }
        else if constexpr (g_bFloatOut)
        {
            Register::store(to, Register::load(from));
        }
        else if constexpr (g_bFloatIn)
        {
            storeFromFloats(to, Register::load(from));
        }
        else if constexpr (sizeof(Tout) == 4)
        {
            const auto widened = Register::loadInts(from);
            storeLanes(to, widened.m_register);
        }
        else if constexpr (sizeof(Tin) == 1)
        {
            Register::storeRaw(to, Packs::widenBytes(from));
            Register::storeRaw(to + 2 * g_nbLanes, Packs::widenBytes(from + 2 * g_nbLanes));
        }
        else if constexpr (sizeof(Tin) == 2)
        {
            Register::storeRaw(to, Packs::packWords(Register::loadRaw(from), Register::loadRaw(from + 2 * g_nbLanes), Tout()));
        }
        else
        {
            const Int lanes[4] = {Register::loadRaw(from), Register::loadRaw(from + g_nbLanes),
                                  Register::loadRaw(from + 2 * g_nbLanes), Register::loadRaw(from + 3 * g_nbLanes)};
            storeLanes(to, lanes);
        }
    }

private:
    static KOVIS_SIMD_INLINE void storeFromFloats(Tout* to, const typename Register::Block& floats)
    {
        Int lanes[4];
        KOVIS_UNROLL
        for (unsigned long k = 0; k < 4; ++k)
        {
            if constexpr (std::is_same_v<Tout, unsigned int>)
            {
                lanes[k] = Packs::truncateUnsigned(floats.m_register[k]);
            }
            else
            {
                lanes[k] = Register::truncate(floats.m_register[k]);
            }
        }
        storeLanes(to, lanes);
    }

    /// 32-bit integers. To 8 bits they go through 16 bits of the same signedness, which are then read as signed.
    static KOVIS_SIMD_INLINE void storeLanes(Tout* to, const Int (&lanes)[4])
    {
        if constexpr (sizeof(Tout) == 4)
        {
            KOVIS_UNROLL
            for (unsigned long k = 0; k < 4; ++k)
            {
                Register::storeRaw(to + k * g_nbLanes, lanes[k]);
            }
        }
        else if constexpr (sizeof(Tout) == 2)
        {
            Register::storeRaw(to, Packs::packLanes(lanes[0], lanes[1], Tout()));
            Register::storeRaw(to + 2 * g_nbLanes, Packs::packLanes(lanes[2], lanes[3], Tout()));
        }
        else
        {
            using Word = std::conditional_t<std::is_signed_v<Tout>, short, unsigned short>;
            Register::storeRaw(to, Packs::packWords(Packs::packLanes(lanes[0], lanes[1], Word()),
                                                    Packs::packLanes(lanes[2], lanes[3], Word()), Tout()));
        }
    }
};

template <class Register, class Tin, class Tout>
void appendConvert(unsigned long count, const Tin* in, Tout* out)
{
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        AppendBlock<Register, Tin, Tout>::run(in + i, out + i);
    }
}
} // namespace kovis::imaproc::color::kernel

#define KOVIS_INSTANTIATE_APPEND_CONVERT(REGISTER, TIN, TOUT)                                                                    \
    template void appendConvert<REGISTER, TIN, TOUT>(unsigned long, const TIN*, TOUT*);
