#include "KOVIS/KOVISSerialization/BaseArchive.h"
#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"
#include "KOVIS/KOVISSerialization/SerializationItem.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"
#include "support/RecordingAppender.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace kovis
{
namespace
{
/// Writes down what it is asked for.
class ListOArchive : public BaseOArchive
{
public:
    void beginSection(const std::string& sectionName) override { m_lines.push_back("begin " + sectionName); }
    void endSection() override
    {
        m_lines.push_back("end");
        if (m_bFailAtEnd)
        {
            throw std::runtime_error("disk full");
        }
    }
    void writeItem(const std::string& key, const ArchiveValue& value) override
    {
        m_lines.push_back(key + "=" + std::to_string(std::get<unsigned int>(value)));
    }

    std::vector<std::string> m_lines;
    bool m_bFailAtEnd = false;
};

class ConstantIArchive : public BaseIArchive
{
public:
    void beginSection(const std::string&) override {}
    void endSection() override {}
    void readItem(const std::string& key, ArchiveValue& value) override
    {
        m_key = key;
        value = 7U;
    }

    std::string m_key;
};
} // namespace

TEST(BaseArchive, keepsTheVersionsOfClasses)
{
    ListOArchive archive;
    EXPECT_FALSE(archive.isClassVersionRegistred("kovis::X"));
    EXPECT_EQ(0u, archive.getRegisterClassVersion("kovis::X"));
    archive.registerClassVersion("kovis::X", 0);
    EXPECT_TRUE(archive.isClassVersionRegistred("kovis::X"));
    archive.registerClassVersion("kovis::X", 3);
    EXPECT_EQ(3u, archive.getRegisterClassVersion("kovis::X"));
    EXPECT_FALSE(archive.isClassVersionRegistred("kovis::Y"));
    EXPECT_FALSE(ListOArchive().isClassVersionRegistred("kovis::X"));
}

TEST(BaseArchive, aSectionIsOpenForTheLifeOfItsManager)
{
    ListOArchive archive;
    const unsigned int version = 1;
    {
        const ArchiveSectionManager section(archive, "kovis::X");
        archive << SerializationOItem<unsigned int>{"version", &version} << SerializationOItem<unsigned int>{"again", &version};
    }
    EXPECT_EQ((std::vector<std::string>{"begin kovis::X", "version=1", "again=1", "end"}), archive.m_lines);
}

TEST(BaseArchive, aSectionClosesOnTheWayOutOfAnException)
{
    ListOArchive archive;
    archive.m_bFailAtEnd = true;
    const test::Recording recording(getKOVISSerializationLogger());
    try
    {
        const ArchiveSectionManager section(archive, "kovis::X");
        throw std::logic_error("first");
    }
    catch (const std::logic_error& e)
    {
        EXPECT_STREQ("first", e.what());
    }
    EXPECT_EQ((std::vector<std::string>{"begin kovis::X", "end"}), archive.m_lines);
    ASSERT_EQ(1u, recording.getEvents().size());
    EXPECT_EQ("A section of an archive could not be closed: disk full", recording.getEvents()[0].m_message);
    EXPECT_EQ("KOVIS/KOVISSerialization/BaseArchive", recording.getEvents()[0].m_file);
}

TEST(SerializationItem, readsIntoItsValue)
{
    ConstantIArchive archive;
    unsigned int value = 0;
    archive >> SerializationIItem<unsigned int>{"version", &value};
    EXPECT_EQ(7u, value);
    EXPECT_EQ("version", archive.m_key);
}

TEST(SerializationItem, withoutAValueIsAnError)
{
    ListOArchive out;
    EXPECT_THROW((out << SerializationOItem<unsigned int>{"version", nullptr}), KOVISSerializationException);
    EXPECT_TRUE(out.m_lines.empty());
    ConstantIArchive in;
    try
    {
        in >> SerializationIItem<unsigned int>{"version", nullptr};
        FAIL() << "nothing was thrown";
    }
    catch (const KOVISSerializationException& e)
    {
        EXPECT_STREQ("Item \"version\" has no place for its value: give the address of a variable", e.what());
    }
}

TEST(SerializationMessages, number25TakesTwoNumbersAndAName)
{
    const test::Recording recording(getKOVISSerializationLogger());
    try
    {
        throwMessage<KOVISSerializationException>(getKOVISSerializationLogMessageManager(), getKOVISSerializationLogger(),
                                                  "N5kovis26eKOVISSerializationMessage6domainE", 25, SourcePlace{"f", "F.cpp", 1},
                                                  2u, 1u, "kovis::X");
        FAIL() << "nothing was thrown";
    }
    catch (const KOVISSerializationException& e)
    {
        EXPECT_STREQ(
            "The archive holds version 2, newer than version 1 of this library, of class kovis::X: read it with a newer library",
            e.what());
    }
    EXPECT_EQ(1u, recording.getEvents().size());
    EXPECT_EQ("KOVIS.KOVISSerialization", getKOVISSerializationLogger().getName());
    EXPECT_EQ("KOVISSerialization", getKOVISSerializationLogMessageManager().getName());
    EXPECT_EQ(16ul, getKOVISSerializationLogMessageManager().getNbMessages("N5kovis26eKOVISSerializationMessage6domainE"));
}
} // namespace kovis
