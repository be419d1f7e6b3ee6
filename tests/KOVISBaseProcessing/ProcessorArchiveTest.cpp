// What the base of all processors writes and reads, and how it fails.
#include "ProcessorTestTypes.h"

#include "KOVIS/KOVISSerialization/JsonIArchive.h"
#include "KOVIS/KOVISSerialization/JsonOArchive.h"
#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"

#include <gtest/gtest.h>

#include <sstream>

namespace
{
using namespace kovis;
using namespace kovis::test;

std::string write(const ToySyncProcessor& processor)
{
    std::ostringstream stream;
    JsonOArchive archive(stream);
    EXPECT_TRUE(processor.write(archive));
    archive.finish();
    return stream.str();
}

BoolResult read(ToySyncProcessor& processor, const std::string& text)
{
    std::istringstream stream(text);
    JsonIArchive archive(stream);
    return processor.read(archive);
}

std::string makeText(const std::string& bInitialised, const std::string& bRules)
{
    return "[\n{\n \"section\": \"kovis::processor::BaseProcessor\",\n \"items\": {\n  \"class\": \"" +
           ToySyncProcessor().getClassName() + "\",\n  \"initialised\": " + bInitialised + ",\n  \"rules\": " + bRules +
           "\n }\n}\n]\n";
}

TEST(ProcessorArchive, KeepsTheClassTheStateAndTheRulePolicy)
{
    ToySyncProcessor processor;
    EXPECT_EQ(write(processor), makeText("false", "true"));
    ASSERT_TRUE(processor.init());
    EXPECT_EQ(write(processor), makeText("true", "true"));
    ASSERT_TRUE(processor.init(processor::ePRP_NoRules));
    EXPECT_EQ(write(processor), makeText("true", "false"));
}

TEST(ProcessorArchive, InitialisesWhatItReads)
{
    ToySyncProcessor processor;
    processor.m_hooks.m_rule = boost::make_shared<ToyRule>("rule", true);
    ASSERT_TRUE(read(processor, makeText("true", "false")));
    EXPECT_TRUE(processor.isInitialised());
    EXPECT_FALSE(processor.getRule());
    ASSERT_TRUE(read(processor, makeText("false", "true")));
    EXPECT_TRUE(processor.isInitialised());
    EXPECT_TRUE(processor.getRule());
}

TEST(ProcessorArchive, PassesAFailedInitOn)
{
    ToySyncProcessor processor;
    processor.m_hooks.m_init = [] { return BoolResult(false, "out of luck"); };
    const BoolResult result = read(processor, makeText("true", "true"));
    EXPECT_FALSE(result.getResult());
    EXPECT_EQ(result.getMessage(), "out of luck");
    EXPECT_FALSE(processor.isInitialised());
}

TEST(ProcessorArchive, IsNotReadWhileARunIsUnderWay)
{
    const auto processor = makeReadyProcessor();
    BoolResult result(true);
    processor->m_hooks.m_main = [&]
    {
        result = read(*processor, makeText("true", "true"));
        return BoolResult(true);
    };
    processor::executeSyncRun(processor);
    EXPECT_FALSE(result.getResult());
    EXPECT_EQ(result.getMessage(),
              "processor ToySyncProcessor cannot be initialised while a run of it is under way: wait for its end first");
    EXPECT_TRUE(processor->m_in->getStorage()); // nothing was dropped
}

TEST(ProcessorArchive, IsRefusedForAnotherClass)
{
    std::string text = makeText("true", "true");
    const std::string name = ToySyncProcessor().getClassName();
    text.replace(text.find(name), name.size(), "kovis::Other");
    const auto processor = makeReadyProcessor();
    try
    {
        read(*processor, text);
        FAIL() << "nothing was thrown";
    }
    catch (const KOVISSerializationException& e)
    {
        EXPECT_EQ(e.getMessage(), "The archive does not fit at section \"kovis::processor::BaseProcessor\", key \"class\": a "
                                  "processor of class \"kovis::Other\" was written here, which class " +
                                      name + " cannot read: make one of that class");
    }
    EXPECT_TRUE(processor->m_in->getStorage());
}
} // namespace
