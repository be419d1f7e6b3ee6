#pragma once

#include "KOVIS/KOVISHardware/CudaResult.h"
#include "KOVIS/KOVISHardware/LauncherInfo.h"
#include "support/GpuAppendModel.h"

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace kovis::test
{
/// The planes of an image, in host memory, with their type. A canary follows each.
struct TypedPlanes
{
    PixelType m_type;
    std::vector<std::vector<unsigned char>> m_planes;
};

std::size_t getElementSize(PixelType type);
std::string getName(PixelType type);
PixelValue getPixel(const TypedPlanes& planes, std::size_t c, std::size_t index);

/// Boundaries of all types as far as the type holds them, negatives, fractions, infinities and NaN, and then random bits.
TypedPlanes makeSamples(PixelType type, std::size_t nbPlanes, std::size_t nbElements, std::mt19937& random);
TypedPlanes makeEmpty(PixelType type, std::size_t nbPlanes, std::size_t nbElements);

/// Launches the kernel of the planes' types, of 343 ones, on copies of the planes in device memory, and fetches the output.
gpu::CudaResult launchTriple(const gpu::LauncherInfo& info, const TypedPlanes& in1, const TypedPlanes& in2, TypedPlanes& out);

/// The first planes of `out` have to be the append of the inputs as the model has it, all further ones and every canary
/// untouched. Gives a text for the first pixel that is not so, or nothing.
std::string findDifference(const TypedPlanes& in1, const TypedPlanes& in2, const TypedPlanes& out, std::size_t nbWritten,
                           std::size_t nbElements);
} // namespace kovis::test
