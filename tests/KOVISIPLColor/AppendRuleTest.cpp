#include "ColorTestImages.h"

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingLog.h"
#include "KOVIS/KOVISUtil/Logging.h"
#include "KOVISIPL/KOVISIPLAttributes/InImg1.h"
#include "KOVISIPL/KOVISIPLAttributes/InImg2.h"
#include "KOVISIPL/KOVISIPLAttributes/OutColorImg.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/OutputInitializer/ColorInitializerUtils.h"
#include "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils.h"
#include "support/RecordingAppender.h"

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>
#include <gtest/gtest.h>

namespace kovis::imaproc::color
{
namespace
{
using namespace image;

/// The attributes of an append, and what is made of them.
struct Parts
{
    Parts(const test::ImagePtr& in1, const test::ImagePtr& in2, const test::ImagePtr& out = test::ImagePtr())
    {
        m_in1->init(in1);
        m_in2->init(in2);
        m_out->init(out);
        m_rule = matchAppendChannel(m_in1, m_in2, m_out);
        m_info = outputAppendColor(m_in1, m_in2);
    }
    boost::shared_ptr<attr::InImg1> m_in1 = boost::make_shared<attr::InImg1>();
    boost::shared_ptr<attr::InImg2> m_in2 = boost::make_shared<attr::InImg2>();
    boost::shared_ptr<attr::OutColorImg> m_out = boost::make_shared<attr::OutColorImg>();
    boost::shared_ptr<processor::BaseRule> m_rule;
    boost::shared_ptr<BaseCustomImageInfo> m_info;
};

test::ImagePtr makeImage(eColorGeometryType type, eImageBufferType bufferType = eIBT_UInt8)
{
    return createImage2d(4, 3, type, bufferType);
}
test::ImagePtr makeUserImage(unsigned long nbChannels)
{
    return createImageUser2d(4, 3, nbChannels, eIBT_UInt8);
}

/// The call throws an exception of this class, with this text.
template <class TException, class TCall>
void expectThrow(const TCall& call, const std::string& text)
{
    try
    {
        call();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (const TException& e)
    {
        EXPECT_EQ(e.what(), text);
    }
}

/// What the call throws is the exception of the module with this text, told in its log.
template <class TCall>
void expectGone(const TCall& call, const std::string& text, const std::string& file, const std::string& function)
{
    const test::Recording recording(getKOVISIPLColorLogger());
    try
    {
        call();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (const KOVISIPLColorException& e)
    {
        EXPECT_EQ(e.what(), text);
        EXPECT_EQ(e.getFile(), file);
        EXPECT_NE(e.getFunction().find(function), std::string::npos) << e.getFunction();
    }
    ASSERT_EQ(recording.getEvents().size(), 1U);
    EXPECT_EQ(recording.getEvents()[0].m_level, 40000);
    EXPECT_EQ(recording.getEvents()[0].m_message, text);
}

TEST(RuleMatchAppendChannel, AddsUpTheChannels)
{
    const auto rgb = makeImage(eCGT_Rgb);
    const auto grey = makeImage(eCGT_Grey);
    EXPECT_TRUE(Parts(rgb, grey, makeUserImage(4)).m_rule->testRule());
    EXPECT_TRUE(Parts(rgb, grey, makeImage(eCGT_Rgba)).m_rule->testRule()); // of whatever geometry
    EXPECT_TRUE(Parts(grey, rgb, makeUserImage(4)).m_rule->testRule());
    EXPECT_TRUE(Parts(grey, makeUserImage(2), makeImage(eCGT_Rgb)).m_rule->testRule());
    EXPECT_FALSE(Parts(rgb, grey, makeUserImage(3)).m_rule->testRule());
    EXPECT_FALSE(Parts(rgb, grey, makeUserImage(5)).m_rule->testRule());
    EXPECT_FALSE(Parts(rgb, grey, rgb).m_rule->testRule());
}

TEST(RuleMatchAppendChannel, LooksAtNothingButChannels)
{
    EXPECT_TRUE(Parts(createImage2d(4, 3, eCGT_HSV, eIBT_Real), createImage2d(9, 8, eCGT_Grey, eIBT_UInt8),
                      createImageUser2d(1, 1, 4, eIBT_Int32))
                    .m_rule->testRule());
}

TEST(RuleMatchAppendChannel, TellsItsFormalText)
{
    const Parts parts(makeImage(eCGT_Rgb), makeImage(eCGT_Grey), makeUserImage(4));
    EXPECT_EQ(parts.m_rule->createRuleFormalString(),
              "Append color match between input images InImg1 and InImg2 with output image OutColorImg");
    EXPECT_EQ(parts.m_rule->getRuleType(), processor::eRT_Attribute);
    const auto rule = boost::dynamic_pointer_cast<processor::BaseAttributeRule>(parts.m_rule);
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->getAttributeRuleType(), processor::eART_Image);
}

/// Six strings for the nine places of the text for colour spaces.
TEST(RuleMatchAppendChannel, CannotFinishItsEvaluatedText)
{
    for (const auto& out : {makeUserImage(4), makeUserImage(5)})
    {
        const Parts parts(makeImage(eCGT_Rgb), makeImage(eCGT_Grey), out);
        const test::Recording recording(getBaseLogger());
        try
        {
            const std::string text = parts.m_rule->createRuleEvaluatedString(1);
            ADD_FAILURE() << text;
        }
        catch (const BaseException& e)
        {
            EXPECT_STREQ(e.what(), "Exception thrown while processing message");
            ASSERT_TRUE(e.getCause());
            EXPECT_NE(std::string(e.getCause()->what()).find("boost::too_few_args"), std::string::npos) << e.getCause()->what();
            EXPECT_EQ(e.getFile(), "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils");
        }
        ASSERT_EQ(recording.getEvents().size(), 1U);
        const test::RecordingAppender::Event event = recording.getEvents()[0];
        EXPECT_EQ(event.m_logger, getBaseLoggerName()); // not the module's, which hands on to it
        EXPECT_EQ(event.m_level, 40000);
        EXPECT_EQ(event.m_message, "Exception thrown while processing message");
        EXPECT_EQ(event.m_file, "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils");
    }
}

/// Attributes that are there, and hold no image: told by the name of the first that is asked.
TEST(RuleMatchAppendChannel, TellsWhichAttributeHoldsNoImage)
{
    const auto rgb = makeImage(eCGT_Rgb);
    const auto grey = makeImage(eCGT_Grey);
    const test::ImagePtr none;
    const auto expectNoImage = [](const Parts& parts, const std::string& name)
    {
        const std::string text = "attribute " + name + " holds no image: set it first";
        expectThrow<KOVISImageProcessingException>([&parts] { parts.m_rule->testRule(); }, text);
        expectThrow<KOVISImageProcessingException>([&parts] { parts.m_rule->createRuleEvaluatedString(0); }, text);
        EXPECT_NE(parts.m_rule->createRuleFormalString(), ""); // asks for names alone
    };
    expectNoImage(Parts(none, grey, makeUserImage(4)), "InImg1");
    expectNoImage(Parts(rgb, none, makeUserImage(4)), "InImg2");
    expectNoImage(Parts(rgb, grey), "OutColorImg");
}

TEST(RuleMatchAppendChannel, ThrowsWhenTheSecondInputIsGone)
{
    Parts parts(makeImage(eCGT_Rgb), makeImage(eCGT_Grey), makeUserImage(4));
    EXPECT_EQ(parts.m_in2.use_count(), 1);
    parts.m_in2.reset();
    const auto expectRuleGone = [](const auto& call)
    {
        expectGone(call, "Attribute weak pointer has expired, can't get it", "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils",
                   "RuleMatchAppendChannel<ImageAttributeType>::getInput2() const [with ImageAttributeType = const "
                   "kovis::imaproc::BaseImageAttribute]");
    };
    expectRuleGone([&parts] { parts.m_rule->testRule(); });
    expectRuleGone([&parts] { parts.m_rule->createRuleFormalString(); });
    expectRuleGone([&parts] { parts.m_rule->createRuleEvaluatedString(0); });
    // ... and one that never was there
    const auto never = matchAppendChannel(parts.m_in1, boost::shared_ptr<const BaseImageAttribute>(), parts.m_out);
    expectRuleGone([&never] { never->testRule(); });
}

TEST(RuleMatchAppendChannel, KeepsNoAttributeAlive)
{
    Parts parts(makeImage(eCGT_Rgb), makeImage(eCGT_Grey), makeUserImage(4));
    EXPECT_EQ(parts.m_in1.use_count(), 1);
    EXPECT_EQ(parts.m_out.use_count(), 1);
    const auto expectRuleGone = [](const Parts& gone)
    {
        expectThrow<processor::KOVISBaseProcessingException>(
            [&gone] { gone.m_rule->testRule(); },
            "Attribute weak pointer has expired: a rule is of use only as long as its processor keeps the attributes");
    };
    parts.m_in1.reset();
    expectRuleGone(parts);
    parts.m_in1 = boost::make_shared<attr::InImg1>(); // another, which the rule does not know
    expectRuleGone(parts);
    Parts withoutOutput(makeImage(eCGT_Rgb), makeImage(eCGT_Grey), makeUserImage(4));
    withoutOutput.m_out.reset();
    expectRuleGone(withoutOutput);
}

TEST(AppendColorOutputInitializer, DescribesAUserImageWhateverTheInputsAre)
{
    for (int first = 0; first < 10; ++first)
    {
        for (int second = 0; second < 10; ++second)
        {
            const auto in1 = makeImage(static_cast<eColorGeometryType>(first), eIBT_UInt16);
            const auto in2 = makeImage(static_cast<eColorGeometryType>(second), eIBT_Real);
            const Parts parts(in1, in2);
            EXPECT_EQ(parts.m_info->getColorGeometry().getColorGeometryType(), eCGT_User);
            EXPECT_EQ(parts.m_info->getColorGeometry().getSizeC(), in1->getSizeC() + in2->getSizeC());
            EXPECT_EQ(parts.m_info->getImageBufferType(), eIBT_UInt16); // the second plays no part
        }
    }
    EXPECT_EQ(Parts(makeUserImage(2), makeUserImage(7)).m_info->getColorGeometry().getSizeC(), 9U);
}

TEST(AppendColorOutputInitializer, TakesTheShapeOfTheFirstInput)
{
    const Parts parts(createImage(test::makeColorGeometry(5, 6, eCGT_Rgb, eIBT_UInt8_11, 3, 2)), makeImage(eCGT_Grey));
    EXPECT_EQ(parts.m_info->getSizeX(), 5U);
    EXPECT_EQ(parts.m_info->getSizeY(), 6U);
    EXPECT_EQ(parts.m_info->getVolumeGeometry().getSizeZ(), 3U);
    EXPECT_EQ(parts.m_info->getTemporalGeometry().getSizeT(), 2U);
    EXPECT_EQ(parts.m_info->getImageBufferType(), eIBT_UInt8_11);
    EXPECT_TRUE(parts.m_info->isOutputInitNeeded());
    EXPECT_TRUE(parts.m_info->hasInputImage());
    EXPECT_EQ(parts.m_info->getInputImage(), parts.m_in1->getStorage());
    EXPECT_EQ(parts.m_info->getImageInitializerDistributionPolicy(), 0);
    EXPECT_EQ(parts.m_info->getImageBufferTypeVector(), std::vector<eImageBufferType>(4, eIBT_UInt8_11)); // for all channels
}

TEST(AppendColorOutputInitializer, TellsWhichAttributeHoldsNoImage)
{
    const auto expectNoImage = [](const Parts& parts, const std::string& text)
    { expectThrow<KOVISImageProcessingException>([&parts] { parts.m_info->getColorGeometry(); }, text); };
    expectNoImage(Parts(makeImage(eCGT_Rgb), test::ImagePtr()), "attribute InImg2 holds no image: set it first");
    const Parts parts(test::ImagePtr(), makeImage(eCGT_Grey));
    EXPECT_FALSE(parts.m_info->hasInputImage());
    expectNoImage(parts, "input InImg1 holds no image that another could be made after: set it first");
}

TEST(AppendColorOutputInitializer, ThrowsWhenTheSecondInputIsGone)
{
    Parts parts(makeImage(eCGT_Rgb), makeImage(eCGT_Grey));
    const auto never = outputAppendColor(parts.m_in1, boost::shared_ptr<const BaseImageAttribute>());
    EXPECT_EQ(parts.m_in2.use_count(), 1);
    parts.m_in2.reset();
    for (const auto& info : {parts.m_info, never})
    {
        expectGone([&info] { info->getColorGeometry(); }, "Input attribute weak pointer has expired, can't get it",
                   "KOVISIPL/KOVISIPLColor/OutputInitializer/ColorInitializerUtils",
                   "AppendColorOutputInitializer::getColorGeometry() const");
        EXPECT_EQ(info->getImageBufferType(), eIBT_UInt8);
    }
}
} // namespace
} // namespace kovis::imaproc::color
