#include "KOVIS/KOVISImage/ImageStrip.h"

#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISImage/ImageSizes.h"
#include "KOVIS/KOVISImage/KOVISImageLogMessages.h"
#include "KOVIS/KOVISImage/getFormatedName.h"
#include "KOVIS/KOVISImage/getHostImage.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>

namespace kovis::image
{
namespace
{
constexpr std::size_t g_stagingAlignment = 64;

SourcePlace getConstructorPlace(unsigned int line)
{
    return {"kovis::image::BaseImageYStrip::BaseImageYStrip(const boost::shared_ptr<const kovis::image::BaseImage>&, const "
            "kovis::ElementsRange&, kovis::image::eStripElements)",
            "KOVIS/KOVISImage/ImageStrip.cpp", line};
}

void check2d(const BaseImage& image, const SourcePlace& place)
{
    if (image.getSizeZ() != 1 || image.getSizeT() != 1)
    {
        throwImageMessage(eImageMessage::eIM_Not2d, place, getFormatedName(image, eFT_Short));
    }
}

// Whole rows keep the image's width; any other run of elements is one row.
HomogeneousImageGeometry makeStripGeometry(const BaseImage* pImage, const ElementsRange& range)
{
    const HostImage& image = detail::getHostImage(pImage, getConstructorPlace(__LINE__));
    check2d(image, getConstructorPlace(__LINE__));
    const unsigned long sizeX = image.getSizeX();
    if (range.getEnd() > sizeX * image.getSizeY())
    {
        throwImageMessage(eImageMessage::eIM_ElementsOutOfRange, getConstructorPlace(__LINE__), range.getBegin(), range.getEnd(),
                          sizeX * image.getSizeY());
    }
    const bool bWholeRows = range.getBegin() % sizeX == 0 && range.getEnd() % sizeX == 0;
    HomogeneousImageGeometry geometry;
    geometry.init(VolumeGeometry(), image.getGeometry().getColorGeometry(), TemporalGeometry(),
                  bWholeRows ? sizeX : range.getSize(), bWholeRows ? range.getSize() / sizeX : 1, image.getBufferType());
    return geometry;
}

unsigned char* alignStaging(unsigned char* pStaging)
{
    const auto address = reinterpret_cast<std::uintptr_t>(pStaging);
    return pStaging + (g_stagingAlignment - address % g_stagingAlignment) % g_stagingAlignment;
}

std::unique_ptr<unsigned char[]> allocateStaging(std::size_t nbBytes)
{
    try
    {
        return std::unique_ptr<unsigned char[]>(new unsigned char[nbBytes + g_stagingAlignment - 1]);
    }
    catch (const std::bad_alloc&)
    {
        throwImageMessage(eImageMessage::eIM_StripNoMemory, getConstructorPlace(__LINE__), nbBytes);
    }
}

unsigned char* getElement(const ImagePlane& plane, unsigned long element, std::size_t elementSize)
{
    return static_cast<unsigned char*>(plane.m_pData) + element * elementSize;
}

template <class TStrip, class TImage>
boost::shared_ptr<TStrip> makeStrip(const boost::shared_ptr<TImage>& image, unsigned long firstRow, unsigned long nbRows,
                                    const SourcePlace& place)
{
    (void)detail::getHostImage(image.get(), place);
    check2d(*image, place);
    const unsigned long sizeY = image->getSizeY();
    if (nbRows == 0 || firstRow >= sizeY || nbRows > sizeY - firstRow)
    {
        throwImageMessage(eImageMessage::eIM_RowsOutOfRange, place, firstRow, nbRows, sizeY);
    }
    const unsigned long sizeX = image->getSizeX();
    return boost::make_shared<TStrip>(image, ElementsRange(firstRow * sizeX, (firstRow + nbRows) * sizeX), eStripElements::exact);
}
} // namespace

BaseImageFragment::~BaseImageFragment() = default;

BaseImageYStrip::BaseImageYStrip(const boost::shared_ptr<const BaseImage>& image, const ElementsRange& range,
                                 eStripElements elements)
    : BaseImageFragment(makeStripGeometry(image.get(), range)), m_image(image)
{
    const unsigned long nbPlaneElements = image->getSizeX() * image->getSizeY();
    if (elements == eStripElements::exact)
    {
        m_firstElement = range.getBegin();
        m_nbExactElements = range.getSize();
        m_nbElements = detail::roundUpToBlocks(range.getSize());
    }
    else
    {
        m_firstElement = detail::roundUpToBlocks(range.getBegin());
        m_nbElements = detail::roundUpToBlocks(range.getEnd()) - m_firstElement;
        m_nbExactElements = m_nbElements == 0 ? 0 : std::min(m_firstElement + m_nbElements, nbPlaneElements) - m_firstElement;
    }
    bindPlanes();
}

BaseImageYStrip::~BaseImageYStrip() = default;

void BaseImageYStrip::bindPlanes()
{
    const HostImage& image = detail::getHostImage(*m_image, getConstructorPlace(__LINE__));
    const unsigned long nbPlaneElements = image.getSizeX() * image.getSizeY();
    const unsigned long exactEnd = m_firstElement + m_nbExactElements;
    const unsigned long end = m_firstElement + m_nbElements;
    const std::size_t elementSize = getElementSize(image.getBufferType());

    m_planes.resize(image.getSizeC());
    m_staging.resize(image.getSizeC());
    for (unsigned long c = 0; c < image.getSizeC(); ++c)
    {
        const ImagePlane& plane = image.getPlane(c, 0, 0);
        // An empty strip may begin past the plane's end: it has no element to point at.
        const unsigned long first = m_nbElements == 0 ? 0 : m_firstElement;
        const bool bFits = end == exactEnd || (exactEnd == nbPlaneElements && end - nbPlaneElements <= plane.m_nbRoom);
        if (bFits)
        {
            image.prepareElements(c, 0, 0, first, first + m_nbElements);
            m_planes[c] = getElement(plane, first, elementSize);
            continue;
        }
        m_staging[c] = allocateStaging(m_nbElements * elementSize);
        unsigned char* const pStaging = alignStaging(m_staging[c].get());
        image.prepareElements(c, 0, 0, m_firstElement, exactEnd);
        std::memcpy(pStaging, getElement(plane, m_firstElement, elementSize), m_nbExactElements * elementSize);
        std::memset(pStaging + m_nbExactElements * elementSize, 0, (m_nbElements - m_nbExactElements) * elementSize);
        m_planes[c] = pStaging;
    }
}

void BaseImageYStrip::checkChannel(unsigned long channel, const char* function, unsigned int line) const
{
    if (channel >= m_planes.size())
    {
        throwImageMessage(eImageMessage::eIM_IndexOutOfRange, {function, "KOVIS/KOVISImage/ImageStrip.cpp", line}, "channel",
                          channel, m_planes.size());
    }
}

const void* BaseImageYStrip::getSourceAddress(unsigned long channel) const
{
    checkChannel(channel, "const void* kovis::image::BaseImageYStrip::getSourceAddress(unsigned long) const", __LINE__);
    if (m_staging[channel] == nullptr)
    {
        return m_planes[channel];
    }
    const HostImage& image = detail::getHostImage(*m_image, getConstructorPlace(__LINE__));
    return getElement(image.getPlane(channel, 0, 0), m_firstElement, getElementSize(image.getBufferType()));
}

void* BaseImageYStrip::getPlaneAddress(unsigned long channel) const
{
    checkChannel(channel, "void* kovis::image::BaseImageYStrip::getPlaneAddress(unsigned long) const", __LINE__);
    return m_planes[channel];
}

void BaseImageYStrip::commitPlanes()
{
    const HostImage& image = detail::getHostImage(*m_image, getConstructorPlace(__LINE__));
    const std::size_t elementSize = getElementSize(image.getBufferType());
    for (unsigned long c = 0; c < m_planes.size(); ++c)
    {
        if (m_staging[c] != nullptr)
        {
            std::memcpy(getElement(image.getPlane(c, 0, 0), m_firstElement, elementSize), m_planes[c],
                        m_nbExactElements * elementSize);
        }
    }
}

BaseImageYStripColor2d::~BaseImageYStripColor2d() = default;

InputImageYStripColor2d::InputImageYStripColor2d(const boost::shared_ptr<const BaseImage>& image, const ElementsRange& range,
                                                 eStripElements elements)
    : BaseImageYStripColor2d(image, range, elements)
{
}

InputImageYStripColor2d::~InputImageYStripColor2d() = default;

OutputImageYStripColor2d::OutputImageYStripColor2d(const boost::shared_ptr<BaseImage>& image, const ElementsRange& range,
                                                   eStripElements elements)
    : BaseImageYStripColor2d(image, range, elements)
{
}

OutputImageYStripColor2d::~OutputImageYStripColor2d() = default;

OutputImageYStrip2d::OutputImageYStrip2d(const boost::shared_ptr<BaseImage>& image, const ElementsRange& range,
                                         eStripElements elements)
    : BaseImageYStrip(image, range, elements)
{
    if (image->getSizeC() != 1)
    {
        throwImageMessage(
            eImageMessage::eIM_NotOneChannel,
            {"kovis::image::OutputImageYStrip2d::OutputImageYStrip2d(const boost::shared_ptr<kovis::image::BaseImage>&, "
             "const kovis::ElementsRange&, kovis::image::eStripElements)",
             "KOVIS/KOVISImage/ImageStrip.cpp", __LINE__},
            getFormatedName(*image, eFT_Short));
    }
}

OutputImageYStrip2d::~OutputImageYStrip2d() = default;

boost::shared_ptr<InputImageYStripColor2d> makeInputStrip(const boost::shared_ptr<const BaseImage>& image, unsigned long firstRow,
                                                          unsigned long nbRows)
{
    return makeStrip<InputImageYStripColor2d>(
        image, firstRow, nbRows,
        {"boost::shared_ptr<kovis::image::InputImageYStripColor2d> kovis::image::makeInputStrip(const "
         "boost::shared_ptr<const kovis::image::BaseImage>&, unsigned long, unsigned long)",
         "KOVIS/KOVISImage/ImageStrip.cpp", __LINE__});
}

boost::shared_ptr<OutputImageYStripColor2d> makeOutputStrip(const boost::shared_ptr<BaseImage>& image, unsigned long firstRow,
                                                            unsigned long nbRows)
{
    return makeStrip<OutputImageYStripColor2d>(
        image, firstRow, nbRows,
        {"boost::shared_ptr<kovis::image::OutputImageYStripColor2d> "
         "kovis::image::makeOutputStrip(const boost::shared_ptr<kovis::image::BaseImage>&, unsigned "
         "long, unsigned long)",
         "KOVIS/KOVISImage/ImageStrip.cpp", __LINE__});
}
} // namespace kovis::image
