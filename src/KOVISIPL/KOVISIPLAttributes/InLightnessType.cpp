#include "KOVISIPL/KOVISIPLAttributes/InLightnessType.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InLightnessType, "Formula of the lightness");

std::pair<int, int> InLightnessType::getArchiveRange() const
{
    return {eLT_Average, eLT_Luminosity};
}
} // namespace kovis::imaproc::attr
