#include "KOVISIPL/KOVISIPLAttributes/InSubColorImg2d2.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InSubColorImg2d2, "Input 2D part of the second color image");
} // namespace kovis::imaproc::attr
