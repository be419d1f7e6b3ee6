#include "KOVISIPL/KOVISIPLAttributes/OutImg.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(OutImg, "Output image");
} // namespace kovis::imaproc::attr
