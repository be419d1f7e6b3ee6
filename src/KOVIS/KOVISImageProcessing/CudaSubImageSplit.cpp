#include "KOVIS/KOVISImageProcessing/CudaSubImageSplit.h"

#include "KOVIS/KOVISImage/getFormatedName.h"
#include "KOVIS/KOVISImageProcessing/ImageProcessingMessages.h"

namespace kovis::imaproc
{
template <class TImagePtr>
BaseCudaSubImageSplit<TImagePtr>::BaseCudaSubImageSplit() = default;
template <class TImagePtr>
BaseCudaSubImageSplit<TImagePtr>::~BaseCudaSubImageSplit() = default;

template <class TImagePtr>
BoolResult BaseCudaSubImageSplit<TImagePtr>::initBase(const eSubImageSplitType& splitType, const TImagePtr& image)
{
    if (image == nullptr)
    {
        return BoolResult(false, imageProcessingText(eImageSplitMessage::eISM_NullImage, this->getAttributeName()));
    }
    if (!image->isGpuImage())
    {
        return BoolResult(false, imageProcessingText(eImageSplitMessage::eISM_NotGpuImage, this->getAttributeName(),
                                                     image::getFormatedName(*image, image::eFT_Short)));
    }
    if (splitType != eSIST_WholeOnGpu)
    {
        return BoolResult(false, imageProcessingText(eImageSplitMessage::eISM_UnknownGpuCut, this->getAttributeName(),
                                                     static_cast<int>(splitType)));
    }
    m_image = image;
    processor::ElementsLocationInfo location;
    location.insertNonLocalized(ElementsRange(0, 1), 0);
    this->initBaseSplitted(location);
    return BoolResult(true);
}

template <class TImagePtr>
BoolResult BaseCudaSubImageSplit<TImagePtr>::getSubImage(unsigned int index, TImagePtr& subImage) const
{
    if (m_image == nullptr)
    {
        return BoolResult(false, imageProcessingText(eImageSplitMessage::eISM_NotInitialised, this->getAttributeName()));
    }
    if (index != 0)
    {
        return BoolResult(false,
                          imageProcessingText(eImageSplitMessage::eISM_IndexOutOfRange, index, 1, this->getAttributeName()));
    }
    subImage = m_image;
    return BoolResult(true);
}

template class BaseCudaSubImageSplit<boost::shared_ptr<const image::BaseImage>>;
template class BaseCudaSubImageSplit<boost::shared_ptr<image::BaseImage>>;
} // namespace kovis::imaproc
