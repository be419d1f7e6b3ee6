#pragma once

// The saturating conversion of the GPU append, one text for host and device: C++17, and no header that a device compiler lacks.

#ifdef __CUDACC__
#define KOVIS_HOST_DEVICE __host__ __device__
#else
#define KOVIS_HOST_DEVICE
#endif

namespace kovis::imaproc::color::gpu
{
/// The type in which the language lets values of two types meet.
template <class A, class B>
using CommonType = decltype(true ? A() : B());

template <class T>
struct PixelLimits;

#define KOVIS_PIXEL_LIMITS(TYPE, MIN, MAX)                                                                                       \
    template <>                                                                                                                  \
    struct PixelLimits<TYPE>                                                                                                     \
    {                                                                                                                            \
        static constexpr TYPE g_min = MIN;                                                                                       \
        static constexpr TYPE g_max = MAX;                                                                                       \
    }

KOVIS_PIXEL_LIMITS(signed char, -128, 127);
KOVIS_PIXEL_LIMITS(unsigned char, 0, 255);
KOVIS_PIXEL_LIMITS(short, -32768, 32767);
KOVIS_PIXEL_LIMITS(unsigned short, 0, 65535);
KOVIS_PIXEL_LIMITS(int, -2147483647 - 1, 2147483647);
KOVIS_PIXEL_LIMITS(unsigned int, 0U, 4294967295U);
// Not the lowest float, which is 0xFF7FFFFF: this one is 0xFF7FFFEE, while the greatest is 0x7F7FFFFF.
KOVIS_PIXEL_LIMITS(float, -3.40282e38F, 3.402823466e38F);

#undef KOVIS_PIXEL_LIMITS

/// A float towards zero, as the conversion instructions of the device do it: values past the end give the last number there is,
/// NaN gives 0. Written out, since a plain cast of such values means nothing in the language.
template <class T>
KOVIS_HOST_DEVICE inline T truncate(float value)
{
    // The first power of two above the greatest T; T is int or unsigned int.
    constexpr float end = PixelLimits<T>::g_min == 0 ? 4294967296.0F : 2147483648.0F;
    if (value >= end)
    {
        return PixelLimits<T>::g_max;
    }
    if (value <= static_cast<float>(PixelLimits<T>::g_min))
    {
        return PixelLimits<T>::g_min;
    }
    return value == value ? static_cast<T>(value) : T(0);
}

template <class V, class Tout>
struct PlainCast
{
    KOVIS_HOST_DEVICE static Tout convert(V value) { return static_cast<Tout>(value); }
};
template <class Tout>
struct PlainCast<float, Tout>
{
    KOVIS_HOST_DEVICE static Tout convert(float value) { return static_cast<Tout>(truncate<int>(value)); }
};
template <>
struct PlainCast<float, unsigned int>
{
    KOVIS_HOST_DEVICE static unsigned int convert(float value) { return truncate<unsigned int>(value); }
};
template <>
struct PlainCast<float, float>
{
    KOVIS_HOST_DEVICE static float convert(float value) { return value; }
};

/// The value clamped to the limits of Tout, with both sides of each comparison in their common type: where that is unsigned,
/// negative numbers count as large ones.
template <class Tout, class V>
KOVIS_HOST_DEVICE inline Tout saturate(V value)
{
    using Compared = CommonType<V, Tout>;
    if (static_cast<Compared>(value) <= static_cast<Compared>(PixelLimits<Tout>::g_min))
    {
        return PixelLimits<Tout>::g_min;
    }
    if (static_cast<Compared>(value) > static_cast<Compared>(PixelLimits<Tout>::g_max))
    {
        return PixelLimits<Tout>::g_max;
    }
    return PlainCast<V, Tout>::convert(value);
}
} // namespace kovis::imaproc::color::gpu
