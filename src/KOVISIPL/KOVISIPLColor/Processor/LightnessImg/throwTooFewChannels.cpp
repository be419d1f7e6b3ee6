#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/throwTooFewChannels.h"

#include "KOVISIPL/KOVISIPLColor/throwColorText.h"

#include <string>

namespace kovis::imaproc::color::details
{
void throwTooFewChannels(unsigned long nbChannels)
{
    throwColorText("the luminosity reads channels 0 to 2 of the strip of LightnessImgLvl3, which has " +
                       std::to_string(nbChannels) + (nbChannels == 1 ? " channel" : " channels") +
                       ": give a strip of three channels, or another formula",
                   "void kovis::imaproc::color::details::throwTooFewChannels(unsigned long)",
                   "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/throwTooFewChannels", __LINE__);
}
} // namespace kovis::imaproc::color::details
