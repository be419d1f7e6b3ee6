#include "KOVIS/KOVISImage/getHostImage.h"

#include "KOVIS/KOVISImage/KOVISImageLogMessages.h"
#include "KOVIS/KOVISImage/getFormatedName.h"

namespace kovis::image::detail
{
namespace
{
// The image in host memory, or null and the number of the message that says why not.
const HostImage* castToHostImage(const BaseImage& image, eImageMessage::domain& number)
{
    number = image.isGpuImage() ? eImageMessage::eIM_GpuImage : eImageMessage::eIM_NotHostImage;
    return image.isGpuImage() ? nullptr : dynamic_cast<const HostImage*>(&image);
}
} // namespace

const HostImage* findHostImage(const BaseImage& image, BoolResult& result)
{
    eImageMessage::domain number{};
    const HostImage* const pImage = castToHostImage(image, number);
    result =
        pImage != nullptr ? BoolResult(true) : BoolResult(false, formatImageMessage(number, getFormatedName(image, eFT_Short)));
    return pImage;
}

const HostImage& getHostImage(const BaseImage& image, const SourcePlace& place)
{
    eImageMessage::domain number{};
    const HostImage* const pImage = castToHostImage(image, number);
    if (pImage == nullptr)
    {
        throwImageMessage(number, place, getFormatedName(image, eFT_Short));
    }
    return *pImage;
}

const HostImage& getHostImage(const BaseImage* pImage, const SourcePlace& place)
{
    if (pImage == nullptr)
    {
        throwImageMessage(eImageMessage::eIM_NullImage, place, place.m_function);
    }
    return getHostImage(*pImage, place);
}
} // namespace kovis::image::detail
