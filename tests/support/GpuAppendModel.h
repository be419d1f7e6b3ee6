#pragma once

#include <cstdint>

namespace kovis::test
{
/// The seven pixel types, by number, in the order of the buffer types 1 to 7.
enum class PixelType
{
    i8 = 1,
    u8,
    i16,
    u16,
    i32,
    u32,
    f32
};

/// A pixel of any type: a whole number, or a float by its bits.
struct PixelValue
{
    PixelType m_type;
    std::int64_t m_number; ///< of the integer types
    std::uint32_t m_bits;  ///< of f32
};

/// Plain model of the GPU append: what a pixel of the type `value.m_type`, in an image whose partner has pixels of `other`,
/// becomes in an output of `target`. Written from the table of the conversion, row by row, without a cast of the language that
/// could do it.
PixelValue appendOnGpuModel(const PixelValue& value, PixelType other, PixelType target);
} // namespace kovis::test
