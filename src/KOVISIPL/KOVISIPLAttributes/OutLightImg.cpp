#include "KOVISIPL/KOVISIPLAttributes/OutLightImg.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(OutLightImg, "Output lightness image");
} // namespace kovis::imaproc::attr
