#include "KOVISIPL/KOVISIPLAttributes/InColorYStrip2.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InColorYStrip2, "Input Y strip of the second color image");
} // namespace kovis::imaproc::attr
