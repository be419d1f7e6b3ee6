#include "KOVISIPL/KOVISIPLAttributes/InColorYStrip2d.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InColorYStrip2d, "Input Y strip of a color image");
} // namespace kovis::imaproc::attr
