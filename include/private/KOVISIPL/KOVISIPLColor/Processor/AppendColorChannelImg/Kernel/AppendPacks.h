#pragma once

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// What the append needs of a form beyond its register type. Specialised in the header of each form:
/// widenBytes(from): half a block of bytes as 16 bits, by the sign of their type.
/// packLanes(a, b, T()), packWords(a, b, T()): two registers, read as signed, in the T of half their width, in their order.
/// truncateUnsigned(x): floats to unsigned int.
/// addTopBit(value, mask), of forms that truncate by halves: value plus 2147483648 in the lanes of the mask.
template <class Register>
struct AppendPacks;

/// One block; its header of definitions has the vector forms, and that of the plain form its own.
template <class Register, class Tin, class Tout>
struct AppendBlock;

/// Floats to unsigned int where there is only a signed conversion: 2147483648 and above lose that much before it and get it back
/// after; the rest is held at 0, a NaN too. From 4294967296 on the conversion gives the least int, and 0 comes out.
template <class Register>
KOVIS_SIMD_INLINE typename Register::Int truncateUnsignedByHalves(typename Register::Float x)
{
    const typename Register::Float zero = Register::broadcast(0.0F);
    const typename Register::Float half = Register::broadcast(2147483648.0F);
    const typename Register::Mask upper = Register::greaterEqual(x, half);
    // the zero is the second operand of the maximum, which is what a NaN gives
    const typename Register::Float lowered = Register::max(Register::sub(x, Register::select(upper, half, zero)), zero);
    return AppendPacks<Register>::addTopBit(Register::truncate(lowered), upper);
}
} // namespace kovis::imaproc::color::kernel
