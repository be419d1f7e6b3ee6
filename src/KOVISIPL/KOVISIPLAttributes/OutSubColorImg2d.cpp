#include "KOVISIPL/KOVISIPLAttributes/OutSubColorImg2d.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(OutSubColorImg2d, "Output 2D part of a color image");
} // namespace kovis::imaproc::attr
