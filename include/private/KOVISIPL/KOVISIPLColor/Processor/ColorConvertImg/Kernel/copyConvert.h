#pragma once

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
// One block of the copy cast, by element types: equal types keep their bits, float to integer saturates and truncates without
// rounding, integers saturate, and whatever goes to float is converted plainly.

template <class Register, class Tin, class Tout>
struct CopyCast
{
    static KOVIS_SIMD_INLINE void run(const Tin* from, Tout* to, const typename Register::Limits& limits)
    {
        Register::storeInts(to, Register::loadInts(from), limits);
    }
};

template <class Register, class Tout>
struct CopyCast<Register, float, Tout>
{
    static KOVIS_SIMD_INLINE void run(const float* from, Tout* to, const typename Register::Limits& limits)
    {
        Register::storeTruncated(to, Register::load(from), limits);
    }
};

template <class Register, class Tin>
struct CopyCast<Register, Tin, float>
{
    static KOVIS_SIMD_INLINE void run(const Tin* from, float* to, const typename Register::Limits&)
    {
        Register::store(to, Register::load(from));
    }
};

template <class Register, class T>
struct CopyCast<Register, T, T>
{
    static KOVIS_SIMD_INLINE void run(const T* from, T* to, const typename Register::Limits&) { Register::copy(from, to); }
};

template <class Register>
struct CopyCast<Register, float, float>
{
    static KOVIS_SIMD_INLINE void run(const float* from, float* to, const typename Register::Limits&)
    {
        Register::copy(from, to);
    }
};

/// Copies sizeC planes between equal geometries. Blocks outside, planes inside; whole blocks up to the block's end past count.
template <class Register, class Tin, class Tout>
void copyConvert(unsigned int sizeC, unsigned long count, const Tin** in, Tout** out)
{
    const typename Register::Limits limits = Register::template limits<Tout>();
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        for (unsigned int c = 0; c < sizeC; ++c)
        {
            CopyCast<Register, Tin, Tout>::run(in[c] + i, out[c] + i, limits);
        }
    }
}
} // namespace kovis::imaproc::color::kernel

#define KOVIS_INSTANTIATE_COPY_CONVERT(REGISTER, TIN, TOUT)                                                                      \
    template void copyConvert<REGISTER, TIN, TOUT>(unsigned int, unsigned long, const TIN**, TOUT**);
