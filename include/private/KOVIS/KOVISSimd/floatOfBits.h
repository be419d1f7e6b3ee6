#pragma once

namespace kovis::simd
{
/// The float of the given IEEE 754 bits. Worked out while compiling, so that it leaves no code in any unit.
consteval float floatOfBits(unsigned int bits)
{
    return __builtin_bit_cast(float, bits);
}
} // namespace kovis::simd
