#include "KOVISIPL/KOVISIPLAttributes/InColorImg.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InColorImg, "Input color image");
} // namespace kovis::imaproc::attr
