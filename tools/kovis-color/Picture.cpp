#include "Picture.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <limits>
#include <new>

namespace kovis::tool
{
namespace
{
struct ElementEntry
{
    ElementType type;
    const char* name;
    std::size_t size;
};

constexpr std::array<ElementEntry, 7> g_elements = {{{ElementType::eI8, "i8", 1},
                                                     {ElementType::eU8, "u8", 1},
                                                     {ElementType::eI16, "i16", 2},
                                                     {ElementType::eU16, "u16", 2},
                                                     {ElementType::eI32, "i32", 4},
                                                     {ElementType::eU32, "u32", 4},
                                                     {ElementType::eF32, "f32", 4}}};

bool multiply(std::uint64_t factor, std::uint64_t& product)
{
    constexpr auto limit = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (factor != 0 && product > limit / factor)
        return false;
    product *= factor;
    return true;
}
} // namespace

std::size_t getElementSize(ElementType type)
{
    return g_elements[static_cast<std::size_t>(type)].size;
}

const char* getElementName(ElementType type)
{
    return g_elements[static_cast<std::size_t>(type)].name;
}

bool parseElementName(const std::string& name, ElementType& type)
{
    std::string lower = name;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    for (const ElementEntry& entry : g_elements)
    {
        if (lower == entry.name)
        {
            type = entry.type;
            return true;
        }
    }
    return false;
}

bool computeTotalBytes(const PictureShape& shape, std::uint64_t& bytes)
{
    std::uint64_t product = getElementSize(shape.type);
    if (!multiply(shape.sizeX, product) || !multiply(shape.sizeY, product) || !multiply(shape.pages, product) ||
        !multiply(shape.channels, product))
        return false;
    bytes = product;
    return true;
}

PlaneMemory::PlaneMemory(std::size_t bytes) : m_data(static_cast<unsigned char*>(std::calloc(bytes == 0 ? 1 : bytes, 1)))
{
    if (!m_data)
        throw std::bad_alloc();
}

void Picture::allocate()
{
    planes.clear();
    planes.reserve(shape.getNbPlanes());
    for (std::size_t plane = 0; plane < shape.getNbPlanes(); ++plane)
        planes.emplace_back(shape.getPlaneBytes());
}

PictureView viewOf(const Picture& picture)
{
    PictureView view;
    view.shape = picture.shape;
    view.description = picture.description;
    view.hasAlpha = picture.hasAlpha;
    for (const PlaneMemory& plane : picture.planes)
        view.planes.push_back(plane.getData());
    return view;
}
} // namespace kovis::tool
