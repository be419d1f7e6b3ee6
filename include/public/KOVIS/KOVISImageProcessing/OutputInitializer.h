#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseOutputInitializer.h"
#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingExport.h"

#include <boost/make_shared.hpp>
#include <boost/optional.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <vector>

namespace kovis::imaproc
{
/// Where the memory of a made image lies.
enum eImageInitializerStoragePolicy : int
{
    eIISP_HostMemory = 0
};
/// How a made image is distributed over computers.
enum eImageInitializerDistributionPolicy : int
{
    eIIDP_AsInput = 0
};

/// Describes an image that is to be made.
class KOVISIMAGEPROCESSING_EXPORT BaseCustomImageInfo
{
public:
    virtual ~BaseCustomImageInfo();
    BaseCustomImageInfo(const BaseCustomImageInfo&) = delete;
    BaseCustomImageInfo& operator=(const BaseCustomImageInfo&) = delete;

    /// Whether an image is to be made at all; true here.
    virtual bool isOutputInitNeeded() const;
    virtual image::eImageBufferType getImageBufferType() const = 0;
    /// One buffer type per channel, for an image whose channels differ; all the same here.
    virtual std::vector<image::eImageBufferType> getImageBufferTypeVector() const = 0;
    virtual unsigned long getSizeX() const = 0;
    virtual unsigned long getSizeY() const = 0;
    virtual image::VolumeGeometry getVolumeGeometry() const = 0;
    virtual image::ColorGeometry getColorGeometry() const = 0;
    virtual image::TemporalGeometry getTemporalGeometry() const = 0;
    virtual eImageInitializerDistributionPolicy getImageInitializerDistributionPolicy() const;
    virtual bool hasInputImage() const = 0;
    /// The image that the made one is derived from. Throws KOVISImageProcessingException if there is none.
    virtual boost::shared_ptr<const image::BaseImage> getInputImage() const = 0;

protected:
    BaseCustomImageInfo();
};

/// An image that takes size, volume and time from an input image. The input attribute is not kept alive.
class KOVISIMAGEPROCESSING_EXPORT BaseFromImageCustomImageInfo : public BaseCustomImageInfo
{
public:
    ~BaseFromImageCustomImageInfo() override;

    void initBase(const boost::weak_ptr<const BaseImageAttribute>& input);

    std::vector<image::eImageBufferType> getImageBufferTypeVector() const override;
    unsigned long getSizeX() const override;
    unsigned long getSizeY() const override;
    image::VolumeGeometry getVolumeGeometry() const override;
    image::TemporalGeometry getTemporalGeometry() const override;
    bool hasInputImage() const override;
    boost::shared_ptr<const image::BaseImage> getInputImage() const override;

protected:
    BaseFromImageCustomImageInfo();

private:
    boost::weak_ptr<const BaseImageAttribute> m_input;
};

/// Makes the image that an information object describes.
template <class TOut>
class KOVISIMAGEPROCESSING_EXPORT CustomImageInitializer : public processor::BaseOutputInitializer
{
public:
    CustomImageInitializer();
    ~CustomImageInitializer() override;

    void init(const boost::weak_ptr<TOut>& attribute, const boost::shared_ptr<BaseCustomImageInfo>& info,
              const eImageInitializerStoragePolicy& policy);
    BoolResult initOutputAttribute() override;

private:
    boost::weak_ptr<TOut> m_attribute;
    boost::shared_ptr<BaseCustomImageInfo> m_info;
};
extern template class KOVISIMAGEPROCESSING_EXPORT CustomImageInitializer<BaseOutputImageAttribute>;

/// Makes an image like an input image, apart from what is given otherwise.
template <class TIn, class TOut>
class KOVISIMAGEPROCESSING_EXPORT DuplicateImageInitializer : public processor::BaseOutputInitializer
{
public:
    DuplicateImageInitializer();
    ~DuplicateImageInitializer() override;

    /// A buffer type of 0, an empty optional and a default volume or temporal geometry each mean: as the input.
    void init(const boost::weak_ptr<TOut>& output, const boost::weak_ptr<TIn>& input, const image::eImageBufferType& bufferType,
              const eImageInitializerStoragePolicy& policy, const boost::optional<unsigned long>& sizeX,
              const boost::optional<unsigned long>& sizeY, const image::VolumeGeometry& volume,
              const boost::optional<image::ColorGeometry>& color, const image::TemporalGeometry& temporal);
    BoolResult initOutputAttribute() override;

private:
    boost::weak_ptr<TOut> m_output;
    boost::weak_ptr<TIn> m_input;
    image::eImageBufferType m_bufferType = image::eIBT_None;
    boost::optional<unsigned long> m_sizeX;
    boost::optional<unsigned long> m_sizeY;
    image::VolumeGeometry m_volume;
    boost::optional<image::ColorGeometry> m_color;
    image::TemporalGeometry m_temporal;
};
extern template class KOVISIMAGEPROCESSING_EXPORT DuplicateImageInitializer<BaseInputImageAttribute, BaseOutputImageAttribute>;

template <class TOut>
boost::shared_ptr<processor::BaseOutputInitializer> customOutput(const boost::weak_ptr<TOut>& attribute,
                                                                 const boost::shared_ptr<BaseCustomImageInfo>& info)
{
    const auto initializer = boost::make_shared<CustomImageInitializer<BaseOutputImageAttribute>>();
    initializer->init(attribute, info, eIISP_HostMemory);
    return initializer;
}

/// An image of the input's shape with elements of the given buffer type.
template <class TIn, class TOut>
boost::shared_ptr<processor::BaseOutputInitializer>
duplicateInOut(const boost::weak_ptr<TOut>& output, const boost::weak_ptr<TIn>& input, const image::eImageBufferType& bufferType,
               const eImageInitializerDistributionPolicy&)
{
    const auto initializer = boost::make_shared<DuplicateImageInitializer<BaseInputImageAttribute, BaseOutputImageAttribute>>();
    initializer->init(output, input, bufferType, eIISP_HostMemory, boost::none, boost::none, image::VolumeGeometry(), boost::none,
                      image::TemporalGeometry());
    return initializer;
}

/// A grey image of the input's size and buffer type.
template <class TIn, class TOut>
boost::shared_ptr<processor::BaseOutputInitializer> duplicateGreyInOut(const boost::weak_ptr<TOut>& output,
                                                                       const boost::weak_ptr<TIn>& input,
                                                                       const eImageInitializerStoragePolicy& policy)
{
    const auto initializer = boost::make_shared<DuplicateImageInitializer<BaseInputImageAttribute, BaseOutputImageAttribute>>();
    initializer->init(output, input, image::eIBT_None, policy, boost::none, boost::none, image::VolumeGeometry(),
                      image::geometryGrey(), image::TemporalGeometry());
    return initializer;
}
} // namespace kovis::imaproc
