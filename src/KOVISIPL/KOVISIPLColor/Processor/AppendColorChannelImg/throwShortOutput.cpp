#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/throwShortOutput.h"

#include "KOVISIPL/KOVISIPLColor/throwColorText.h"

#include <string>

namespace kovis::imaproc::color::details
{
void throwShortOutput(unsigned long sizeC1, unsigned long sizeC2, unsigned long sizeCOut)
{
    throwColorText("the output strip of AppendColorChannelImgLvl3 has " + std::to_string(sizeCOut) +
                       " channels, but the inputs bring " + std::to_string(sizeC1) + " and " + std::to_string(sizeC2) +
                       ": give an output of at least as many as both together",
                   "void kovis::imaproc::color::details::throwShortOutput(unsigned long, unsigned long, unsigned long)",
                   "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/throwShortOutput", __LINE__);
}
} // namespace kovis::imaproc::color::details
