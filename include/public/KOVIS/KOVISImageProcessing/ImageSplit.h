#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseDataSplit.h"
#include "KOVIS/KOVISBaseProcessing/NoSplit.h"
#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISImage/ImageStrip.h"
#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingExport.h"

#include <boost/shared_ptr.hpp>

#include <type_traits>

namespace kovis::imaproc
{
/// How an image is cut into sub-images.
enum eSubImageSplitType : int
{
    eSIST_PlaneWise = 0, ///< one piece per T, Z and channel, in that order
    eSIST_Slices = 2,    ///< one piece per T and Z, all channels together
    eSIST_WholeOnGpu = 7 ///< the whole image, on the GPU
};
enum eVolumeParsingType : int
{
    eVPT_Slices = 0
};
enum eColorParsingType : int
{
    eCPT_Channels = 0,
    eCPT_AllChannels = 1
};
enum eTemporalParsingType : int
{
    eTPT_Steps = 0
};
/// Where a strip's elements lie.
enum eStripAllocationType : int
{
    eSAT_InImage = 0 ///< in the image's own memory where that can be
};
enum eStripParsingDirection : int
{
    eSPD_TopToBottom = 0
};
enum eImageStripSplitType : int
{
    eISST_Y2d = 1,
    eISST_YColor2d = 5
};

/// Cuts an image into 2D sub-images. TImagePtr is a shared pointer to BaseImage or const BaseImage.
template <class TImagePtr>
class KOVISIMAGEPROCESSING_EXPORT BaseSubImageSplit : public processor::BaseStaticSplit
{
public:
    ~BaseSubImageSplit() override;

    processor::eSplitStaticType getSplitStaticType() const override { return processor::eSST_SubImage; }

    /// Takes the image and the cut. False, with a message, for an empty pointer, a GPU image, and a combination of types that is
    /// no cut.
    BoolResult initBase(const eSubImageSplitType& splitType, const eVolumeParsingType& volumeParsing,
                        const eColorParsingType& colorParsing, const eTemporalParsingType& temporalParsing,
                        const TImagePtr& image);

protected:
    BaseSubImageSplit();

    /// The sub-image of an index. False, with a message, for an index out of range.
    BoolResult getSubImage(unsigned int index, TImagePtr& subImage) const;

private:
    TImagePtr m_image;
    eSubImageSplitType m_splitType = eSIST_Slices;
};

extern template class KOVISIMAGEPROCESSING_EXPORT BaseSubImageSplit<boost::shared_ptr<const image::BaseImage>>;
extern template class KOVISIMAGEPROCESSING_EXPORT BaseSubImageSplit<boost::shared_ptr<image::BaseImage>>;

namespace detail
{
/// Gives each processor the piece that the base's getSubImage has for its index.
template <class TBase, class TProcessor, class TAttribute>
class PieceSplit : public processor::detail::BoundSplit<TBase, TProcessor, TAttribute>
{
public:
    BoolResult processAttribute(processor::BaseProcessor& processor, unsigned int index, const core::BaseRequestOrigin&) override
    {
        typename TAttribute::StorageType subImage;
        const BoolResult result = this->getSubImage(index, subImage);
        if (!result)
        {
            return result;
        }
        return this->setAttribute(processor, subImage);
    }
};
} // namespace detail

/// Gives each processor its sub-image.
template <class TProcessor, class TAttribute>
class SubImageSplit : public detail::PieceSplit<BaseSubImageSplit<typename TAttribute::StorageType>, TProcessor, TAttribute>
{
};

/// Cuts a 2D image into Y strips. TImage is BaseImage or const BaseImage, TStrip the strip class of that side.
template <class TImage, class TStrip>
class KOVISIMAGEPROCESSING_EXPORT BaseImageYStripSplit : public processor::BaseDynamicSplit
{
public:
    ~BaseImageYStripSplit() override;

    processor::eSplitDynamicType getSplitDynamicType() const override { return processor::eSDT_ImageStrip; }
    /// Makes the strip of these elements and gives it to the processor.
    BoolResult processAttribute(processor::BaseProcessor& processor, unsigned long begin, unsigned long end,
                                const core::BaseRequestOrigin& origin) override;
    virtual eImageStripSplitType getImageStripSplitType() const = 0;
    virtual BoolResult processAttribute(processor::BaseProcessor& processor, const boost::shared_ptr<TStrip>& strip) = 0;

protected:
    BaseImageYStripSplit();

    /// False, with a message, for an empty pointer, a GPU image, and an image that is not 2D.
    BoolResult initImage(const boost::shared_ptr<TImage>& image);

private:
    boost::shared_ptr<TImage> m_image;
};

extern template class KOVISIMAGEPROCESSING_EXPORT BaseImageYStripSplit<const image::BaseImage, image::InputImageYStripColor2d>;
extern template class KOVISIMAGEPROCESSING_EXPORT BaseImageYStripSplit<image::BaseImage, image::OutputImageYStripColor2d>;
extern template class KOVISIMAGEPROCESSING_EXPORT BaseImageYStripSplit<image::BaseImage, image::OutputImageYStrip2d>;

namespace detail
{
KOVISIMAGEPROCESSING_EXPORT BoolResult refuseBorder();
} // namespace detail

template <class TImage, class TStrip>
class BaseImageYStripColor2dSplit : public BaseImageYStripSplit<TImage, TStrip>
{
public:
    eImageStripSplitType getImageStripSplitType() const override { return eISST_YColor2d; }

    /// The flag asks for a border around strips, which this library has none of: it is refused with a message.
    BoolResult initBase(const boost::shared_ptr<TImage>& image, const eStripAllocationType&, const eStripParsingDirection&,
                        bool bBorder)
    {
        return bBorder ? detail::refuseBorder() : this->initImage(image);
    }
};

template <class TImage, class TStrip>
class BaseImageYStrip2dSplit : public BaseImageYStripSplit<TImage, TStrip>
{
public:
    eImageStripSplitType getImageStripSplitType() const override { return eISST_Y2d; }

    BoolResult initBase(const boost::shared_ptr<TImage>& image, const eStripAllocationType&, const eStripParsingDirection&,
                        const eStripParsingDirection&)
    {
        return this->initImage(image);
    }
};

namespace detail
{
template <class TImage>
using ColorStripOf = std::conditional_t<std::is_const_v<TImage>, image::InputImageYStripColor2d, image::OutputImageYStripColor2d>;
} // namespace detail

/// Gives each processor its strip of a colour image.
template <class TProcessor, class TImage, class TAttribute>
class ImageYStripColor2dSplit
    : public processor::detail::BoundSplit<BaseImageYStripColor2dSplit<TImage, detail::ColorStripOf<TImage>>, TProcessor,
                                           TAttribute>
{
public:
    using Strip = detail::ColorStripOf<TImage>;

    using BaseImageYStripColor2dSplit<TImage, Strip>::processAttribute;
    BoolResult processAttribute(processor::BaseProcessor& processor, const boost::shared_ptr<Strip>& strip) override
    {
        return this->setAttribute(processor, strip);
    }
};

/// Gives each processor its strip of a one-channel image.
template <class TProcessor, class TImage, class TAttribute>
class ImageYStrip2dSplit
    : public processor::detail::BoundSplit<BaseImageYStrip2dSplit<TImage, image::OutputImageYStrip2d>, TProcessor, TAttribute>
{
public:
    using BaseImageYStrip2dSplit<TImage, image::OutputImageYStrip2d>::processAttribute;
    BoolResult processAttribute(processor::BaseProcessor& processor,
                                const boost::shared_ptr<image::OutputImageYStrip2d>& strip) override
    {
        return this->setAttribute(processor, strip);
    }
};
} // namespace kovis::imaproc
