#include "PictureFile.h"
#include "kovis-color/TestFiles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

namespace kovis::tool::test
{
namespace
{
constexpr ElementType g_types[] = {ElementType::eI8,  ElementType::eU8,  ElementType::eI16, ElementType::eU16,
                                   ElementType::eI32, ElementType::eU32, ElementType::eF32};

PictureShape makeShape(std::size_t sizeX, std::size_t sizeY, std::size_t pages, std::size_t channels, ElementType type)
{
    PictureShape shape;
    shape.sizeX = sizeX;
    shape.sizeY = sizeY;
    shape.pages = pages;
    shape.channels = channels;
    shape.type = type;
    return shape;
}
} // namespace

TEST(RoundTrip, tiffKeepsEveryTypeChannelCountAndPageCount)
{
    const TestFolder folder;
    const std::string path = folder.getPath("picture.tif");
    for (const ElementType type : g_types)
    {
        for (const std::size_t channels : {1U, 2U, 3U, 4U, 5U, 9U})
        {
            for (const std::size_t pages : {1U, 3U})
            {
                const Picture picture = makePicture(makeShape(13, 7, pages, channels, type));
                writePicture(path, viewOf(picture));
                const Picture read = readPicture(path);
                EXPECT_TRUE(isSame(picture, read))
                    << getElementName(type) << ", " << channels << " channels, " << pages << " pages";
                EXPECT_EQ(read.format, "TIFF");
            }
        }
    }
}

TEST(RoundTrip, tiffOfSeveralStrips)
{
    const TestFolder folder;
    const Picture picture = makePicture(makeShape(1031, 700, 2, 3, ElementType::eF32));
    writePicture(folder.getPath("large.tiff"), viewOf(picture));
    EXPECT_TRUE(isSame(picture, readPicture(folder.getPath("large.tiff"))));
}

TEST(RoundTrip, pngKeepsEightAndSixteenBits)
{
    const TestFolder folder;
    const std::string path = folder.getPath("picture.PNG");
    for (const ElementType type : {ElementType::eU8, ElementType::eU16})
    {
        for (const std::size_t channels : {1U, 2U, 3U, 4U})
        {
            const Picture picture = makePicture(makeShape(13, 7, 1, channels, type));
            writePicture(path, viewOf(picture));
            const Picture read = readPicture(path);
            EXPECT_TRUE(isSame(picture, read)) << getElementName(type) << ", " << channels << " channels";
            EXPECT_EQ(read.format, "PNG");
            EXPECT_EQ(read.hasAlpha, channels == 2 || channels == 4);
        }
    }
}

TEST(RoundTrip, jpegComesBackNearly)
{
    const TestFolder folder;
    const std::string path = folder.getPath("picture.jpg");
    for (const std::size_t channels : {1U, 3U})
    {
        Picture picture;
        picture.shape = makeShape(37, 21, 1, channels, ElementType::eU8);
        picture.allocate();
        for (std::size_t channel = 0; channel < channels; ++channel)
        {
            for (std::size_t sample = 0; sample < 37 * 21; ++sample)
                picture.getPlane<std::uint8_t>(0, channel)[sample] =
                    static_cast<std::uint8_t>(40 + 60 * channel + 2 * (sample % 37) + sample / 37);
        }
        writePicture(path, viewOf(picture));
        const Picture read = readPicture(path);
        ASSERT_EQ(read.shape.sizeX, 37U);
        ASSERT_EQ(read.shape.sizeY, 21U);
        ASSERT_EQ(read.shape.channels, channels);
        for (std::size_t channel = 0; channel < channels; ++channel)
        {
            for (std::size_t sample = 0; sample < 37 * 21; ++sample)
                ASSERT_NEAR(read.getPlane<std::uint8_t>(0, channel)[sample], picture.getPlane<std::uint8_t>(0, channel)[sample],
                            8);
        }
    }
}

TEST(RoundTrip, theDescriptionAndOpacityAreKept)
{
    const TestFolder folder;
    const Picture picture = makePicture(makeShape(5, 4, 1, 4, ElementType::eU8));
    for (const char* name : {"a.tif", "a.png"})
    {
        PictureView view = viewOf(picture);
        view.description = "some words";
        view.hasAlpha = true;
        writePicture(folder.getPath(name), view);
        const Picture read = readPicture(folder.getPath(name));
        EXPECT_EQ(read.description, "some words") << name;
        EXPECT_TRUE(read.hasAlpha) << name;
    }
    PictureView view = viewOf(picture);
    view.hasAlpha = false;
    writePicture(folder.getPath("b.tif"), view);
    EXPECT_FALSE(readPicture(folder.getPath("b.tif")).hasAlpha);
}

TEST(RoundTrip, aFormatRefusesWhatItCannotHold)
{
    const TestFolder folder;
    const auto write = [&folder](const char* name, std::size_t pages, std::size_t channels, ElementType type) {
        return getErrorOf([&]
                          { writePicture(folder.getPath(name), viewOf(makePicture(makeShape(4, 4, pages, channels, type)))); });
    };
    EXPECT_NE(write("a.png", 1, 3, ElementType::eF32).find("PNG cannot hold samples of type f32; write a .tif"),
              std::string::npos);
    EXPECT_NE(write("a.jpg", 1, 3, ElementType::eU16).find("JPEG cannot hold samples of type u16"), std::string::npos);
    EXPECT_NE(write("a.jpg", 1, 4, ElementType::eU8).find("JPEG cannot hold 4 channel(s)"), std::string::npos);
    EXPECT_NE(write("a.png", 1, 5, ElementType::eU8).find("PNG cannot hold 5 channel(s)"), std::string::npos);
    EXPECT_NE(write("a.png", 2, 1, ElementType::eU8).find("PNG cannot hold 2 pages"), std::string::npos);
    EXPECT_NE(write("a.gif", 1, 1, ElementType::eU8).find("names no known format; end the name in .tif"), std::string::npos);
    EXPECT_NE(write("a", 1, 1, ElementType::eU8).find("has no extension"), std::string::npos);
    EXPECT_TRUE(folder.getNames().empty());
}
} // namespace kovis::tool::test
