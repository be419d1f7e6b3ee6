#include "TiffFile.h"

#include "Interleave.h"
#include "TiffHandle.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace kovis::tool
{
namespace
{
/// How the samples of one page lie in the file.
struct PageLayout
{
    toff_t offset = 0;
    PictureShape shape;
    std::uint16_t compression = COMPRESSION_NONE;
    std::uint16_t photometric = PHOTOMETRIC_MINISBLACK;
    std::uint16_t planar = PLANARCONFIG_CONTIG;
    std::uint32_t blockX = 0; ///< a tile's width; for strips the page's
    std::uint32_t blockY = 0;
    bool bTiled = false;
    bool bReduced = false;
    bool bAlpha = false;
};

/// The most that a byte of the file can grow to, by the coding's own rules; 0 where the coding sets no bound.
std::uint64_t getMaxExpansion(std::uint16_t compression)
{
    switch (compression)
    {
    case COMPRESSION_NONE:
        return 1;
    case COMPRESSION_PACKBITS:
        return 128;
    case COMPRESSION_DEFLATE:
    case COMPRESSION_ADOBE_DEFLATE:
        return 1100;
    case COMPRESSION_LZW:
        return 4096;
    case COMPRESSION_JPEG:
        return 2100;
    default:
        return 0;
    }
}

class TiffReader
{
public:
    explicit TiffReader(const InputFile& file) : m_file(file) {}

    Picture run();

private:
    [[noreturn]] void refuse(const std::string& whatIsWrong, const std::string& whatToDo) const
    {
        throw ToolError(m_file.getPath(), whatIsWrong, whatToDo);
    }

    std::uint32_t getField(ttag_t tag, const char* name) const;
    std::uint16_t getShort(ttag_t tag) const;
    ElementType getElementType() const;
    void checkCoding(const PageLayout& layout) const;
    void checkBlocks(const PageLayout& layout) const;
    PageLayout inspectPage();
    std::vector<PageLayout> inspectPages();
    void describe(const PageLayout& layout, Picture& picture) const;
    void readPage(const PageLayout& layout, std::size_t page, Picture& picture);
    void readBlock(const PageLayout& layout, std::uint32_t block, std::size_t nbBytes, void* target);
    void invert(Picture& picture) const;

    const InputFile& m_file;
    TiffMessages m_messages;
    TiffHandle m_tiff;
};

std::uint32_t TiffReader::getField(ttag_t tag, const char* name) const
{
    std::uint32_t value = 0;
    if (TIFFGetField(m_tiff.get(), tag, &value) != 1)
        throw m_file.makeDamageError(std::string("no ") + name);
    return value;
}

std::uint16_t TiffReader::getShort(ttag_t tag) const
{
    std::uint16_t value = 0;
    TIFFGetFieldDefaulted(m_tiff.get(), tag, &value);
    return value;
}

ElementType TiffReader::getElementType() const
{
    const std::uint16_t bits = getShort(TIFFTAG_BITSPERSAMPLE);
    const std::uint16_t format = getShort(TIFFTAG_SAMPLEFORMAT);
    const bool bSigned = format == SAMPLEFORMAT_INT;
    if (format == SAMPLEFORMAT_UINT || format == SAMPLEFORMAT_INT || format == SAMPLEFORMAT_VOID)
    {
        if (bits == 8)
            return bSigned ? ElementType::eI8 : ElementType::eU8;
        if (bits == 16)
            return bSigned ? ElementType::eI16 : ElementType::eU16;
        if (bits == 32)
            return bSigned ? ElementType::eI32 : ElementType::eU32;
    }
    if (format == SAMPLEFORMAT_IEEEFP && bits == 32)
        return ElementType::eF32;
    const char* kind = "integer";
    if (format == SAMPLEFORMAT_IEEEFP)
        kind = "floating-point";
    else if (format == SAMPLEFORMAT_COMPLEXINT || format == SAMPLEFORMAT_COMPLEXIEEEFP)
        kind = "complex";
    refuse("has " + std::to_string(bits) + "-bit " + kind + " samples, which no image type holds",
           "save it with 8, 16 or 32-bit integers or 32-bit floats");
}

void TiffReader::checkCoding(const PageLayout& layout) const
{
    if (layout.compression == COMPRESSION_OJPEG || TIFFIsCODECConfigured(layout.compression) == 0)
        refuse("is compressed in a way that is not read here (TIFF compression " + std::to_string(layout.compression) + ")",
               "save it uncompressed or with LZW or Deflate");
    switch (layout.photometric)
    {
    case PHOTOMETRIC_PALETTE:
        refuse("holds colours by palette", "save it as RGB");
    case PHOTOMETRIC_MASK:
    case PHOTOMETRIC_CFA:
    case PHOTOMETRIC_LOGL:
    case PHOTOMETRIC_LOGLUV:
        refuse("holds a kind of samples that is not read here (TIFF photometric " + std::to_string(layout.photometric) + ")",
               "save it as grey or RGB");
    case PHOTOMETRIC_MINISWHITE:
        if (layout.shape.type != ElementType::eU8 && layout.shape.type != ElementType::eU16 &&
            layout.shape.type != ElementType::eU32)
            refuse("has white at its lowest sample, and signed or float samples", "save it with black at zero");
        break;
    case PHOTOMETRIC_YCBCR:
        if (layout.compression != COMPRESSION_JPEG)
        {
            std::uint16_t horizontal = 2;
            std::uint16_t vertical = 2;
            TIFFGetFieldDefaulted(m_tiff.get(), TIFFTAG_YCBCRSUBSAMPLING, &horizontal, &vertical);
            if (horizontal != 1 || vertical != 1)
                refuse("has chroma channels of reduced size", "save it as RGB");
        }
        break;
    default:
        break;
    }
}

void TiffReader::checkBlocks(const PageLayout& layout) const
{
    const std::uint64_t channels = layout.planar == PLANARCONFIG_CONTIG ? layout.shape.channels : 1;
    const std::uint64_t expected = std::uint64_t{layout.blockX} * layout.blockY * channels * getElementSize(layout.shape.type);
    const std::uint64_t given = layout.bTiled ? TIFFTileSize64(m_tiff.get()) : TIFFVStripSize64(m_tiff.get(), layout.blockY);
    if (given != expected)
        throw m_file.makeDamageError(m_messages.getText());
    const std::uint32_t nbBlocks = layout.bTiled ? TIFFNumberOfTiles(m_tiff.get()) : TIFFNumberOfStrips(m_tiff.get());
    for (std::uint32_t block = 0; block < nbBlocks; ++block)
    {
        const std::uint64_t offset = TIFFGetStrileOffset(m_tiff.get(), block);
        const std::uint64_t bytes = TIFFGetStrileByteCount(m_tiff.get(), block);
        if (offset > m_file.getSize() || bytes > m_file.getSize() - offset)
            throw m_file.makeDamageError("samples begin or end past the file's end");
        if (offset == 0 || bytes == 0)
            throw m_file.makeDamageError("samples are missing");
    }
}

PageLayout TiffReader::inspectPage()
{
    PageLayout layout;
    layout.offset = TIFFCurrentDirOffset(m_tiff.get());
    std::uint32_t subfileType = 0;
    TIFFGetFieldDefaulted(m_tiff.get(), TIFFTAG_SUBFILETYPE, &subfileType);
    layout.bReduced = (subfileType & (FILETYPE_REDUCEDIMAGE | FILETYPE_MASK)) != 0;
    if (layout.bReduced)
        return layout;

    layout.shape.sizeX = getField(TIFFTAG_IMAGEWIDTH, "width");
    layout.shape.sizeY = getField(TIFFTAG_IMAGELENGTH, "height");
    layout.shape.channels = getShort(TIFFTAG_SAMPLESPERPIXEL);
    layout.shape.type = getElementType();
    layout.compression = getShort(TIFFTAG_COMPRESSION);
    layout.photometric = getShort(TIFFTAG_PHOTOMETRIC);
    layout.planar = getShort(TIFFTAG_PLANARCONFIG);
    checkCoding(layout);
    m_file.checkClaim(layout.shape, getMaxExpansion(layout.compression));

    layout.bTiled = TIFFIsTiled(m_tiff.get()) != 0;
    if (layout.bTiled)
    {
        layout.blockX = getField(TIFFTAG_TILEWIDTH, "tile width");
        layout.blockY = getField(TIFFTAG_TILELENGTH, "tile height");
        // A tile may be larger than the page, but not by any amount.
        PictureShape tile = layout.shape;
        tile.sizeX = layout.blockX;
        tile.sizeY = layout.blockY;
        m_file.checkClaim(tile, 0);
    }
    else
    {
        std::uint32_t rowsPerStrip = 0;
        TIFFGetFieldDefaulted(m_tiff.get(), TIFFTAG_ROWSPERSTRIP, &rowsPerStrip);
        layout.blockX = static_cast<std::uint32_t>(layout.shape.sizeX);
        layout.blockY = std::min(rowsPerStrip, static_cast<std::uint32_t>(layout.shape.sizeY));
        if (layout.blockY == 0)
            throw m_file.makeDamageError("strips without rows");
    }
    if (layout.compression == COMPRESSION_JPEG && layout.photometric == PHOTOMETRIC_YCBCR)
        TIFFSetField(m_tiff.get(), TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
    checkBlocks(layout);

    std::uint16_t nbExtra = 0;
    std::uint16_t* extra = nullptr;
    if (TIFFGetField(m_tiff.get(), TIFFTAG_EXTRASAMPLES, &nbExtra, &extra) == 1 && nbExtra > 0)
        layout.bAlpha = extra[nbExtra - 1] == EXTRASAMPLE_ASSOCALPHA || extra[nbExtra - 1] == EXTRASAMPLE_UNASSALPHA;
    return layout;
}

std::vector<PageLayout> TiffReader::inspectPages()
{
    std::vector<PageLayout> pages;
    for (;;)
    {
        const PageLayout layout = inspectPage();
        if (!layout.bReduced)
        {
            if (!pages.empty())
            {
                const PictureShape& first = pages.front().shape;
                const PictureShape& here = layout.shape;
                if (first.sizeX != here.sizeX || first.sizeY != here.sizeY || first.channels != here.channels ||
                    first.type != here.type || pages.front().photometric != layout.photometric)
                    refuse("has pages that differ in size, channels or sample type",
                           "save pages of one kind, or one page a file");
            }
            pages.push_back(layout);
        }
        if (TIFFLastDirectory(m_tiff.get()) != 0)
            break;
        if (TIFFReadDirectory(m_tiff.get()) == 0)
            throw m_file.makeDamageError(m_messages.getText());
    }
    if (!m_messages.damage.empty())
        throw m_file.makeDamageError(m_messages.damage);
    if (pages.empty())
        refuse("holds only previews or masks", "save the picture itself");
    return pages;
}

void TiffReader::describe(const PageLayout& layout, Picture& picture) const
{
    picture.format = "TIFF";
    picture.hasAlpha = layout.bAlpha;
    const char* description = nullptr;
    if (TIFFGetField(m_tiff.get(), TIFFTAG_IMAGEDESCRIPTION, &description) == 1 && description != nullptr)
        picture.description = toOneLine(std::string(description, ::strnlen(description, 500)));
    switch (layout.photometric)
    {
    case PHOTOMETRIC_SEPARATED:
        picture.doubt = "holds printing inks (CMYK or others)";
        break;
    case PHOTOMETRIC_YCBCR:
        if (layout.compression != COMPRESSION_JPEG)
            picture.doubt = "holds YCbCr by its own account";
        break;
    case PHOTOMETRIC_CIELAB:
    case PHOTOMETRIC_ICCLAB:
    case PHOTOMETRIC_ITULAB:
        picture.doubt = "holds L*a*b* in the coding of TIFF, whose samples are not L, a and b themselves";
        break;
    case PHOTOMETRIC_MINISWHITE:
        picture.note = "white is its lowest sample; the samples were turned so that black is 0";
        break;
    default:
        break;
    }
}

void TiffReader::readBlock(const PageLayout& layout, std::uint32_t block, std::size_t nbBytes, void* target)
{
    const auto expected = static_cast<tmsize_t>(nbBytes);
    const tmsize_t nbRead = layout.bTiled ? TIFFReadEncodedTile(m_tiff.get(), block, target, expected)
                                          : TIFFReadEncodedStrip(m_tiff.get(), block, target, expected);
    if (nbRead != expected || !m_messages.isEmpty())
        throw m_file.makeDamageError(m_messages.getText());
}

void TiffReader::readPage(const PageLayout& layout, std::size_t page, Picture& picture)
{
    if (TIFFSetSubDirectory(m_tiff.get(), layout.offset) == 0)
        throw m_file.makeDamageError(m_messages.getText());
    if (layout.compression == COMPRESSION_JPEG && layout.photometric == PHOTOMETRIC_YCBCR)
        TIFFSetField(m_tiff.get(), TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
    m_messages.clear();

    const PictureShape& shape = picture.shape;
    const std::size_t elementSize = getElementSize(shape.type);
    const bool bSeparate = layout.planar == PLANARCONFIG_SEPARATE;
    const std::size_t channelsPerBlock = bSeparate ? 1 : shape.channels;
    const std::size_t rowBytes = std::size_t{layout.blockX} * channelsPerBlock * elementSize;
    std::vector<unsigned char> buffer(rowBytes * layout.blockY);
    std::vector<unsigned char*> planes;
    for (std::size_t channel = 0; channel < shape.channels; ++channel)
        planes.push_back(picture.getPlane<unsigned char>(page, channel));

    std::uint32_t block = 0;
    for (std::size_t plane = 0; plane < shape.channels / channelsPerBlock; ++plane)
    {
        for (std::size_t y = 0; y < shape.sizeY; y += layout.blockY)
        {
            const std::size_t nbRows = std::min<std::size_t>(layout.blockY, shape.sizeY - y);
            for (std::size_t x = 0; x < shape.sizeX; x += layout.blockX)
            {
                // A tile is always stored whole, the last strip only as far as the page goes.
                readBlock(layout, block++, layout.bTiled ? buffer.size() : rowBytes * nbRows, buffer.data());
                const std::size_t nbColumns = std::min<std::size_t>(layout.blockX, shape.sizeX - x);
                for (std::size_t row = 0; row < nbRows; ++row)
                    spreadPixels(buffer.data() + row * rowBytes, nbColumns, channelsPerBlock, elementSize, &planes[plane],
                                 (y + row) * shape.sizeX + x);
            }
        }
    }
}

void TiffReader::invert(Picture& picture) const
{
    // For unsigned samples, the greatest value less the sample is the sample with every bit turned.
    for (PlaneMemory& plane : picture.planes)
    {
        unsigned char* data = plane.getData();
        for (std::size_t byte = 0; byte < picture.shape.getPlaneBytes(); ++byte)
            data[byte] = static_cast<unsigned char>(~data[byte]);
    }
}

Picture TiffReader::run()
{
    // Directories need some memory of their own; samples are checked against the limit itself.
    constexpr std::uint64_t directoryBytes = std::uint64_t{64} << 20;
    m_tiff = openTiff(m_file.getDescriptor(), m_file.getPath(), "rm", m_file.getLimits().maxBytes + directoryBytes, m_messages);
    if (!m_tiff)
        throw m_file.makeDamageError(m_messages.getText());
    const std::vector<PageLayout> pages = inspectPages();

    Picture picture;
    picture.shape = pages.front().shape;
    picture.shape.pages = pages.size();
    std::uint64_t maxExpansion = 0;
    for (const PageLayout& page : pages)
    {
        const std::uint64_t expansion = getMaxExpansion(page.compression);
        maxExpansion = expansion == 0 ? 0 : std::max(maxExpansion, expansion);
        if (expansion == 0)
            break;
    }
    m_file.checkClaim(picture.shape, maxExpansion);
    picture.allocate();
    for (std::size_t page = 0; page < pages.size(); ++page)
    {
        readPage(pages[page], page, picture);
        if (page == 0)
            describe(pages.front(), picture);
    }
    if (pages.front().photometric == PHOTOMETRIC_MINISWHITE)
        invert(picture);
    return picture;
}
} // namespace

Picture readTiff(const InputFile& file)
{
    return TiffReader(file).run();
}
} // namespace kovis::tool
