#include "KOVISIPL/KOVISIPLAttributes/InImg2.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InImg2, "Second input image");
} // namespace kovis::imaproc::attr
