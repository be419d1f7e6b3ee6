#include "KOVISIPL/KOVISIPLAttributes/InSubGpuImg1.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InSubGpuImg1, "First input image on the GPU");
} // namespace kovis::imaproc::attr
