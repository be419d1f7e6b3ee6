#include "KOVIS/KOVISImageProcessing/ImageSplit.h"

#include "KOVIS/KOVISImage/SubImageExtractor.h"
#include "KOVIS/KOVISImage/getFormatedName.h"
#include "KOVIS/KOVISImageProcessing/ImageProcessingMessages.h"

#include <boost/make_shared.hpp>

#include <limits>

namespace kovis::imaproc
{
namespace
{
BoolResult refuse(eImageSplitMessage::domain message, const std::string& attribute, const image::BaseImage& image)
{
    return BoolResult(false, imageProcessingText(message, attribute, image::getFormatedName(image, image::eFT_Short)));
}

// What every cut needs: an image whose planes can be read here.
BoolResult checkHostImage(const std::string& attribute, const image::BaseImage* pImage)
{
    if (pImage == nullptr)
    {
        return BoolResult(false, imageProcessingText(eImageSplitMessage::eISM_NullImage, attribute));
    }
    if (pImage->isGpuImage())
    {
        return refuse(eImageSplitMessage::eISM_GpuImage, attribute, *pImage);
    }
    return BoolResult(true);
}

// Number of planes or slices, 0 where it is too great for an index.
unsigned long countPieces(const image::BaseImage& image, bool bPlaneWise)
{
    unsigned long nbPieces = 1;
    for (const unsigned long size : {image.getSizeT(), image.getSizeZ(), bPlaneWise ? image.getSizeC() : 1UL})
    {
        if (size != 0 && nbPieces > std::numeric_limits<unsigned int>::max() / size)
        {
            return 0;
        }
        nbPieces *= size;
    }
    return nbPieces;
}
} // namespace

template <class TImagePtr>
BaseSubImageSplit<TImagePtr>::BaseSubImageSplit() = default;
template <class TImagePtr>
BaseSubImageSplit<TImagePtr>::~BaseSubImageSplit() = default;

template <class TImagePtr>
BoolResult BaseSubImageSplit<TImagePtr>::initBase(const eSubImageSplitType& splitType, const eVolumeParsingType& volumeParsing,
                                                  const eColorParsingType& colorParsing,
                                                  const eTemporalParsingType& temporalParsing, const TImagePtr& image)
{
    BoolResult result = checkHostImage(this->getAttributeName(), image.get());
    if (!result)
    {
        return result;
    }
    const bool bSlices = splitType == eSIST_Slices && colorParsing == eCPT_AllChannels;
    const bool bPlaneWise = splitType == eSIST_PlaneWise && colorParsing == eCPT_Channels;
    if (volumeParsing != eVPT_Slices || temporalParsing != eTPT_Steps || (!bSlices && !bPlaneWise))
    {
        return BoolResult(false, imageProcessingText(eImageSplitMessage::eISM_UnknownCut, this->getAttributeName(),
                                                     static_cast<int>(splitType), static_cast<int>(volumeParsing),
                                                     static_cast<int>(colorParsing), static_cast<int>(temporalParsing)));
    }
    const unsigned long nbPieces = countPieces(*image, bPlaneWise);
    if (nbPieces == 0)
    {
        return refuse(eImageSplitMessage::eISM_NoPieces, this->getAttributeName(), *image);
    }
    m_image = image;
    m_splitType = splitType;
    processor::ElementsLocationInfo location;
    location.insertNonLocalized(ElementsRange(0, nbPieces), 0);
    this->initBaseSplitted(location);
    return result;
}

template <class TImagePtr>
BoolResult BaseSubImageSplit<TImagePtr>::getSubImage(unsigned int index, TImagePtr& subImage) const
{
    if (m_image == nullptr)
    {
        return BoolResult(false, imageProcessingText(eImageSplitMessage::eISM_NotInitialised, this->getAttributeName()));
    }
    if (index >= this->getNbElements())
    {
        return BoolResult(false, imageProcessingText(eImageSplitMessage::eISM_IndexOutOfRange, index, this->getNbElements(),
                                                     this->getAttributeName()));
    }
    const unsigned long sizeZ = m_image->getSizeZ();
    if (m_splitType == eSIST_Slices)
    {
        return image::SubImageExtractor::extractSlice2d(*m_image, index % sizeZ, index / sizeZ, subImage);
    }
    const unsigned long sizeC = m_image->getSizeC();
    const unsigned long slice = index / sizeC;
    return image::SubImageExtractor::extractPlane2d(*m_image, index % sizeC, slice % sizeZ, slice / sizeZ, subImage);
}

template class BaseSubImageSplit<boost::shared_ptr<const image::BaseImage>>;
template class BaseSubImageSplit<boost::shared_ptr<image::BaseImage>>;

template <class TImage, class TStrip>
BaseImageYStripSplit<TImage, TStrip>::BaseImageYStripSplit() = default;
template <class TImage, class TStrip>
BaseImageYStripSplit<TImage, TStrip>::~BaseImageYStripSplit() = default;

template <class TImage, class TStrip>
BoolResult BaseImageYStripSplit<TImage, TStrip>::initImage(const boost::shared_ptr<TImage>& image)
{
    BoolResult result = checkHostImage(this->getAttributeName(), image.get());
    if (!result)
    {
        return result;
    }
    if (image->getSizeZ() != 1 || image->getSizeT() != 1)
    {
        return refuse(eImageSplitMessage::eISM_Not2d, this->getAttributeName(), *image);
    }
    if (std::is_same_v<TStrip, image::OutputImageYStrip2d> && image->getSizeC() != 1)
    {
        return refuse(eImageSplitMessage::eISM_NotOneChannel, this->getAttributeName(), *image);
    }
    m_image = image;
    processor::ElementsLocationInfo location;
    location.insertNonLocalized(ElementsRange(0, image->getSizeX() * image->getSizeY()), 0);
    this->initDynamic(location, image->getSizeX(), image->getSizeC() * image::getElementSize(image->getBufferType()));
    return result;
}

template <class TImage, class TStrip>
BoolResult BaseImageYStripSplit<TImage, TStrip>::processAttribute(processor::BaseProcessor& processor, unsigned long begin,
                                                                  unsigned long end, const core::BaseRequestOrigin&)
{
    if (m_image == nullptr)
    {
        return BoolResult(false, imageProcessingText(eImageSplitMessage::eISM_NotInitialised, this->getAttributeName()));
    }
    return processAttribute(processor,
                            boost::make_shared<TStrip>(m_image, ElementsRange(begin, end), image::eStripElements::wholeBlocks));
}

template class BaseImageYStripSplit<const image::BaseImage, image::InputImageYStripColor2d>;
template class BaseImageYStripSplit<image::BaseImage, image::OutputImageYStripColor2d>;
template class BaseImageYStripSplit<image::BaseImage, image::OutputImageYStrip2d>;

BoolResult detail::refuseBorder()
{
    return BoolResult(false, imageProcessingText(eImageSplitMessage::eISM_Border));
}
} // namespace kovis::imaproc
