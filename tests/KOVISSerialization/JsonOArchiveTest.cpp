#include "KOVIS/KOVISSerialization/JsonOArchive.h"
#include "KOVIS/KOVISSerialization/JsonIArchive.h"
#include "KOVIS/KOVISSerialization/SerializationItem.h"
#include "KOVISSerialization/getRefusal.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <vector>

namespace kovis
{
using test::getRefusal;

TEST(JsonOArchive, WritesSectionsInOrderAndItemsByTheirKeys)
{
    std::ostringstream stream;
    JsonOArchive archive(stream);
    {
        const int target = -3;
        const std::string words = "a \"quoted\" word";
        const std::vector<float> matrix = {0.5F, -0.0F, 0.299F};
        {
            const ArchiveSectionManager outer(archive, "outer");
            archive << SerializationOItem<int>{"target", &target};
            const ArchiveSectionManager inner(archive, "inner");
            archive << SerializationOItem<std::vector<float>>{"matrix", &matrix};
        }
        const ArchiveSectionManager outer(archive, "outer");
        archive << SerializationOItem<std::string>{"words", &words};
    }
    archive.finish();
    EXPECT_EQ(stream.str(), R"([
{
 "section": "outer",
 "items": {
  "target": -3
 },
 "sections": [
  {
   "section": "inner",
   "items": {
    "matrix": [
     0.5,
     -0.0,
     0.299
    ]
   }
  }
 ]
},
{
 "section": "outer",
 "items": {
  "words": "a \"quoted\" word"
 }
}
]
)");
}

TEST(JsonOArchive, RefusesWhatCouldNotBeRead)
{
    std::ostringstream stream;
    JsonOArchive archive(stream);
    const int one = 1;
    EXPECT_EQ(getRefusal(
                  [&] {
                      (archive << SerializationOItem<int>{"k", &one});
                  }),
              "The archive is used wrongly: an item is to be written outside all sections; open one by ArchiveSectionManager");
    EXPECT_EQ(getRefusal([&] { archive.endSection(); }),
              "The archive is used wrongly: a section is to be closed, and none is open; use ArchiveSectionManager");
    EXPECT_EQ(getRefusal([&] { archive.beginSection("\xff"); }),
              "The archive cannot take the outermost level: names, keys and texts are UTF-8");
    archive.beginSection("s");
    archive << SerializationOItem<int>{"k", &one};
    EXPECT_EQ(getRefusal(
                  [&] {
                      (archive << SerializationOItem<int>{"k", &one});
                  }),
              "The archive cannot take section \"s\", key \"k\": the key stands there already");
    const std::string notUtf8("\xc3");
    EXPECT_EQ(getRefusal(
                  [&] {
                      (archive << SerializationOItem<std::string>{"t", &notUtf8});
                  }),
              "The archive cannot take section \"s\", key \"t\": names, keys and texts are UTF-8");
    const std::string longText(4097, 'x');
    EXPECT_EQ(getRefusal(
                  [&] {
                      (archive << SerializationOItem<std::string>{"t", &longText});
                  }),
              "The archive cannot take section \"s\", key \"t\": a name, key or text has at most 4096 bytes");
    const std::vector<float> tooMany((1UL << 20) + 1);
    EXPECT_EQ(getRefusal(
                  [&] {
                      (archive << SerializationOItem<std::vector<float>>{"l", &tooMany});
                  }),
              "The archive cannot take section \"s\", key \"l\": an archive holds at most 1048576 numbers in lists");
    for (int depth = 1; depth < 16; ++depth)
    {
        archive.beginSection("s");
    }
    EXPECT_NE(getRefusal([&] { archive.beginSection("s"); }).find("at most 16 sections stand in each other"), std::string::npos);
    EXPECT_NE(getRefusal([&] { archive.finish(); }).find("close all sections first"), std::string::npos);
}

TEST(JsonOArchive, WritesAsMuchAsCanBeRead)
{
    // as deep as can be, the longest numbers that there are
    const std::vector<float> most(1UL << 20, -1.17549435e-38F);
    std::stringstream stream;
    JsonOArchive archive(stream);
    for (int depth = 0; depth < 16; ++depth)
    {
        archive.beginSection("s");
    }
    archive << SerializationOItem<std::vector<float>>{"k", &most};
    for (int depth = 0; depth < 16; ++depth)
    {
        archive.endSection();
    }
    archive.finish();
    JsonIArchive reader(stream);
    for (int depth = 0; depth < 16; ++depth)
    {
        reader.beginSection("s");
    }
    std::vector<float> read;
    reader >> SerializationIItem<std::vector<float>>{"k", &read};
    EXPECT_EQ(read, most);
}

TEST(JsonOArchive, TellsAtItsEndOfATextThatIsTooLong)
{
    std::ostringstream stream;
    JsonOArchive archive(stream);
    const std::string longText(4096, 'x');
    for (int i = 0; i < 17000; ++i)
    {
        const ArchiveSectionManager section(archive, "s");
        archive << SerializationOItem<std::string>{"t", &longText};
    }
    EXPECT_EQ(getRefusal([&] { archive.finish(); }),
              "The archive cannot take the outermost level: its text has at most 67108864 bytes");
    EXPECT_LE(stream.str().size(), 67108864U);
}

TEST(JsonOArchive, TellsOfAStreamThatFails)
{
    std::ostringstream stream;
    stream.setstate(std::ios::badbit);
    JsonOArchive archive(stream);
    EXPECT_EQ(getRefusal([&] { archive.finish(); }),
              "The archive's stream cannot be written: see that its file exists and may be used, and that the disk has room");
    std::istringstream input;
    input.setstate(std::ios::failbit);
    EXPECT_EQ(getRefusal([&] { const JsonIArchive read(input); }),
              "The archive's stream cannot be read: see that its file exists and may be used, and that the disk has room");
}

TEST(JsonOArchive, TellsOfAStreamThatThrows)
{
    const std::string failed =
        "The archive's stream cannot be written: see that its file exists and may be used, and that the disk has room";
    std::ofstream full("/dev/full");
    full.exceptions(std::ios::badbit | std::ios::failbit);
    JsonOArchive archive(full);
    for (int i = 0; i < 2; ++i)
    {
        archive.beginSection(std::string(4096, 's'));
        archive.beginSection(std::string(4096, 't'));
        archive.endSection();
        EXPECT_EQ(getRefusal([&] { archive.endSection(); }), "nothing was thrown");
    }
    EXPECT_EQ(getRefusal([&] { archive.finish(); }), failed);

    std::ofstream shortText("/dev/full"); // fails when it is flushed
    shortText.exceptions(std::ios::badbit | std::ios::failbit);
    JsonOArchive empty(shortText);
    EXPECT_EQ(getRefusal([&] { empty.finish(); }), failed);
    full.exceptions(std::ios::goodbit); // not to throw when they are closed
    shortText.exceptions(std::ios::goodbit);
}

TEST(JsonOArchive, KeepsToItsLimitsOfItemsAndSections)
{
    std::stringstream stream;
    JsonOArchive archive(stream);
    const unsigned long most = 65536;
    {
        const ArchiveSectionManager section(archive, "s");
        for (unsigned long i = 0; i < most; ++i)
        {
            archive << SerializationOItem<unsigned long>{std::to_string(i), &i};
        }
        EXPECT_EQ(getRefusal(
                      [&] {
                          (archive << SerializationOItem<unsigned long>{"more", &most});
                      }),
                  "The archive cannot take section \"s\", key \"more\": an archive holds at most 65536 items");
        for (unsigned long i = 1; i < most; ++i)
        {
            const ArchiveSectionManager inner(archive, "t");
        }
        EXPECT_EQ(getRefusal([&] { archive.beginSection("t"); }),
                  "The archive cannot take section \"s\": an archive holds at most 65536 sections");
    }
    archive.finish();
    EXPECT_EQ(stream.str().find("[\n{\n \"section\": \"s\",\n \"items\": {\n  \"0\": 0,\n  \"1\": 1,"), 0U);
    JsonIArchive reader(stream);
    const ArchiveSectionManager section(reader, "s");
    for (unsigned long i = 0; i < most; ++i)
    {
        unsigned long read = most;
        reader >> SerializationIItem<unsigned long>{std::to_string(i), &read};
        ASSERT_EQ(read, i);
    }
}

TEST(JsonOArchive, TakesNothingOnceItIsFinished)
{
    std::ostringstream stream;
    JsonOArchive archive(stream);
    archive.finish();
    EXPECT_EQ(getRefusal([&] { archive.beginSection("s"); }),
              "The archive is used wrongly: a section is to be written to an archive that is finished; finish it last");
    archive.finish();
    EXPECT_EQ(stream.str(), "[]\n");
}

TEST(JsonOArchive, EndsItsTextWhenItIsDestroyed)
{
    std::ostringstream stream;
    {
        JsonOArchive archive(stream);
        const ArchiveSectionManager section(archive, "s");
    }
    EXPECT_EQ(stream.str(), "[\n{\n \"section\": \"s\"\n}\n]\n");
}
} // namespace kovis
