#pragma once

namespace kovis::imaproc::color::kernel
{
/// Picks the operation of a pixel type.
template <class T>
struct PixelTag
{
};

/// What the lightness needs of a form beyond its register: minimum and maximum of pixels in lanes of their own width, and the
/// conversion to integers without limits. Specialised per register, in the LightnessLanes headers.
template <class Register>
struct LightnessLanes;

/// What the vector forms have in common of it.
template <class TRegister>
struct VectorLanes
{
    using Register = TRegister;
    using Int = typename Register::Int;
    template <class T>
    using Raw = Int;

    static KOVIS_SIMD_INLINE Int loadRaw(const void* from) { return Register::loadRaw(from); }
    static KOVIS_SIMD_INLINE void storeRaw(void* to, Int value) { Register::storeRaw(to, value); }

    template <class T>
    static KOVIS_SIMD_INLINE Int truncate(typename Register::Float a, PixelTag<T>)
    {
        return Register::truncate(a);
    }

    /// 8 and 16 bits by packs that saturate, 32 bits as they are, for the truncation has brought them into their type.
    template <class T>
    static KOVIS_SIMD_INLINE void storeInts(T* to, const typename Register::IntBlock& block)
    {
        Register::storeInts(to, block, typename Register::Limits());
    }
    static KOVIS_SIMD_INLINE void storeInts(unsigned int* to, const typename Register::IntBlock& block)
    {
        storeInts(reinterpret_cast<int*>(to), block);
    }
};
} // namespace kovis::imaproc::color::kernel
