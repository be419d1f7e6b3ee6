// Files as other programs write them.

#include "PictureFile.h"
#include "kovis-color/TestFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>
#include <png.h>
#include <tiffio.h>

#include <jpeglib.h>

namespace kovis::tool::test
{
namespace
{
struct TiffKind
{
    std::uint16_t planar = PLANARCONFIG_CONTIG;
    std::uint16_t compression = COMPRESSION_NONE;
    bool bTiled = false;
    std::uint32_t rowsPerStrip = 5;
};

/// Writes a picture with libtiff alone, in the given kind.
void writeForeignTiff(const std::string& path, const Picture& picture, const TiffKind& kind)
{
    const std::unique_ptr<TIFF, decltype(&TIFFClose)> tiff(TIFFOpen(path.c_str(), "w"), &TIFFClose);
    ASSERT_TRUE(tiff);
    const PictureShape& shape = picture.shape;
    const auto size = static_cast<std::uint32_t>(getElementSize(shape.type));
    TIFFSetField(tiff.get(), TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(shape.sizeX));
    TIFFSetField(tiff.get(), TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(shape.sizeY));
    TIFFSetField(tiff.get(), TIFFTAG_SAMPLESPERPIXEL, static_cast<int>(shape.channels));
    TIFFSetField(tiff.get(), TIFFTAG_BITSPERSAMPLE, static_cast<int>(8 * size));
    TIFFSetField(tiff.get(), TIFFTAG_SAMPLEFORMAT, shape.type == ElementType::eF32 ? SAMPLEFORMAT_IEEEFP : SAMPLEFORMAT_UINT);
    TIFFSetField(tiff.get(), TIFFTAG_PLANARCONFIG, kind.planar);
    TIFFSetField(tiff.get(), TIFFTAG_PHOTOMETRIC, shape.channels == 3 ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK);
    TIFFSetField(tiff.get(), TIFFTAG_COMPRESSION, kind.compression);
    if (shape.channels == 2)
    {
        const std::uint16_t extra[] = {EXTRASAMPLE_UNSPECIFIED};
        TIFFSetField(tiff.get(), TIFFTAG_EXTRASAMPLES, 1, extra);
    }
    const std::uint32_t blockX = kind.bTiled ? 32 : static_cast<std::uint32_t>(shape.sizeX);
    const std::uint32_t blockY = kind.bTiled ? 16 : kind.rowsPerStrip;
    if (kind.bTiled)
    {
        TIFFSetField(tiff.get(), TIFFTAG_TILEWIDTH, blockX);
        TIFFSetField(tiff.get(), TIFFTAG_TILELENGTH, blockY);
    }
    else
    {
        TIFFSetField(tiff.get(), TIFFTAG_ROWSPERSTRIP, blockY);
    }

    const bool bSeparate = kind.planar == PLANARCONFIG_SEPARATE;
    const std::size_t group = bSeparate ? 1 : shape.channels;
    std::uint32_t block = 0;
    for (std::size_t first = 0; first < shape.channels; first += group)
    {
        for (std::size_t y = 0; y < shape.sizeY; y += blockY)
        {
            for (std::size_t x = 0; x < shape.sizeX; x += blockX)
            {
                const std::size_t nbRows = kind.bTiled ? blockY : std::min<std::size_t>(blockY, shape.sizeY - y);
                Bytes bytes(blockX * nbRows * group * size);
                for (std::size_t row = 0; row < nbRows && y + row < shape.sizeY; ++row)
                {
                    for (std::size_t column = 0; column < blockX && x + column < shape.sizeX; ++column)
                    {
                        for (std::size_t c = 0; c < group; ++c)
                            std::memcpy(&bytes[((row * blockX + column) * group + c) * size],
                                        picture.getPlane<unsigned char>(0, first + c) +
                                            ((y + row) * shape.sizeX + x + column) * size,
                                        size);
                    }
                }
                const auto nbBytes = static_cast<tmsize_t>(bytes.size());
                ASSERT_EQ(kind.bTiled ? TIFFWriteEncodedTile(tiff.get(), block, bytes.data(), nbBytes)
                                      : TIFFWriteEncodedStrip(tiff.get(), block, bytes.data(), nbBytes),
                          nbBytes);
                ++block;
            }
        }
    }
}

PictureShape makeShape(std::size_t sizeX, std::size_t sizeY, std::size_t channels, ElementType type)
{
    PictureShape shape;
    shape.sizeX = sizeX;
    shape.sizeY = sizeY;
    shape.channels = channels;
    shape.type = type;
    return shape;
}

/// Writes a PNG with libpng alone: rows of raw bytes, as the colour type and depth want them.
void writeForeignPng(const std::string& path, png_uint_32 sizeX, png_uint_32 sizeY, int depth, int colourType, int interlace,
                     std::vector<Bytes> rows, const std::vector<png_color>& palette, const Bytes& transparency)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), &std::fclose);
    ASSERT_TRUE(file);
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_init_io(png, file.get());
    png_set_IHDR(png, info, sizeX, sizeY, depth, colourType, interlace, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (!palette.empty())
        png_set_PLTE(png, info, palette.data(), static_cast<int>(palette.size()));
    if (!transparency.empty())
        png_set_tRNS(png, info, transparency.data(), static_cast<int>(transparency.size()), nullptr);
    std::vector<png_bytep> pointers;
    for (Bytes& row : rows)
        pointers.push_back(row.data());
    png_set_rows(png, info, pointers.data());
    png_write_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
    png_destroy_write_struct(&png, &info);
}

void writeForeignJpeg(const std::string& path, J_COLOR_SPACE colourSpace, int channels, bool bProgressive, bool bSubsampled)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), &std::fclose);
    ASSERT_TRUE(file);
    jpeg_compress_struct jpeg = {};
    jpeg_error_mgr errors = {};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    jpeg_stdio_dest(&jpeg, file.get());
    jpeg.image_width = 40;
    jpeg.image_height = 24;
    jpeg.input_components = channels;
    jpeg.in_color_space = colourSpace;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, 100, TRUE);
    if (!bSubsampled)
        jpeg.comp_info[0].h_samp_factor = jpeg.comp_info[0].v_samp_factor = 1;
    if (bProgressive)
        jpeg_simple_progression(&jpeg);
    jpeg_start_compress(&jpeg, TRUE);
    Bytes row(static_cast<std::size_t>(40 * channels));
    for (std::size_t index = 0; index < row.size(); ++index)
        row[index] = static_cast<unsigned char>(100 + 20 * (index % static_cast<std::size_t>(channels)));
    JSAMPROW pointer = row.data();
    for (int y = 0; y < 24; ++y)
        jpeg_write_scanlines(&jpeg, &pointer, 1);
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
}
} // namespace

TEST(ForeignTiff, everyLayoutAndCommonCompression)
{
    const TestFolder folder;
    const std::string path = folder.getPath("a.tif");
    constexpr std::uint16_t compressions[] = {COMPRESSION_NONE,     COMPRESSION_LZW,  COMPRESSION_ADOBE_DEFLATE,
                                              COMPRESSION_PACKBITS, COMPRESSION_ZSTD, COMPRESSION_LZMA};
    constexpr std::uint16_t planars[] = {PLANARCONFIG_CONTIG, PLANARCONFIG_SEPARATE};
    for (const std::uint16_t compression : compressions)
    {
        if (TIFFIsCODECConfigured(compression) == 0)
            continue;
        for (const std::uint16_t planar : planars)
        {
            for (const bool bTiled : {false, true})
            {
                for (const ElementType type : {ElementType::eU8, ElementType::eU16, ElementType::eU32, ElementType::eF32})
                {
                    for (const std::size_t channels : {1U, 2U, 3U})
                    {
                        const Picture picture = makePicture(makeShape(45, 37, channels, type));
                        TiffKind kind;
                        kind.planar = planar;
                        kind.compression = compression;
                        kind.bTiled = bTiled;
                        writeForeignTiff(path, picture, kind);
                        EXPECT_TRUE(isSame(picture, readPicture(path)))
                            << "compression " << compression << " planar " << planar << " tiled " << bTiled << " "
                            << getElementName(type) << " channels " << channels;
                    }
                }
            }
        }
    }
}

TEST(ForeignTiff, bothByteOrdersWithTheDirectoryFirst)
{
    const TestFolder folder;
    for (const bool bBigEndian : {false, true})
    {
        TiffBytes tiff(bBigEndian);
        tiff.addImage(2, 1, 16, 1, 1, 1);
        writeBytes(folder.getPath("a.tif"), tiff.build(bBigEndian ? Bytes{1, 2, 3, 4} : Bytes{2, 1, 4, 3}));
        const Picture picture = readPicture(folder.getPath("a.tif"));
        EXPECT_EQ(picture.shape.type, ElementType::eU16);
        EXPECT_EQ(picture.getPlane<std::uint16_t>(0, 0)[0], 0x0102);
        EXPECT_EQ(picture.getPlane<std::uint16_t>(0, 0)[1], 0x0304);
    }
}

TEST(ForeignTiff, whiteAtZeroIsTurned)
{
    const TestFolder folder;
    TiffBytes tiff;
    tiff.addImage(3, 1, 8, 1, 1, 0);
    writeBytes(folder.getPath("a.tif"), tiff.build({0, 255, 10}));
    const Picture picture = readPicture(folder.getPath("a.tif"));
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 0)[0], 255);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 0)[1], 0);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 0)[2], 245);
    EXPECT_FALSE(picture.note.empty());

    TiffBytes floats;
    floats.addImage(1, 1, 32, 1, 3, 0);
    writeBytes(folder.getPath("b.tif"), floats.build({0, 0, 128, 63}));
    EXPECT_NE(getErrorOf([&] { readPicture(folder.getPath("b.tif")); }).find("white at its lowest sample"), std::string::npos);
}

TEST(ForeignTiff, kindsThatHaveNoElementTypeOrSpaceAreRefused)
{
    struct Refusal
    {
        unsigned int bits;
        unsigned int samples;
        unsigned int format;
        unsigned int photometric;
        const char* words;
    };
    const Refusal refusals[] = {
        {1, 1, 1, 1, "has 1-bit integer samples, which no image type holds; save it with 8, 16 or 32-bit"},
        {4, 1, 1, 1, "has 4-bit integer samples"},
        {12, 1, 1, 1, "has 12-bit integer samples"},
        {64, 1, 1, 1, "has 64-bit integer samples"},
        {64, 1, 3, 1, "has 64-bit floating-point samples"},
        {16, 1, 3, 1, "has 16-bit floating-point samples"},
        {32, 1, 5, 1, "has 32-bit complex samples"},
        {8, 1, 1, 3, "holds colours by palette; save it as RGB"},
        {8, 1, 1, 4, "TIFF photometric 4"}};
    const TestFolder folder;
    for (const Refusal& refusal : refusals)
    {
        TiffBytes tiff;
        tiff.addImage(8, 1, refusal.bits, refusal.samples, refusal.format, refusal.photometric);
        if (refusal.photometric == 3)
            tiff.addShorts(320, std::vector<unsigned int>(768, 7));
        writeBytes(folder.getPath("a.tif"), tiff.build(Bytes(64)));
        const std::string error = getErrorOf([&] { readPicture(folder.getPath("a.tif")); });
        EXPECT_NE(error.find(refusal.words), std::string::npos) << refusal.words << " | " << error;
    }
}

TEST(ForeignTiff, inksAndLabAreReadButNotTakenForRgb)
{
    const TestFolder folder;
    TiffBytes inks;
    inks.addImage(1, 1, 8, 4, 1, 5);
    writeBytes(folder.getPath("a.tif"), inks.build({1, 2, 3, 4}));
    EXPECT_EQ(readPicture(folder.getPath("a.tif")).doubt, "holds printing inks (CMYK or others)");

    TiffBytes lab;
    lab.addImage(1, 1, 8, 3, 1, 8);
    writeBytes(folder.getPath("b.tif"), lab.build({1, 2, 3}));
    EXPECT_FALSE(readPicture(folder.getPath("b.tif")).doubt.empty());
}

TEST(ForeignTiff, pagesOfDifferentSizesAreRefused)
{
    const TestFolder folder;
    const std::string path = folder.getPath("a.tif");
    {
        const std::unique_ptr<TIFF, decltype(&TIFFClose)> tiff(TIFFOpen(path.c_str(), "w"), &TIFFClose);
        for (const std::uint32_t size : {4U, 5U})
        {
            Bytes row(size);
            TIFFSetField(tiff.get(), TIFFTAG_IMAGEWIDTH, size);
            TIFFSetField(tiff.get(), TIFFTAG_IMAGELENGTH, 1U);
            TIFFSetField(tiff.get(), TIFFTAG_BITSPERSAMPLE, 8);
            TIFFSetField(tiff.get(), TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
            TIFFWriteScanline(tiff.get(), row.data(), 0, 0);
            TIFFWriteDirectory(tiff.get());
        }
    }
    EXPECT_NE(getErrorOf([&] { readPicture(path); }).find("has pages that differ in size"), std::string::npos);
}

TEST(ForeignTiff, compressedSamplesThatEndTooEarlyAreAnError)
{
    const TestFolder folder;
    for (const unsigned int compression : {5U, 8U, 32773U})
    {
        TiffBytes tiff;
        tiff.addLong(256, 64);
        tiff.addLong(257, 4);
        tiff.addShort(258, 8);
        tiff.addShort(259, compression);
        tiff.addShort(262, 1);
        tiff.addLong(278, 4);
        writeBytes(folder.getPath("a.tif"), tiff.build(Bytes(40, 0x35)));
        const std::string error = getErrorOf([&] { readPicture(folder.getPath("a.tif")); });
        EXPECT_NE(error.find("is cut short or damaged"), std::string::npos) << compression << ": " << error;
    }
}

class ForeignJpegTiff : public testing::Test
{
protected:
    void SetUp() override
    {
        if (TIFFIsCODECConfigured(COMPRESSION_JPEG) == 0)
            GTEST_SKIP() << "libtiff without JPEG";
        const std::unique_ptr<TIFF, decltype(&TIFFClose)> tiff(TIFFOpen(m_path.c_str(), "w"), &TIFFClose);
        TIFFSetField(tiff.get(), TIFFTAG_IMAGEWIDTH, 32U);
        TIFFSetField(tiff.get(), TIFFTAG_IMAGELENGTH, 32U);
        TIFFSetField(tiff.get(), TIFFTAG_BITSPERSAMPLE, 8);
        TIFFSetField(tiff.get(), TIFFTAG_SAMPLESPERPIXEL, 3);
        TIFFSetField(tiff.get(), TIFFTAG_COMPRESSION, COMPRESSION_JPEG);
        TIFFSetField(tiff.get(), TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_YCBCR);
        TIFFSetField(tiff.get(), TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
        TIFFSetField(tiff.get(), TIFFTAG_ROWSPERSTRIP, 16U);
        Bytes row;
        for (int x = 0; x < 32; ++x)
            row.insert(row.end(), {200, 100, 50});
        for (std::uint32_t y = 0; y < 32; ++y)
            ASSERT_EQ(TIFFWriteScanline(tiff.get(), row.data(), y, 0), 1);
    }

    const TestFolder m_folder;
    const std::string m_path = m_folder.getPath("a.tif");
};

TEST_F(ForeignJpegTiff, isReadAsRgb)
{
    const Picture picture = readPicture(m_path);
    EXPECT_TRUE(picture.doubt.empty());
    EXPECT_NEAR(picture.getPlane<std::uint8_t>(0, 0)[500], 200, 4);
    EXPECT_NEAR(picture.getPlane<std::uint8_t>(0, 1)[500], 100, 4);
    EXPECT_NEAR(picture.getPlane<std::uint8_t>(0, 2)[500], 50, 4);
}

TEST_F(ForeignJpegTiff, thatEndsTooEarlyIsAnErrorAndNotAGreyStrip)
{
    // An end mark right behind the head of the first scan.
    Bytes bytes = readBytes(m_path);
    const unsigned char scan[] = {0xFF, 0xDA};
    const auto place = std::search(bytes.begin(), bytes.end(), std::begin(scan), std::end(scan));
    ASSERT_NE(place, bytes.end());
    const auto data = place + 2 + 256 * place[2] + place[3];
    data[0] = 0xFF;
    data[1] = 0xD9;
    writeBytes(m_path, bytes);
    const std::string error = getErrorOf([&] { readPicture(m_path); });
    EXPECT_NE(error.find("is cut short or damaged"), std::string::npos) << error;
}

TEST(ForeignPng, palettesAndFewBitsAreExpanded)
{
    const TestFolder folder;
    const std::string path = folder.getPath("a.png");
    const std::vector<png_color> palette = {{10, 20, 30}, {40, 50, 60}};
    writeForeignPng(path, 8, 1, 1, PNG_COLOR_TYPE_PALETTE, PNG_INTERLACE_NONE, {{0x55}}, palette, {});
    Picture picture = readPicture(path);
    ASSERT_EQ(picture.shape.channels, 3U);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 0)[0], 10);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 1)[1], 50);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 2)[7], 60);

    writeForeignPng(path, 8, 1, 1, PNG_COLOR_TYPE_PALETTE, PNG_INTERLACE_NONE, {{0x55}}, palette, {0, 128});
    picture = readPicture(path);
    ASSERT_EQ(picture.shape.channels, 4U);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 3)[1], 128);

    writeForeignPng(path, 4, 1, 2, PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_NONE, {{0x1B}}, {}, {});
    picture = readPicture(path);
    ASSERT_EQ(picture.shape.channels, 1U);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 0)[0], 0);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 0)[1], 85);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 0)[3], 255);
}

TEST(ForeignPng, interlacedPicturesAreRead)
{
    const TestFolder folder;
    const std::string path = folder.getPath("a.png");
    std::vector<Bytes> rows;
    for (unsigned int y = 0; y < 19; ++y)
    {
        Bytes row;
        for (unsigned int x = 0; x < 17 * 3; ++x)
        {
            row.push_back(static_cast<unsigned char>(x));
            row.push_back(static_cast<unsigned char>(y));
        }
        rows.push_back(row);
    }
    writeForeignPng(path, 17, 19, 16, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_ADAM7, rows, {}, {});
    const Picture picture = readPicture(path);
    ASSERT_EQ(picture.shape.type, ElementType::eU16);
    for (unsigned int y = 0; y < 19; ++y)
    {
        for (unsigned int x = 0; x < 17; ++x)
        {
            for (unsigned int c = 0; c < 3; ++c)
                ASSERT_EQ(picture.getPlane<std::uint16_t>(0, c)[y * 17 + x], 256 * (3 * x + c) + y);
        }
    }
}

TEST(ForeignJpeg, progressiveAndSubsampledFilesAreRead)
{
    const TestFolder folder;
    for (const bool bProgressive : {false, true})
    {
        for (const bool bSubsampled : {false, true})
        {
            writeForeignJpeg(folder.getPath("a.jpg"), JCS_RGB, 3, bProgressive, bSubsampled);
            const Picture picture = readPicture(folder.getPath("a.jpg"));
            ASSERT_EQ(picture.shape.channels, 3U);
            EXPECT_NEAR(picture.getPlane<std::uint8_t>(0, 0)[100], 100, 2);
            EXPECT_NEAR(picture.getPlane<std::uint8_t>(0, 2)[100], 140, 2);
        }
    }
}

TEST(ForeignJpeg, inksAreRefused)
{
    const TestFolder folder;
    writeForeignJpeg(folder.getPath("a.jpg"), JCS_CMYK, 4, false, false);
    EXPECT_EQ(getErrorOf([&] { readPicture(folder.getPath("a.jpg")); }),
              folder.getPath("a.jpg") + ": is a CMYK JPEG; save it as RGB");
}
} // namespace kovis::tool::test
