#include "KOVISIPL/KOVISIPLAttributes/InColorYStrip2d1.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InColorYStrip2d1, "Input Y strip of the first color image");
} // namespace kovis::imaproc::attr
