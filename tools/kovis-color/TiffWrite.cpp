#include "Interleave.h"
#include "TiffFile.h"
#include "TiffHandle.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace kovis::tool
{
namespace
{
constexpr std::size_t g_stripBytes = std::size_t{1} << 20;

class TiffWriter
{
public:
    TiffWriter(const std::string& path, int descriptor, const PictureView& picture)
        : m_path(path), m_descriptor(descriptor), m_picture(picture)
    {
    }

    void run();

private:
    void check(bool bGood) const
    {
        if (!bGood || !m_messages.error.empty())
            throw ToolError(m_path, "could not be written (" + m_messages.error + ")", "see that the disk has room");
    }

    template <class T>
    void set(ttag_t tag, T value)
    {
        check(TIFFSetField(m_tiff.get(), tag, value) == 1);
    }

    void setFields(std::size_t page, std::size_t rowsPerStrip);
    void setColours();
    void writePage(std::size_t page);

    std::string m_path;
    int m_descriptor;
    const PictureView& m_picture;
    TiffMessages m_messages;
    TiffHandle m_tiff;
};

void TiffWriter::setColours()
{
    const std::size_t channels = m_picture.shape.channels;
    const bool bRgb = channels == 3 || channels == 4;
    set(TIFFTAG_PHOTOMETRIC, bRgb ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK);
    const std::size_t nbExtra = channels - (bRgb ? 3 : 1);
    if (nbExtra == 0)
        return;
    std::vector<std::uint16_t> extra(nbExtra, static_cast<std::uint16_t>(EXTRASAMPLE_UNSPECIFIED));
    if (m_picture.hasAlpha)
        extra.back() = EXTRASAMPLE_UNASSALPHA;
    check(TIFFSetField(m_tiff.get(), TIFFTAG_EXTRASAMPLES, static_cast<int>(nbExtra), extra.data()) == 1);
}

void TiffWriter::setFields(std::size_t page, std::size_t rowsPerStrip)
{
    const PictureShape& shape = m_picture.shape;
    set(TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(shape.sizeX));
    set(TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(shape.sizeY));
    set(TIFFTAG_SAMPLESPERPIXEL, static_cast<int>(shape.channels));
    set(TIFFTAG_BITSPERSAMPLE, static_cast<int>(8 * getElementSize(shape.type)));
    const bool bSigned = shape.type == ElementType::eI8 || shape.type == ElementType::eI16 || shape.type == ElementType::eI32;
    const int sampleFormat =
        shape.type == ElementType::eF32 ? SAMPLEFORMAT_IEEEFP : (bSigned ? SAMPLEFORMAT_INT : SAMPLEFORMAT_UINT);
    set(TIFFTAG_SAMPLEFORMAT, sampleFormat);
    set(TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    set(TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    set(TIFFTAG_ROWSPERSTRIP, static_cast<std::uint32_t>(rowsPerStrip));
    set(TIFFTAG_SOFTWARE, "kovis-color");
    if (!m_picture.description.empty())
        set(TIFFTAG_IMAGEDESCRIPTION, m_picture.description.c_str());
    setColours();
    if (shape.pages > 1)
    {
        set(TIFFTAG_SUBFILETYPE, static_cast<std::uint32_t>(FILETYPE_PAGE));
        // The field has 16 bits; further pages go without a number.
        if (shape.pages <= std::numeric_limits<std::uint16_t>::max())
            check(TIFFSetField(m_tiff.get(), TIFFTAG_PAGENUMBER, static_cast<int>(page), static_cast<int>(shape.pages)) == 1);
    }
}

void TiffWriter::writePage(std::size_t page)
{
    const PictureShape& shape = m_picture.shape;
    const std::size_t elementSize = getElementSize(shape.type);
    const std::size_t rowBytes = shape.sizeX * shape.channels * elementSize;
    const std::size_t rowsPerStrip = std::clamp<std::size_t>(g_stripBytes / rowBytes, 1, shape.sizeY);
    setFields(page, rowsPerStrip);

    std::vector<unsigned char> buffer(rowBytes * rowsPerStrip);
    std::uint32_t strip = 0;
    for (std::size_t row = 0; row < shape.sizeY; row += rowsPerStrip)
    {
        const std::size_t nbRows = std::min(rowsPerStrip, shape.sizeY - row);
        gatherPixels(&m_picture.planes[page * shape.channels], row * shape.sizeX, nbRows * shape.sizeX, shape.channels,
                     elementSize, buffer.data());
        const auto nbBytes = static_cast<tmsize_t>(rowBytes * nbRows);
        check(TIFFWriteEncodedStrip(m_tiff.get(), strip++, buffer.data(), nbBytes) == nbBytes);
    }
    check(TIFFWriteDirectory(m_tiff.get()) == 1);
}

void TiffWriter::run()
{
    std::uint64_t bytes = 0;
    constexpr std::uint64_t limit = std::numeric_limits<std::uint32_t>::max();
    const PictureShape& shape = m_picture.shape;
    if (!computeTotalBytes(shape, bytes) || shape.sizeX > limit || shape.sizeY > limit)
        throw ToolError(m_path, "is too large for a TIFF file", "cut the picture into parts");
    // Offsets of the classic form have 32 bits; a page's directory is below 4 KiB and 8 bytes a strip.
    const std::uint64_t directories = shape.pages * (4096 + 8 * (shape.sizeY + 2 * shape.channels));
    const bool bBig = bytes + directories > limit;
    m_tiff = openTiff(m_descriptor, m_path, bBig ? "w8" : "w", bytes + directories + (std::uint64_t{1} << 26), m_messages);
    check(m_tiff != nullptr);
    for (std::size_t page = 0; page < shape.pages; ++page)
        writePage(page);
    check(TIFFFlush(m_tiff.get()) == 1);
    m_tiff.reset();
    check(true);
}
} // namespace

void writeTiff(const std::string& path, int descriptor, const PictureView& picture)
{
    TiffWriter(path, descriptor, picture).run();
}
} // namespace kovis::tool
