#include "KOVISIPL/KOVISIPLAttributes/InSubColorImg2d.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InSubColorImg2d, "Input 2D part of a color image");
} // namespace kovis::imaproc::attr
