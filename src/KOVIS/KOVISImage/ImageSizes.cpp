#include "KOVIS/KOVISImage/ImageSizes.h"

#include "KOVIS/KOVISImage/KOVISImageLogMessages.h"

#include <cstdint>

namespace kovis::image::detail
{
namespace
{
// What a plane costs beside its elements: its entry in the image and its memory's administration.
constexpr std::size_t g_nbPlaneExtraBytes = 256;

void checkNotZero(const BaseImageGeometry& geometry, const SourcePlace& place)
{
    const auto check = [&place](unsigned long size, const char* name)
    {
        if (size == 0)
        {
            throwImageMessage(eImageMessage::eIM_ZeroSize, place, name);
        }
    };
    check(geometry.getSizeX(), "size in X");
    check(geometry.getSizeY(), "size in Y");
    check(geometry.getSizeZ(), "number of slices");
    check(geometry.getSizeT(), "number of time steps");
    if (geometry.getSizeC() == 0 && geometry.getColorGeometry().getColorGeometryType() == eCGT_User)
    {
        throwImageMessage(eImageMessage::eIM_UserChannelsMissing, place);
    }
    check(geometry.getSizeC(), "number of channels");
}

class Product
{
public:
    explicit Product(std::size_t value) : m_value(value) {}

    Product& times(std::size_t factor)
    {
        m_bOverflow |= __builtin_mul_overflow(m_value, factor, &m_value);
        return *this;
    }
    Product& plus(std::size_t summand)
    {
        m_bOverflow |= __builtin_add_overflow(m_value, summand, &m_value);
        return *this;
    }
    std::size_t get(bool& bOverflow) const
    {
        bOverflow |= m_bOverflow;
        return m_value;
    }

private:
    std::size_t m_value;
    bool m_bOverflow = false;
};
} // namespace

ImageSizes getImageSizes(const BaseImageGeometry& geometry, const SourcePlace& place)
{
    checkNotZero(geometry, place);
    const std::size_t elementSize = getElementSize(geometry.getBufferType());
    if (elementSize == 0)
    {
        throwImageMessage(eImageMessage::eIM_BufferType, place, static_cast<int>(geometry.getBufferType()));
    }

    bool bOverflow = false;
    ImageSizes sizes{};
    sizes.m_nbPlanes = Product(geometry.getSizeC()).times(geometry.getSizeZ()).times(geometry.getSizeT()).get(bOverflow);
    sizes.m_nbPlaneElements = Product(geometry.getSizeX()).times(geometry.getSizeY()).get(bOverflow);
    sizes.m_nbPlaneBytes = Product(sizes.m_nbPlaneElements).plus(g_nbRoomElements).times(elementSize).get(bOverflow);
    sizes.m_nbBytes = Product(sizes.m_nbPlaneBytes).plus(g_nbPlaneExtraBytes).times(sizes.m_nbPlanes).get(bOverflow);
    if (bOverflow || sizes.m_nbBytes > static_cast<std::size_t>(PTRDIFF_MAX))
    {
        throwImageMessage(eImageMessage::eIM_SizeOverflow, place, geometry.getSizeX(), geometry.getSizeY(), geometry.getSizeZ(),
                          geometry.getSizeC(), geometry.getSizeT(), getElementTypeName(geometry.getBufferType()));
    }
    return sizes;
}
} // namespace kovis::image::detail
