#include "KOVISIPL/KOVISIPLAttributes/OutColorYStrip2d.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(OutColorYStrip2d, "Output Y strip of a color image");
} // namespace kovis::imaproc::attr
