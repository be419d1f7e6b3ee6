#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace kovis::tool
{
/// Element type of a picture's samples.
enum class ElementType
{
    eI8,
    eU8,
    eI16,
    eU16,
    eI32,
    eU32,
    eF32
};

/// Bytes of one sample.
std::size_t getElementSize(ElementType type);

/// "i8", "u8", "i16", "u16", "i32", "u32", "f32".
const char* getElementName(ElementType type);

/// The type of that name, written in any case. Returns false, and leaves type alone, for another name.
bool parseElementName(const std::string& name, ElementType& type);

/// What a picture is, without its samples.
struct PictureShape
{
    std::size_t sizeX = 0;
    std::size_t sizeY = 0;
    std::size_t pages = 1;
    std::size_t channels = 1;
    ElementType type = ElementType::eU8;

    /// Samples of one plane: sizeX * sizeY. The shape must have passed checkShape.
    std::size_t getPlaneSamples() const { return sizeX * sizeY; }
    std::size_t getPlaneBytes() const { return getPlaneSamples() * getElementSize(type); }
    std::size_t getNbPlanes() const { return pages * channels; }
};

/// Bytes of all samples of a shape; false if the number does not fit in 63 bits.
bool computeTotalBytes(const PictureShape& shape, std::uint64_t& bytes);

/// Memory of one plane, zero at first. Pages that nothing writes cost no memory.
class PlaneMemory
{
public:
    /// Throws std::bad_alloc when the memory cannot be had.
    explicit PlaneMemory(std::size_t bytes);

    unsigned char* getData() { return m_data.get(); }
    const unsigned char* getData() const { return m_data.get(); }

private:
    struct Release
    {
        void operator()(unsigned char* data) const { std::free(data); }
    };
    std::unique_ptr<unsigned char, Release> m_data;
};

/// A picture in memory. A plane is a dense run of sizeX * sizeY samples of one channel of one page, row after row;
/// plane number page * channels + channel.
struct Picture
{
    PictureShape shape;
    std::vector<PlaneMemory> planes;

    std::string format;      ///< "TIFF", "PNG" or "JPEG"
    std::string description; ///< the file's own description, may be empty
    std::string note;        ///< something about the samples that the user should know, may be empty
    std::string doubt;       ///< why the channel count does not tell the colour space, empty where it does
    bool hasAlpha = false;   ///< the file says that the last channel is opacity

    /// Makes the planes of the shape. Throws std::bad_alloc.
    void allocate();

    template <class T>
    T* getPlane(std::size_t page, std::size_t channel)
    {
        return reinterpret_cast<T*>(planes[page * shape.channels + channel].getData());
    }
    template <class T>
    const T* getPlane(std::size_t page, std::size_t channel) const
    {
        return reinterpret_cast<const T*>(planes[page * shape.channels + channel].getData());
    }
};

/// A picture that somebody else holds, to be written: planes in the order of Picture.
struct PictureView
{
    PictureShape shape;
    std::vector<const void*> planes;
    std::string description; ///< stored in the file where the format has a place for it
    bool hasAlpha = false;   ///< the last channel is opacity
};

/// A view of a whole picture, valid as long as the picture is.
PictureView viewOf(const Picture& picture);
} // namespace kovis::tool
