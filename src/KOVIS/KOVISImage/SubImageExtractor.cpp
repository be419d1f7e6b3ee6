#include "KOVIS/KOVISImage/SubImageExtractor.h"

#include "KOVIS/KOVISImage/HostImage.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISImage/KOVISImageLogMessages.h"
#include "KOVIS/KOVISImage/getFormatedName.h"
#include "KOVIS/KOVISImage/getHostImage.h"

#include <boost/make_shared.hpp>

#include <string>
#include <utility>
#include <vector>

namespace kovis::image
{
namespace
{
const char* const g_file = "KOVIS/KOVISImage/SubImageExtractor.cpp";

BoolResult checkIndex(const char* name, unsigned long index, unsigned long size)
{
    return index < size ? BoolResult(true)
                        : BoolResult(false, formatImageMessage(eImageMessage::eIM_IndexOutOfRange, name, index, size));
}

BoolResult checkViewGeometry(const BaseImage& image, const BaseImageGeometry& geometry)
{
    if (geometry.getSizeX() != image.getSizeX() || geometry.getSizeY() != image.getSizeY() ||
        geometry.getSizeZ() != image.getSizeZ() || geometry.getSizeT() != image.getSizeT() ||
        geometry.getSizeC() != image.getSizeC())
    {
        const std::string sizes = std::to_string(geometry.getSizeX()) + " x " + std::to_string(geometry.getSizeY()) + " x " +
                                  std::to_string(geometry.getSizeZ()) + ", " + std::to_string(geometry.getSizeT()) +
                                  " time steps, " + std::to_string(geometry.getSizeC()) + " channels";
        return BoolResult(false, formatImageMessage(eImageMessage::eIM_ViewSize, getFormatedName(image, eFT_Short), sizes));
    }
    if (geometry.getBufferType() != image.getBufferType())
    {
        return BoolResult(false, formatImageMessage(eImageMessage::eIM_ViewBufferType, static_cast<int>(image.getBufferType()),
                                                    static_cast<int>(geometry.getBufferType())));
    }
    return BoolResult(true);
}

// A view of the channels [firstC, firstC + color.getSizeC()) at one Z and T; the indices are good.
template <class TImage>
boost::shared_ptr<TImage> makeView2d(const HostImage& image, const ColorGeometry& color, unsigned long firstC, unsigned long z,
                                     unsigned long t)
{
    HomogeneousImageGeometry geometry;
    geometry.init(VolumeGeometry(), color, TemporalGeometry(), image.getSizeX(), image.getSizeY(), image.getBufferType());
    std::vector<ImagePlane> planes;
    for (unsigned long c = 0; c < color.getSizeC(); ++c)
    {
        planes.push_back(image.getPlane(firstC + c, z, t));
    }
    return boost::make_shared<HostImage>(geometry, std::move(planes));
}

template <class TImage>
boost::shared_ptr<TImage> getSlice2dOf(const boost::shared_ptr<TImage>& image, unsigned long z, unsigned long t,
                                       const SourcePlace& place)
{
    const HostImage& hostImage = detail::getHostImage(image.get(), place);
    if (z >= image->getSizeZ())
    {
        throwImageMessage(eImageMessage::eIM_IndexOutOfRange, place, "slice", z, image->getSizeZ());
    }
    if (t >= image->getSizeT())
    {
        throwImageMessage(eImageMessage::eIM_IndexOutOfRange, place, "time step", t, image->getSizeT());
    }
    return makeView2d<TImage>(hostImage, image->getGeometry().getColorGeometry(), 0, z, t);
}
} // namespace

template <class TImage>
ProcessingResult<bool> SubImageExtractor::reInterpretImageData(TImage& image, const BaseImageGeometry& geometry,
                                                               boost::shared_ptr<TImage>& view)
{
    BoolResult result;
    const HostImage* const pImage = detail::findHostImage(image, result);
    if (pImage == nullptr)
    {
        return result;
    }
    result = checkViewGeometry(image, geometry);
    if (!result)
    {
        return result;
    }
    std::vector<ImagePlane> planes;
    for (unsigned long t = 0; t < image.getSizeT(); ++t)
    {
        for (unsigned long z = 0; z < image.getSizeZ(); ++z)
        {
            for (unsigned long c = 0; c < image.getSizeC(); ++c)
            {
                planes.push_back(pImage->getPlane(c, z, t));
            }
        }
    }
    view = boost::make_shared<HostImage>(geometry, std::move(planes));
    return result;
}

template <class TImage>
ProcessingResult<bool> SubImageExtractor::extractSlice2d(TImage& image, unsigned long z, unsigned long t,
                                                         boost::shared_ptr<TImage>& view)
{
    BoolResult result;
    const HostImage* const pImage = detail::findHostImage(image, result);
    if (pImage == nullptr || !(result = checkIndex("slice", z, image.getSizeZ())) ||
        !(result = checkIndex("time step", t, image.getSizeT())))
    {
        return result;
    }
    view = makeView2d<TImage>(*pImage, image.getGeometry().getColorGeometry(), 0, z, t);
    return result;
}

template <class TImage>
ProcessingResult<bool> SubImageExtractor::extractPlane2d(TImage& image, unsigned long c, unsigned long z, unsigned long t,
                                                         boost::shared_ptr<TImage>& view)
{
    BoolResult result;
    const HostImage* const pImage = detail::findHostImage(image, result);
    if (pImage == nullptr || !(result = checkIndex("channel", c, image.getSizeC())) ||
        !(result = checkIndex("slice", z, image.getSizeZ())) || !(result = checkIndex("time step", t, image.getSizeT())))
    {
        return result;
    }
    view = makeView2d<TImage>(*pImage, geometryGrey(), c, z, t);
    return result;
}

#define KOVIS_SUB_IMAGE_EXTRACTOR(IMAGE)                                                                                         \
    template ProcessingResult<bool> SubImageExtractor::reInterpretImageData(IMAGE&, const BaseImageGeometry&,                    \
                                                                            boost::shared_ptr<IMAGE>&);                          \
    template ProcessingResult<bool> SubImageExtractor::extractSlice2d(IMAGE&, unsigned long, unsigned long,                      \
                                                                      boost::shared_ptr<IMAGE>&);                                \
    template ProcessingResult<bool> SubImageExtractor::extractPlane2d(IMAGE&, unsigned long, unsigned long, unsigned long,       \
                                                                      boost::shared_ptr<IMAGE>&);

KOVIS_SUB_IMAGE_EXTRACTOR(BaseImage)
KOVIS_SUB_IMAGE_EXTRACTOR(const BaseImage)

boost::shared_ptr<BaseImage> getSlice2d(const boost::shared_ptr<BaseImage>& image, unsigned long z, unsigned long t)
{
    return getSlice2dOf(image, z, t,
                        {"boost::shared_ptr<kovis::image::BaseImage> kovis::image::getSlice2d(const "
                         "boost::shared_ptr<kovis::image::BaseImage>&, unsigned long, unsigned long)",
                         g_file, __LINE__});
}

boost::shared_ptr<const BaseImage> getSlice2d(const boost::shared_ptr<const BaseImage>& image, unsigned long z, unsigned long t)
{
    return getSlice2dOf(
        image, z, t,
        {"boost::shared_ptr<const kovis::image::BaseImage> kovis::image::getSlice2d(const boost::shared_ptr<const "
         "kovis::image::BaseImage>&, unsigned long, unsigned long)",
         g_file, __LINE__});
}
} // namespace kovis::image
