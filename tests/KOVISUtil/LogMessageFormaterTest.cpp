#include "KOVIS/KOVISUtil/LogMessageFormater.h"
#include "KOVIS/KOVISUtil/BaseException.h"

#include <gtest/gtest.h>

namespace kovis
{
struct eFormaterTestMessage
{
    enum domain
    {
        eFM_Plain = 0,
        eFM_TwoStrings = 1,
        eFM_Number = 2,
        eFM_Broken = 3,
        eFM_Percent = 4
    };
};

namespace
{
const char* const g_key = "N5kovis20eFormaterTestMessage6domainE";

const LogMessageManager& getManager()
{
    LogMessageManager& manager = *LogMessageManager::getInstance("FormaterTest");
    manager.addMessage(g_key, eFormaterTestMessage::eFM_Plain, "plain");
    manager.addMessage(g_key, eFormaterTestMessage::eFM_TwoStrings, "first %s[second %s]");
    manager.addMessage(g_key, eFormaterTestMessage::eFM_Number, "range [%d, %d]");
    manager.addMessage(g_key, eFormaterTestMessage::eFM_Broken, "bad %");
    manager.addMessage(g_key, eFormaterTestMessage::eFM_Percent, "100%% of %s");
    return manager;
}
} // namespace

TEST(LogMessageFormater, formatsStringsAndNumbers)
{
    LogMessageFormater strings(getManager());
    EXPECT_EQ("first a[second b]", (strings.setMsgId(g_key, 1) % std::string("a") % "b").string());
    LogMessageFormater numbers(getManager());
    EXPECT_EQ("range [0, 255]", (numbers.setMsgId(g_key, 2) % 0 % 255u).string());
    LogMessageFormater plain(getManager());
    EXPECT_EQ("plain", plain.setMsgId(g_key, 0).string());
    LogMessageFormater percent(getManager());
    EXPECT_EQ("100% of x", (percent.setMsgId(g_key, 4) % "x").string());
}

TEST(LogMessageFormater, takesAnEnumeratorByTheNameOfItsType)
{
    LogMessageFormater formater(getManager());
    EXPECT_EQ("first a[second b]", (formater[eFormaterTestMessage::eFM_TwoStrings] % "a" % "b").string());
}

TEST(LogMessageFormater, anArgumentMayHoldFormatSigns)
{
    LogMessageFormater formater(getManager());
    EXPECT_EQ("first %s[second 5%]", (formater.setMsgId(g_key, 1) % "%s" % "5%").string());
}

TEST(LogMessageFormater, putsTheStreamBeforeTheMessage)
{
    LogMessageFormater alone(getManager());
    EXPECT_EQ("", alone.string());
    alone << "text " << 3;
    EXPECT_EQ("text 3", alone.string());

    LogMessageFormater both(getManager());
    both.setMsgId(g_key, 0);
    both << "before, ";
    EXPECT_EQ("before, plain", both.string());
}

TEST(LogMessageFormater, refusesTooFewAndTooManyArguments)
{
    LogMessageFormater few(getManager());
    few.setMsgId(g_key, 1) % "a";
    EXPECT_THROW(few.string(), boost::io::too_few_args);

    LogMessageFormater many(getManager());
    many.setMsgId(g_key, 0);
    EXPECT_THROW(many % "a", boost::io::too_many_args);

    LogMessageFormater none(getManager());
    EXPECT_THROW(none % "a", boost::io::too_many_args);
}

TEST(LogMessageFormater, refusesABrokenText)
{
    LogMessageFormater formater(getManager());
    EXPECT_THROW(formater.setMsgId(g_key, 3), boost::io::bad_format_string);
}

TEST(LogMessageFormater, refusesAnUnknownNumber)
{
    LogMessageFormater formater(getManager());
    EXPECT_THROW(formater.setMsgId(g_key, 99), KOVISUtilException);
    EXPECT_THROW(formater.setMsgId("nothing", 0), KOVISUtilException);
    EXPECT_EQ("", formater.string());
}

TEST(LogMessageFormater, anArgumentAfterPrintingBeginsAnew)
{
    LogMessageFormater formater(getManager());
    formater.setMsgId(g_key, 1) % "a" % "b";
    EXPECT_EQ("first a[second b]", formater.string());
    EXPECT_EQ("first a[second b]", formater.string());
    formater % "c" % "d";
    EXPECT_EQ("first c[second d]", formater.string());
}
} // namespace kovis
