#include "KOVISIPL/KOVISIPLAttributes/InSubGpuImg2.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InSubGpuImg2, "Second input image on the GPU");
} // namespace kovis::imaproc::attr
