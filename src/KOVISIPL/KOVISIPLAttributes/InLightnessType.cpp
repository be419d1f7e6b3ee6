#include "KOVISIPL/KOVISIPLAttributes/InLightnessType.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InLightnessType, "Formula of the lightness");
} // namespace kovis::imaproc::attr
