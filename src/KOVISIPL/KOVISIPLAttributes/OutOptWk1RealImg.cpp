#include "KOVISIPL/KOVISIPLAttributes/OutOptWk1RealImg.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(OutOptWk1RealImg, "Optional working image of real values");
} // namespace kovis::imaproc::attr
