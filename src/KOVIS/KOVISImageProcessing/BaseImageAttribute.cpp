#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"

#include "KOVIS/KOVISImageProcessing/ImageProcessingMessages.h"

namespace kovis::imaproc
{
BaseImageProcessingAttribute::BaseImageProcessingAttribute() = default;
BaseImageProcessingAttribute::~BaseImageProcessingAttribute() = default;

BaseImageAttribute::BaseImageAttribute() = default;
BaseImageAttribute::~BaseImageAttribute() = default;

const image::BaseImage& BaseImageAttribute::getImage() const
{
    const boost::shared_ptr<const image::BaseImage> image = getImagePtr();
    if (image == nullptr)
    {
        throwImageProcessingMessage(eImageAttributeMessage::eIAM_NoImage,
                                    {"const kovis::image::BaseImage& kovis::imaproc::BaseImageAttribute::getImage() const",
                                     "KOVIS/KOVISImageProcessing/BaseImageAttribute.cpp", __LINE__},
                                    getObjectName());
    }
    return *image;
}

BaseInputImageAttribute::BaseInputImageAttribute() = default;
BaseInputImageAttribute::~BaseInputImageAttribute() = default;

BaseOutputImageAttribute::BaseOutputImageAttribute() = default;
BaseOutputImageAttribute::~BaseOutputImageAttribute() = default;
} // namespace kovis::imaproc
