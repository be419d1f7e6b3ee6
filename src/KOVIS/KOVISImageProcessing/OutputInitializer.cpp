#include "KOVIS/KOVISImageProcessing/OutputInitializer.h"

#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISImageProcessing/ImageProcessingMessages.h"

namespace kovis::imaproc
{
BaseCustomImageInfo::BaseCustomImageInfo() = default;
BaseCustomImageInfo::~BaseCustomImageInfo() = default;

bool BaseCustomImageInfo::isOutputInitNeeded() const
{
    return true;
}

eImageInitializerDistributionPolicy BaseCustomImageInfo::getImageInitializerDistributionPolicy() const
{
    return eIIDP_AsInput;
}

BaseFromImageCustomImageInfo::BaseFromImageCustomImageInfo() = default;
BaseFromImageCustomImageInfo::~BaseFromImageCustomImageInfo() = default;

void BaseFromImageCustomImageInfo::initBase(const boost::weak_ptr<const BaseImageAttribute>& input)
{
    m_input = input;
}

std::vector<image::eImageBufferType> BaseFromImageCustomImageInfo::getImageBufferTypeVector() const
{
    return std::vector<image::eImageBufferType>(getColorGeometry().getSizeC(), getImageBufferType());
}

unsigned long BaseFromImageCustomImageInfo::getSizeX() const
{
    return getInputImage()->getSizeX();
}

unsigned long BaseFromImageCustomImageInfo::getSizeY() const
{
    return getInputImage()->getSizeY();
}

image::VolumeGeometry BaseFromImageCustomImageInfo::getVolumeGeometry() const
{
    return getInputImage()->getGeometry().getVolumeGeometry();
}

image::TemporalGeometry BaseFromImageCustomImageInfo::getTemporalGeometry() const
{
    return getInputImage()->getGeometry().getTemporalGeometry();
}

bool BaseFromImageCustomImageInfo::hasInputImage() const
{
    const boost::shared_ptr<const BaseImageAttribute> input = m_input.lock();
    return input != nullptr && input->getImagePtr() != nullptr;
}

boost::shared_ptr<const image::BaseImage> BaseFromImageCustomImageInfo::getInputImage() const
{
    const SourcePlace place{
        "boost::shared_ptr<const kovis::image::BaseImage> kovis::imaproc::BaseFromImageCustomImageInfo::getInputImage() const",
        "KOVIS/KOVISImageProcessing/OutputInitializer.cpp", __LINE__};
    const boost::shared_ptr<const BaseImageAttribute> input = m_input.lock();
    if (input == nullptr)
    {
        throwImageProcessingMessage(eImageInitializerMessage::eIIM_InputGone, place);
    }
    const boost::shared_ptr<const image::BaseImage> image = input->getImagePtr();
    if (image == nullptr)
    {
        throwImageProcessingMessage(eImageInitializerMessage::eIIM_NoInputImage, place, input->getObjectName());
    }
    return image;
}

template <class TOut>
CustomImageInitializer<TOut>::CustomImageInitializer() = default;
template <class TOut>
CustomImageInitializer<TOut>::~CustomImageInitializer() = default;

template <class TOut>
void CustomImageInitializer<TOut>::init(const boost::weak_ptr<TOut>& attribute,
                                        const boost::shared_ptr<BaseCustomImageInfo>& info, const eImageInitializerStoragePolicy&)
{
    m_attribute = attribute;
    m_info = info;
}

template <class TOut>
BoolResult CustomImageInitializer<TOut>::initOutputAttribute()
{
    const boost::shared_ptr<TOut> attribute = m_attribute.lock();
    if (attribute == nullptr)
    {
        return BoolResult(false, imageProcessingText(eImageInitializerMessage::eIIM_OutputGone));
    }
    if (m_info == nullptr)
    {
        return BoolResult(false, imageProcessingText(eImageInitializerMessage::eIIM_NoInfo, attribute->getObjectName()));
    }
    if (m_info->isOutputInitNeeded())
    {
        image::HomogeneousImageGeometry geometry;
        geometry.init(m_info->getVolumeGeometry(), m_info->getColorGeometry(), m_info->getTemporalGeometry(), m_info->getSizeX(),
                      m_info->getSizeY(), m_info->getImageBufferType());
        attribute->init(image::createImage(geometry));
    }
    return BoolResult(true);
}

template class CustomImageInitializer<BaseOutputImageAttribute>;

template <class TIn, class TOut>
DuplicateImageInitializer<TIn, TOut>::DuplicateImageInitializer() = default;
template <class TIn, class TOut>
DuplicateImageInitializer<TIn, TOut>::~DuplicateImageInitializer() = default;

template <class TIn, class TOut>
void DuplicateImageInitializer<TIn, TOut>::init(const boost::weak_ptr<TOut>& output, const boost::weak_ptr<TIn>& input,
                                                const image::eImageBufferType& bufferType, const eImageInitializerStoragePolicy&,
                                                const boost::optional<unsigned long>& sizeX,
                                                const boost::optional<unsigned long>& sizeY, const image::VolumeGeometry& volume,
                                                const boost::optional<image::ColorGeometry>& color,
                                                const image::TemporalGeometry& temporal)
{
    m_output = output;
    m_input = input;
    m_bufferType = bufferType;
    m_sizeX = sizeX;
    m_sizeY = sizeY;
    m_volume = volume;
    m_color = color;
    m_temporal = temporal;
}

template <class TIn, class TOut>
BoolResult DuplicateImageInitializer<TIn, TOut>::initOutputAttribute()
{
    const boost::shared_ptr<TOut> output = m_output.lock();
    if (output == nullptr)
    {
        return BoolResult(false, imageProcessingText(eImageInitializerMessage::eIIM_OutputGone));
    }
    const boost::shared_ptr<TIn> input = m_input.lock();
    if (input == nullptr)
    {
        return BoolResult(false, imageProcessingText(eImageInitializerMessage::eIIM_DuplicateInputGone, output->getObjectName()));
    }
    const boost::shared_ptr<const image::BaseImage> source = input->getImagePtr();
    if (source == nullptr)
    {
        return BoolResult(false, imageProcessingText(eImageInitializerMessage::eIIM_NoInputImage, input->getObjectName()));
    }
    const image::BaseImageGeometry& like = source->getGeometry();
    image::HomogeneousImageGeometry geometry;
    geometry.init(m_volume.getSizeZ() != 1 ? m_volume : like.getVolumeGeometry(), m_color ? *m_color : like.getColorGeometry(),
                  m_temporal.getSizeT() != 1 ? m_temporal : like.getTemporalGeometry(), m_sizeX ? *m_sizeX : like.getSizeX(),
                  m_sizeY ? *m_sizeY : like.getSizeY(), m_bufferType != image::eIBT_None ? m_bufferType : like.getBufferType());
    output->init(image::createImage(geometry));
    return BoolResult(true);
}

template class DuplicateImageInitializer<BaseInputImageAttribute, BaseOutputImageAttribute>;
} // namespace kovis::imaproc
