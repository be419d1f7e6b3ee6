#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/conversionErrors.h"

#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"

#include <string>

namespace kovis::imaproc::color
{
namespace
{
constexpr const char* g_file = "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3";
constexpr const char* g_function =
    "kovis::ProcessingResult<bool> kovis::imaproc::color::ColorConvertImgLvl3::genericProcessFunction(const "
    "kovis::processor::ProcessingInfo&)";

[[noreturn]] void throwConversionError(const std::string& message, unsigned int line)
{
    throw KOVISIPLColorException(message, g_function, g_file, line);
}
} // namespace

void throwMissingKernels(const image::eColorGeometryType& from, const image::eColorGeometryType& to, const char* family)
{
    throwConversionError(std::string("conversion from ") + image::getColorGeometryTypeName(from) + " to " +
                             image::getColorGeometryTypeName(to) + " needs the " + family +
                             " kernels, which this version does not have",
                         __LINE__);
}

void throwShortMatrix(std::size_t nbValues, unsigned int inSizeC, unsigned int outSizeC)
{
    throwConversionError("the conversion matrix holds " + std::to_string(nbValues) + " values, but " + std::to_string(inSizeC) +
                             " input channels and " + std::to_string(outSizeC) + " output channels need " +
                             std::to_string(outSizeC * (inSizeC + std::size_t{1})) +
                             ": one row per output channel, with a value per input channel and an offset",
                         __LINE__);
}

void throwUnboundStrip()
{
    throwConversionError("the strips of ColorConvertImgLvl3 must be bound to parsers of their element types before a kernel runs",
                         __LINE__);
}
} // namespace kovis::imaproc::color
