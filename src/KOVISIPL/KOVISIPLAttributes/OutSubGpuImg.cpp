#include "KOVISIPL/KOVISIPLAttributes/OutSubGpuImg.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(OutSubGpuImg, "Output image on the GPU");
} // namespace kovis::imaproc::attr
