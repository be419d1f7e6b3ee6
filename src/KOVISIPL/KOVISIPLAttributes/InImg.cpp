#include "KOVISIPL/KOVISIPLAttributes/InImg.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InImg, "Input image");
} // namespace kovis::imaproc::attr
