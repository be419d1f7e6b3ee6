#include "KOVISIPL/KOVISIPLAttributes/InImg1.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InImg1, "First input image");
} // namespace kovis::imaproc::attr
