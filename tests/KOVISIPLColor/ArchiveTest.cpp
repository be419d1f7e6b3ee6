#include "KOVIS/KOVISBaseProcessing/ProcessorAnatomy.h"
#include "KOVIS/KOVISSerialization/BaseArchive.h"
#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// What a processor class adds to an archive, on a class whose base has something to write.

namespace kovis::test
{
/// A base that writes and reads well, or does not.
struct ArchivedBase
{
    BoolResult write(BaseOArchive&) const { return BoolResult(m_bWorks, m_bWorks ? "" : "the base cannot write"); }
    BoolResult read(BaseIArchive&) { return BoolResult(m_bWorks, m_bWorks ? "" : "the base cannot read"); }
    bool m_bWorks = true;
};

struct Archived : ArchivedBase
{
    static const std::string& getTypeName()
    {
        static const std::string g_typeName("kovis::test::Archived");
        return g_typeName;
    }
    const std::string& getClassName() const { return getTypeName(); }
    static unsigned int getVersion() { return 1; }
};
} // namespace kovis::test

template <>
struct kovis::processor::ProcessorTraits<kovis::test::Archived>
{
    using Base = kovis::test::ArchivedBase;
    static constexpr const char* g_typeName = "kovis::test::Archived";
    static constexpr const char* g_sourcePath = "KOVIS/test/Archived";
};

namespace kovis::test
{
namespace
{
using Anatomy = processor::ProcessorAnatomy<Archived>;
using Log = std::vector<std::string>;

class Writer : public BaseOArchive
{
public:
    void beginSection(const std::string& name) override { m_log.push_back("begin " + name); }
    void endSection() override { m_log.push_back("end"); }
    void writeItem(const std::string& key, const ArchiveValue& value) override
    {
        m_log.push_back(key + " " + std::to_string(std::get<unsigned int>(value)));
    }
    Log m_log;
};

class Reader : public BaseIArchive
{
public:
    explicit Reader(unsigned int version) : m_version(version) {}
    void beginSection(const std::string& name) override { m_log.push_back("begin " + name); }
    void endSection() override { m_log.push_back("end"); }
    void readItem(const std::string& key, ArchiveValue& value) override
    {
        m_log.push_back(key);
        value = m_version;
    }
    unsigned int m_version;
    Log m_log;
};

TEST(ProcessorArchive, HoldsTheVersionOnceForTwoObjectsOfAClass)
{
    Writer writer;
    EXPECT_TRUE(Anatomy::write(Archived(), writer));
    EXPECT_TRUE(Anatomy::write(Archived(), writer));
    EXPECT_EQ(writer.m_log, (Log{"begin kovis::test::Archived", "version 1", "end"}));
    Reader reader(1);
    Archived first;
    Archived second;
    EXPECT_TRUE(Anatomy::read(first, reader, 1));
    EXPECT_TRUE(Anatomy::read(second, reader, 1));
    EXPECT_EQ(reader.m_log, (Log{"begin kovis::test::Archived", "version", "end"}));
    EXPECT_EQ(reader.getRegisterClassVersion("kovis::test::Archived"), 1U);
}

TEST(ProcessorArchive, CarriesTheBasesFailureAndAddsNothing)
{
    Archived processor;
    processor.m_bWorks = false;
    Writer writer;
    EXPECT_EQ(Anatomy::write(processor, writer).getMessage(), "the base cannot write");
    EXPECT_FALSE(Anatomy::write(processor, writer));
    Reader reader(1);
    EXPECT_EQ(Anatomy::read(processor, reader, 1).getMessage(), "the base cannot read");
    EXPECT_TRUE(writer.m_log.empty());
    EXPECT_TRUE(reader.m_log.empty());
}

TEST(ProcessorArchive, TakesAnOlderVersionAndRefusesANewerOne)
{
    Archived processor;
    Reader older(0);
    EXPECT_TRUE(Anatomy::read(processor, older, 1));
    Reader newer(2);
    try
    {
        Anatomy::read(processor, newer, 77);
        FAIL();
    }
    catch (const KOVISSerializationException& e)
    {
        EXPECT_EQ(e.getFunction(), "virtual kovis::BoolResult kovis::test::Archived::read(kovis::BaseIArchive&)");
        EXPECT_EQ(e.getFile(), "KOVIS/test/Archived");
        EXPECT_EQ(e.getLine(), 77U);
        const std::string text = e.what();
        EXPECT_NE(text.find("kovis::test::Archived"), std::string::npos) << text;
    }
    EXPECT_EQ(newer.m_log.back(), "end"); // the section is closed on the way out
    EXPECT_FALSE(newer.isClassVersionRegistred("kovis::test::Archived"));
}
} // namespace
} // namespace kovis::test
