#include "LibraryImage.h"

#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISImage/ImageGeometry.h"

#include <vector>

namespace kovis::tool
{
namespace
{
image::HomogeneousImageGeometry makeGeometry(const PictureShape& shape, image::eColorGeometryType space, std::size_t channels,
                                             ElementType type)
{
    image::ColorGeometry colours;
    if (space == image::eCGT_User)
        colours.initUser(channels);
    else
        colours.init(space);
    image::HomogeneousImageGeometry geometry;
    geometry.init(image::VolumeGeometry(shape.pages), colours, image::TemporalGeometry(), shape.sizeX, shape.sizeY,
                  toBufferType(type));
    return geometry;
}

template <class T>
const void* getPlane(const image::BaseImage& image, unsigned long channel, unsigned long page)
{
    return image::planeData<T>(image, channel, page);
}

const void* getPlane(const image::BaseImage& image, ElementType type, unsigned long channel, unsigned long page)
{
    switch (type)
    {
    case ElementType::eI8:
        return getPlane<signed char>(image, channel, page);
    case ElementType::eU8:
        return getPlane<unsigned char>(image, channel, page);
    case ElementType::eI16:
        return getPlane<short>(image, channel, page);
    case ElementType::eU16:
        return getPlane<unsigned short>(image, channel, page);
    case ElementType::eI32:
        return getPlane<int>(image, channel, page);
    case ElementType::eU32:
        return getPlane<unsigned int>(image, channel, page);
    case ElementType::eF32:
        break;
    }
    return getPlane<float>(image, channel, page);
}
} // namespace

image::eImageBufferType toBufferType(ElementType type)
{
    switch (type)
    {
    case ElementType::eI8:
        return image::eIBT_Int8;
    case ElementType::eU8:
        return image::eIBT_UInt8;
    case ElementType::eI16:
        return image::eIBT_Int16;
    case ElementType::eU16:
        return image::eIBT_UInt16;
    case ElementType::eI32:
        return image::eIBT_Int32;
    case ElementType::eU32:
        return image::eIBT_UInt32;
    case ElementType::eF32:
        break;
    }
    return image::eIBT_Real;
}

ElementType toElementType(image::eImageBufferType type)
{
    for (const ElementType candidate :
         {ElementType::eI8, ElementType::eU8, ElementType::eI16, ElementType::eU16, ElementType::eI32, ElementType::eU32})
    {
        if (toBufferType(candidate) == type)
            return candidate;
    }
    return ElementType::eF32;
}

boost::shared_ptr<const image::BaseImage> wrapPicture(const boost::shared_ptr<Picture>& picture, image::eColorGeometryType space)
{
    std::vector<void*> planes;
    for (PlaneMemory& plane : picture->planes)
        planes.push_back(plane.getData());
    const PictureShape& shape = picture->shape;
    return image::wrapImage(makeGeometry(shape, space, shape.channels, shape.type), planes, picture);
}

boost::shared_ptr<image::BaseImage> createResult(const PictureShape& shape, image::eColorGeometryType space, std::size_t channels,
                                                 ElementType type)
{
    return image::createImage(makeGeometry(shape, space, channels, type));
}

PictureView viewOf(const image::BaseImage& image)
{
    PictureView view;
    view.shape.sizeX = image.getSizeX();
    view.shape.sizeY = image.getSizeY();
    view.shape.pages = image.getSizeZ();
    view.shape.channels = image.getSizeC();
    view.shape.type = toElementType(image.getBufferType());
    view.hasAlpha = image.getColorGeometryType() == image::eCGT_Rgba;
    for (unsigned long page = 0; page < image.getSizeZ(); ++page)
    {
        for (unsigned long channel = 0; channel < image.getSizeC(); ++channel)
            view.planes.push_back(getPlane(image, view.shape.type, channel, page));
    }
    return view;
}
} // namespace kovis::tool
