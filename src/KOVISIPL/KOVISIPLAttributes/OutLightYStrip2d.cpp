#include "KOVISIPL/KOVISIPLAttributes/OutLightYStrip2d.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(OutLightYStrip2d, "Output Y strip of a lightness image");
} // namespace kovis::imaproc::attr
