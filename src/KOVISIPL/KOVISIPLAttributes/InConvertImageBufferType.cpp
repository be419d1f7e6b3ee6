#include "KOVISIPL/KOVISIPLAttributes/InConvertImageBufferType.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InConvertImageBufferType, "Buffer type to convert the image to");

bool InConvertImageBufferType::isUsable() const
{
    return image::getElementSize(getValue()) != 0;
}

std::pair<int, int> InConvertImageBufferType::getArchiveRange() const
{
    return {image::eIBT_Int8, image::eIBT_UInt8_11};
}
} // namespace kovis::imaproc::attr
