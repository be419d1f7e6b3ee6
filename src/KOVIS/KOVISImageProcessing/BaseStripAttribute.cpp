#include "KOVIS/KOVISImageProcessing/BaseStripAttribute.h"

#include "KOVIS/KOVISImageProcessing/ImageProcessingMessages.h"

namespace kovis::imaproc
{
namespace
{
constexpr image::eImageBufferType g_noBufferType = image::eIBT_None;
} // namespace

BaseStripAttribute::BaseStripAttribute() = default;
BaseStripAttribute::~BaseStripAttribute() = default;

const image::eImageBufferType& BaseStripAttribute::getImageBufferType() const
{
    const boost::shared_ptr<const image::BaseImageYStrip> strip = getBaseImageYStripPtr();
    return strip != nullptr ? strip->getBufferType() : g_noBufferType;
}

BaseYStripColor2dAttribute::BaseYStripColor2dAttribute() = default;
BaseYStripColor2dAttribute::~BaseYStripColor2dAttribute() = default;

const image::BaseImageYStripColor2d& BaseYStripColor2dAttribute::getBaseImageYStripColor2d() const
{
    const boost::shared_ptr<const image::BaseImageYStrip> strip = getBaseImageYStripPtr();
    if (strip == nullptr)
    {
        throwImageProcessingMessage(eImageAttributeMessage::eIAM_NoStrip,
                                    {"const kovis::image::BaseImageYStripColor2d& "
                                     "kovis::imaproc::BaseYStripColor2dAttribute::getBaseImageYStripColor2d() const",
                                     "KOVIS/KOVISImageProcessing/BaseStripAttribute.cpp", __LINE__},
                                    getObjectName());
    }
    // The attributes below this one hold nothing but colour strips.
    return static_cast<const image::BaseImageYStripColor2d&>(*strip);
}

BaseInputYStripColor2dAttribute::BaseInputYStripColor2dAttribute() = default;
BaseInputYStripColor2dAttribute::~BaseInputYStripColor2dAttribute() = default;

BaseOutputYStripColor2dAttribute::BaseOutputYStripColor2dAttribute() = default;
BaseOutputYStripColor2dAttribute::~BaseOutputYStripColor2dAttribute() = default;

BaseOutputYStrip2dAttribute::BaseOutputYStrip2dAttribute() = default;
BaseOutputYStrip2dAttribute::~BaseOutputYStrip2dAttribute() = default;
} // namespace kovis::imaproc
