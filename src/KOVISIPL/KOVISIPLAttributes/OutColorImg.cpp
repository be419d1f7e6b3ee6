#include "KOVISIPL/KOVISIPLAttributes/OutColorImg.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(OutColorImg, "Output color image");
} // namespace kovis::imaproc::attr
