#include "KOVISIPL/KOVISIPLAttributes/InSubColorImg2d1.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InSubColorImg2d1, "Input 2D part of the first color image");
} // namespace kovis::imaproc::attr
