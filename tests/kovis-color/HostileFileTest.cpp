// Files that are missing, damaged, or claim what they do not hold: each is one error line, never a crash or half a picture.

#include "PictureFile.h"
#include "ToolError.h"
#include "kovis-color/TestFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <random>

namespace kovis::tool::test
{
namespace
{
Bytes makeFile(const TestFolder& folder, const std::string& name)
{
    PictureShape shape;
    shape.sizeX = 23;
    shape.sizeY = 17;
    shape.channels = 3;
    writePicture(folder.getPath(name), viewOf(makePicture(shape)));
    return readBytes(folder.getPath(name));
}

std::string readError(const std::string& path)
{
    return getErrorOf([&] { readPicture(path); });
}

void setBigEndian(Bytes& bytes, std::size_t place, std::uint32_t value)
{
    for (std::size_t byte = 0; byte < 4; ++byte)
        bytes[place + byte] = static_cast<unsigned char>(value >> (24 - 8 * byte));
}

std::uint32_t computeCrc(const unsigned char* bytes, std::size_t nbBytes)
{
    std::uint32_t crc = 0xFFFFFFFFU;
    for (std::size_t byte = 0; byte < nbBytes; ++byte)
    {
        crc ^= bytes[byte];
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~crc;
}
} // namespace

TEST(HostileFile, missingEmptyFolderAndUnknownKind)
{
    const TestFolder folder;
    EXPECT_EQ(readError(folder.getPath("none.tif")),
              folder.getPath("none.tif") + ": cannot be read (No such file or directory); check the name and the permissions");
    writeBytes(folder.getPath("empty.png"), {});
    EXPECT_EQ(readError(folder.getPath("empty.png")), folder.getPath("empty.png") + ": is empty; give a TIFF, PNG or JPEG file");
    EXPECT_NE(readError(folder.getPath("")).find("is not a plain file"), std::string::npos);
    EXPECT_NE(readError("/dev/zero").find("is not a plain file"), std::string::npos);
    writeBytes(folder.getPath("text.tif"), {'h', 'e', 'l', 'l', 'o'});
    EXPECT_NE(readError(folder.getPath("text.tif")).find("is not a TIFF, PNG or JPEG file; give a picture"), std::string::npos);
}

TEST(HostileFile, theContentTellsTheFormatNotTheName)
{
    const TestFolder folder;
    const Bytes bytes = makeFile(folder, "a.png");
    writeBytes(folder.getPath("b.tif"), bytes);
    EXPECT_EQ(readPicture(folder.getPath("b.tif")).format, "PNG");
}

TEST(HostileFile, cutShortAtEveryLength)
{
    const TestFolder folder;
    for (const char* name : {"a.tif", "a.png", "a.jpg"})
    {
        const Bytes whole = makeFile(folder, name);
        ASSERT_EQ(readError(folder.getPath(name)), "no error");
        for (std::size_t length = 0; length < whole.size(); ++length)
        {
            writeBytes(folder.getPath("cut"), Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
            const std::string error = readError(folder.getPath("cut"));
            // A TIFF ends in what its last tag points at; a cut there must be seen as well.
            EXPECT_NE(error, "no error") << name << " cut to " << length << " of " << whole.size();
            EXPECT_NE(error.find(';'), std::string::npos) << error;
            EXPECT_EQ(error.find('\n'), std::string::npos) << error;
        }
    }
}

TEST(HostileFile, aTiffWithItsDirectoryFirstCutShortInTheSamples)
{
    const TestFolder folder;
    TiffBytes tiff;
    tiff.addImage(64, 64, 8, 1, 1, 1);
    const Bytes whole = tiff.build(Bytes(64 * 64, 7));
    writeBytes(folder.getPath("a.tif"), whole);
    EXPECT_EQ(readError(folder.getPath("a.tif")), "no error");
    for (std::size_t cut = 1; cut < 64 * 64; cut += 61)
    {
        writeBytes(folder.getPath("a.tif"), Bytes(whole.begin(), whole.end() - static_cast<std::ptrdiff_t>(cut)));
        EXPECT_NE(readError(folder.getPath("a.tif")), "no error") << cut;
    }
}

TEST(HostileFile, hugeClaimsAreRefusedWithoutTheMemory)
{
    const TestFolder folder;
    TiffBytes tiff;
    tiff.addImage(0x7FFFFFFFU, 0x7FFFFFFFU, 8, 3, 1, 2);
    writeBytes(folder.getPath("a.tif"), tiff.build(Bytes(100)));
    EXPECT_NE(readError(folder.getPath("a.tif")).find("is cut short or damaged"), std::string::npos)
        << readError(folder.getPath("a.tif"));
    for (const unsigned int size : {0x10000U, 0x100000U})
    {
        TiffBytes large;
        large.addImage(size, size, 8, 3, 1, 2);
        writeBytes(folder.getPath("a.tif"), large.build(Bytes(100)));
        EXPECT_NE(readError(folder.getPath("a.tif")).find("claims more than its"), std::string::npos)
            << readError(folder.getPath("a.tif"));
    }

    Bytes png = makeFile(folder, "a.png");
    setBigEndian(png, 16, 0x7FFFFFFFU);
    setBigEndian(png, 20, 0x7FFFFFFFU);
    setBigEndian(png, 29, computeCrc(&png[12], 17));
    writeBytes(folder.getPath("a.png"), png);
    EXPECT_NE(readError(folder.getPath("a.png")).find("claims more than its"), std::string::npos)
        << readError(folder.getPath("a.png"));

    Bytes jpeg = makeFile(folder, "a.jpg");
    const unsigned char frame[] = {0xFF, 0xC0};
    const auto place = std::search(jpeg.begin(), jpeg.end(), std::begin(frame), std::end(frame));
    ASSERT_NE(place, jpeg.end());
    std::fill(place + 5, place + 9, static_cast<unsigned char>(0xFF));
    writeBytes(folder.getPath("a.jpg"), jpeg);
    EXPECT_NE(readError(folder.getPath("a.jpg")), "no error");
}

TEST(HostileFile, aLimitOnMemoryIsKept)
{
    const TestFolder folder;
    makeFile(folder, "a.tif");
    ReadLimits limits;
    limits.maxBytes = 23 * 17 * 3 - 1;
    const std::string error = getErrorOf([&] { readPicture(folder.getPath("a.tif"), limits); });
    EXPECT_NE(error.find("asks for more memory than allowed"), std::string::npos) << error;
    EXPECT_NE(error.find("raise the limit with --max-memory"), std::string::npos) << error;
    limits.maxBytes = 1 << 20;
    EXPECT_EQ(getErrorOf([&] { readPicture(folder.getPath("a.tif"), limits); }), "no error");
}

TEST(HostileFile, odditiesOfTheTiffDirectory)
{
    const TestFolder folder;
    const std::string path = folder.getPath("a.tif");
    const auto write = [&path](const TiffBytes& tiff) { writeBytes(path, tiff.build(Bytes(300))); };

    TiffBytes empty;
    empty.addImage(0, 10, 8, 1, 1, 1);
    write(empty);
    EXPECT_NE(readError(path), "no error");

    TiffBytes noSize;
    noSize.addShort(258, 8);
    write(noSize);
    EXPECT_NE(readError(path), "no error");

    TiffBytes manyChannels;
    manyChannels.addImage(1, 1, 8, 300, 1, 1);
    write(manyChannels);
    EXPECT_EQ(readError(path), "no error");
    EXPECT_EQ(readPicture(path).shape.channels, 300U);

    TiffBytes unknownCoding;
    unknownCoding.addLong(256, 4);
    unknownCoding.addLong(257, 4);
    unknownCoding.addShort(258, 8);
    unknownCoding.addShort(259, 12345);
    unknownCoding.addShort(262, 1);
    write(unknownCoding);
    EXPECT_NE(readError(path).find("compressed in a way that is not read here (TIFF compression 12345)"), std::string::npos)
        << readError(path);

    TiffBytes hugeTile;
    hugeTile.addLong(256, 4);
    hugeTile.addLong(257, 4);
    hugeTile.addShort(258, 8);
    hugeTile.addShort(259, 1);
    hugeTile.addShort(262, 1);
    hugeTile.addLong(322, 0x7FFFFFF0U);
    hugeTile.addLong(323, 0x7FFFFFF0U);
    write(hugeTile);
    EXPECT_NE(readError(path), "no error");

    // The next directory is the first again.
    TiffBytes loop;
    loop.addImage(4, 4, 8, 1, 1, 1);
    Bytes bytes = loop.build(Bytes(16));
    const std::size_t nbEntries = bytes[8];
    bytes[10 + 12 * nbEntries] = 8;
    writeBytes(path, bytes);
    EXPECT_NE(readError(path), "no error");
}

TEST(HostileFile, randomDamageNeverCrashes)
{
    const TestFolder folder;
    std::mt19937 random(4711);
    for (const char* name : {"a.tif", "a.png", "a.jpg"})
    {
        const Bytes whole = makeFile(folder, name);
        for (int round = 0; round < 1500; ++round)
        {
            Bytes damaged = whole;
            // Mostly in the first bytes, and in a TIFF's last, where the directories lie.
            for (int change = 0; change < 1 + round % 4; ++change)
            {
                const std::size_t region = std::min<std::size_t>(damaged.size(), round % 3 == 0 ? damaged.size() : 256);
                const std::size_t offset = random() % region;
                damaged[round % 2 == 0 ? offset : damaged.size() - 1 - offset] = static_cast<unsigned char>(random());
            }
            writeBytes(folder.getPath("damaged"), damaged);
            try
            {
                ReadLimits limits;
                limits.maxBytes = std::uint64_t{64} << 20;
                const Picture picture = readPicture(folder.getPath("damaged"), limits);
                EXPECT_EQ(picture.planes.size(), picture.shape.getNbPlanes());
            }
            catch (const ToolError& error)
            {
                EXPECT_NE(std::string(error.what()).find(folder.getPath("damaged")), std::string::npos);
            }
        }
    }
}

TEST(HostileFile, nothingIsPrintedByTheFileLibraries)
{
    const TestFolder folder;
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    for (const char* name : {"a.tif", "a.png", "a.jpg"})
    {
        const Bytes whole = makeFile(folder, name);
        for (std::size_t length = 10; length < whole.size(); length += 97)
        {
            writeBytes(folder.getPath("cut"), Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
            readError(folder.getPath("cut"));
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}
} // namespace kovis::tool::test
