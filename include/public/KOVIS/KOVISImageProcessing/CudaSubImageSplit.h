#pragma once

#include "KOVIS/KOVISImageProcessing/ImageSplit.h"

namespace kovis::imaproc
{
/// Hands on an image that lies on a GPU, whole, as the one piece that there is. TImagePtr is a shared pointer to BaseImage or
/// const BaseImage.
template <class TImagePtr>
class KOVISIMAGEPROCESSING_EXPORT BaseCudaSubImageSplit : public processor::BaseStaticSplit
{
public:
    ~BaseCudaSubImageSplit() override;

    processor::eSplitStaticType getSplitStaticType() const override { return processor::eSST_SubImage; }

    /// Takes the image. False, with a message, for an empty pointer, an image in host memory, and another type than
    /// eSIST_WholeOnGpu.
    BoolResult initBase(const eSubImageSplitType& splitType, const TImagePtr& image);

protected:
    BaseCudaSubImageSplit();

    /// The image, for index 0. False, with a message, for an index out of range.
    BoolResult getSubImage(unsigned int index, TImagePtr& subImage) const;

private:
    TImagePtr m_image;
};

extern template class KOVISIMAGEPROCESSING_EXPORT BaseCudaSubImageSplit<boost::shared_ptr<const image::BaseImage>>;
extern template class KOVISIMAGEPROCESSING_EXPORT BaseCudaSubImageSplit<boost::shared_ptr<image::BaseImage>>;

/// Gives the processor its image on the GPU.
template <class TProcessor, class TAttribute>
class CudaSubImageSplit
    : public detail::PieceSplit<BaseCudaSubImageSplit<typename TAttribute::StorageType>, TProcessor, TAttribute>
{
};
} // namespace kovis::imaproc
