#include "KOVIS/KOVISUtil/LogMessageFormater.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLogMessages.h"
#include "KOVISIPL/KOVISIPLColor/OutputInitializerLogMessages.h"
#include "KOVISIPL/KOVISIPLColor/ProcessorLogMessages.h"
#include "KOVISIPL/KOVISIPLColor/RuleLogMessages.h"

#include <gtest/gtest.h>

namespace kovis::imaproc::color
{
namespace
{
void expectTable(const std::string& key, const std::vector<std::string>& texts)
{
    const LogMessageManager& manager = getKOVISIPLColorLogMessageManager();
    EXPECT_EQ(manager.getNbMessages(key), texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i)
    {
        EXPECT_EQ(manager.getMessage(key, static_cast<int>(i)), texts[i]);
    }
}

TEST(ColorMessages, StandWordForWord)
{
    expectTable("N5kovis7imaproc5color25eOutputInitializerMessage6domainE",
                {"Input attribute should not be null", "Input attribute weak pointer has expired, can't get it"});
    expectTable(
        "N5kovis7imaproc5color12eRuleMessage6domainE",
        {"Attribute weak pointer has expired, can't get it",
         "Color space match between input image %s[%s with value %s], output image %s[%s with value %s] and color conversion "
         "matrix attribute %s[with target %s and matrix size %d]",
         "Color space match between input image %s, output image %s and color conversion matrix attribute %s",
         "Append color match between input images %s and %s with output image %s",
         "Append color match between input images %s and %s with output image %s",
         "Initialize rule before trying to use its data",
         "Color space conversion between input strip %s[%s with value %s] and output strip %s[%s with value %s] is supported",
         "Color space conversion between input strip %s and output strip %s is supported"});
    expectTable("N5kovis7imaproc5color17eProcessorMessage6domainE",
                {"Level 2 algorithm: Generates a color images by merging the color channel of the two input images  on Gpu",
                 "Level 1 algorithm: Generates a color images by merging the color channel of the two input images",
                 "Level 2 algorithm: Generates a color images by merging the color channel of the two input images",
                 "Level 3 algorithm: Generates a color images by merging the color channel of the two input images",
                 "Error: the image values does not match the range [%d, %d]",
                 "Level 1 algorithm: convert a color image from a given color space to an other",
                 "Level 2 algorithm: convert a color image from a given color space to an other",
                 "Level 3 algorithm: convert a color image from a given color space to an other",
                 "Level 1 algorithm: <em>lightness computation</em> from an input RGB color image",
                 "Level 2 algorithm: <em>lightness computation</em> from an input RGB color image",
                 "Level 3 algorithm: <em>lightness computation</em> from an input RGB color image"});
    expectTable("N5kovis7imaproc5color21eKOVISIPLColorMessage6domainE", {});
}

TEST(ColorMessages, AreKeyedByTheMangledNameOfTheirDomain)
{
    EXPECT_STREQ(typeid(eRuleMessage::domain).name(), "N5kovis7imaproc5color12eRuleMessage6domainE");
    EXPECT_STREQ(typeid(eProcessorMessage::domain).name(), "N5kovis7imaproc5color17eProcessorMessage6domainE");
    EXPECT_STREQ(typeid(eOutputInitializerMessage::domain).name(), "N5kovis7imaproc5color25eOutputInitializerMessage6domainE");
}

TEST(ColorMessages, AreEnteredOnce)
{
    LogMessageManager& manager = getKOVISIPLColorLogMessageManager();
    const std::string key = "N5kovis7imaproc5color12eRuleMessage6domainE";
    const std::string original = manager.getMessage(key, 0);
    manager.addMessage(key, 0, "changed");
    EXPECT_TRUE((MessageMapRegistrator<eRuleMessage, void>::process()));
    EXPECT_TRUE((MessageMapRegistrator<eProcessorMessage, void>::process()));
    EXPECT_TRUE((MessageMapRegistrator<eOutputInitializerMessage, void>::process()));
    EXPECT_TRUE((MessageMapRegistrator<eKOVISIPLColorMessage, void>::process()));
    EXPECT_EQ(manager.getMessage(key, 0), "changed");
    manager.addMessage(key, 0, original);
}

TEST(ColorMessages, BelongToTheModulesManagerAndLogger)
{
    EXPECT_EQ(&getKOVISIPLColorLogMessageManager(), LogMessageManager::getInstance("KOVISIPLColor"));
    EXPECT_EQ(getKOVISIPLColorLoggerName(), getBaseLoggerName() + ".KOVISIPLColor");
    EXPECT_EQ(&getKOVISIPLColorLoggerName(), &getKOVISIPLColorLoggerName());
    EXPECT_EQ(getKOVISIPLColorLogger().getName(), getKOVISIPLColorLoggerName());
    EXPECT_EQ(&getKOVISIPLColorLogger(), &getKOVISIPLColorLogger());
}

TEST(ColorMessages, OfTheAppendRuleRenderAlike)
{
    LogMessageFormater third(getKOVISIPLColorLogMessageManager());
    third[eRuleMessage::eRM_AppendEvaluated] % std::string("a") % std::string("b") % std::string("c");
    LogMessageFormater fourth(getKOVISIPLColorLogMessageManager());
    fourth[eRuleMessage::eRM_AppendFormal] % std::string("a") % std::string("b") % std::string("c");
    EXPECT_EQ(third.string(), "Append color match between input images a and b with output image c");
    EXPECT_EQ(third.string(), fourth.string());
}

TEST(ColorMessages, WithTooFewArgumentsBecomeAnExceptionWithTheFormatErrorAsCause)
{
    try
    {
        throwMessage<KOVISIPLColorException>(getKOVISIPLColorLogMessageManager(), getKOVISIPLColorLogger(),
                                             eRuleMessage::eRM_ColorSpaceFormal, SourcePlace{"function", "file", 7},
                                             std::string("one"));
        FAIL();
    }
    catch (const KOVISIPLColorException&)
    {
        FAIL();
    }
    catch (const BaseException& e)
    {
        EXPECT_STREQ(e.what(), "Exception thrown while processing message");
        ASSERT_TRUE(e.getCause());
        EXPECT_EQ(e.getCause()->getMessage(), boost::io::too_few_args(0, 0).what());
    }
}
} // namespace
} // namespace kovis::imaproc::color
