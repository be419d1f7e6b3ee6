#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/conversionErrors.h"

#include "KOVISIPL/KOVISIPLColor/throwColorText.h"

#include <string>

namespace kovis::imaproc::color
{
namespace
{
constexpr const char* g_file = "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/conversionErrors";
} // namespace

void throwShortMatrix(std::size_t nbValues, unsigned int inSizeC, unsigned int outSizeC)
{
    throwColorText("the conversion matrix holds " + std::to_string(nbValues) + " values, but " + std::to_string(inSizeC) +
                       " input channels and " + std::to_string(outSizeC) + " output channels need " +
                       std::to_string(outSizeC * (inSizeC + std::size_t{1})) +
                       ": one row per output channel, with a value per input channel and an offset",
                   "void kovis::imaproc::color::throwShortMatrix(std::size_t, unsigned int, unsigned int)", g_file, __LINE__);
}
} // namespace kovis::imaproc::color
