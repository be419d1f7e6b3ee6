#include "ColorTestImages.h"

#include "KOVIS/KOVISImage/getFormatedName.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorImg.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorYStrip2d.h"
#include "KOVISIPL/KOVISIPLAttributes/OutColorImg.h"
#include "KOVISIPL/KOVISIPLAttributes/OutColorYStrip2d.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils.h"
#include "support/RecordingAppender.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

namespace kovis::imaproc::color
{
namespace
{
boost::shared_ptr<attr::InColorConversionTransform> makeTransform(int target, std::size_t nbValues)
{
    const auto node = boost::make_shared<attr::ColorConversionTransform>();
    node->setTarget(target);
    node->setMatrix(std::vector<float>(nbValues, 0.5F));
    const auto attribute = boost::make_shared<attr::InColorConversionTransform>();
    attribute->init(node);
    return attribute;
}

/// The attributes of a rule, over whole images or over strips of them.
struct Parts
{
    Parts(const test::ImagePtr& in, const test::ImagePtr& out, int target, std::size_t nbValues)
        : m_in(boost::make_shared<attr::InColorImg>()),
          m_out(boost::make_shared<attr::OutColorImg>()),
          m_inStrip(boost::make_shared<attr::InColorYStrip2d>()),
          m_outStrip(boost::make_shared<attr::OutColorYStrip2d>()),
          m_transform(makeTransform(target, nbValues))
    {
        m_in->init(in);
        m_out->init(out);
        m_inStrip->init(image::makeInputStrip(in, 0, 2));
        m_outStrip->init(image::makeOutputStrip(out, 0, 2));
    }
    boost::shared_ptr<processor::BaseRule> getImageRule() const { return matchColorSpace(m_in, m_out, m_transform); }
    boost::shared_ptr<processor::BaseRule> getStripRule() const { return matchColorSpace(m_inStrip, m_outStrip, m_transform); }

    boost::shared_ptr<attr::InColorImg> m_in;
    boost::shared_ptr<attr::OutColorImg> m_out;
    boost::shared_ptr<attr::InColorYStrip2d> m_inStrip;
    boost::shared_ptr<attr::OutColorYStrip2d> m_outStrip;
    boost::shared_ptr<attr::InColorConversionTransform> m_transform;
};

test::ImagePtr makeImage(image::eColorGeometryType type)
{
    return image::createImage2d(4, 3, type, image::eIBT_UInt8);
}
test::ImagePtr makeUserImage(unsigned long nbChannels)
{
    return image::createImageUser2d(4, 3, nbChannels, image::eIBT_UInt8);
}

void expectRule(const Parts& parts, bool bHolds)
{
    EXPECT_EQ(parts.getImageRule()->testRule(), bHolds) << parts.getImageRule()->createRuleEvaluatedString(0);
    EXPECT_EQ(parts.getStripRule()->testRule(), bHolds);
}

TEST(RuleMatchColorSpace, AsksForTheTargetSpace)
{
    expectRule({makeImage(image::eCGT_Rgb), makeImage(image::eCGT_HSV), image::eCGT_HSV, 0}, true);
    expectRule({makeImage(image::eCGT_Rgb), makeImage(image::eCGT_Rgb), image::eCGT_HSV, 0}, false);
}

TEST(RuleMatchColorSpace, AcceptsEverySourceSpace)
{
    for (int source = 0; source < 10; ++source)
    {
        for (int target = 0; target < 10; ++target)
        {
            expectRule({makeImage(static_cast<image::eColorGeometryType>(source)),
                        makeImage(static_cast<image::eColorGeometryType>(target)), target, 5},
                       true);
        }
    }
    expectRule({makeUserImage(2), makeImage(image::eCGT_Rgb), image::eCGT_Rgb, 1}, true);
}

TEST(RuleMatchColorSpace, AsksForTheShapeOfAUserMatrix)
{
    expectRule({makeImage(image::eCGT_Rgb), makeUserImage(2), image::eCGT_User, 8}, true);
    expectRule({makeImage(image::eCGT_Rgb), makeUserImage(2), image::eCGT_User, 9}, false);
    expectRule({makeImage(image::eCGT_Rgb), makeUserImage(2), image::eCGT_User, 0}, false);
    expectRule({makeUserImage(1), makeUserImage(1), image::eCGT_User, 2}, true);
}

TEST(RuleMatchColorSpace, ReadsATargetOutOfRangeAsGrey)
{
    for (const int target : {11, -1, 1000000})
    {
        const Parts parts(makeImage(image::eCGT_Rgb), makeImage(image::eCGT_Grey), target, 3);
        expectRule(parts, true);
        EXPECT_NE(parts.getImageRule()->createRuleEvaluatedString(0).find("[with target eCGT_Grey and matrix size 3]"),
                  std::string::npos);
        expectRule({makeImage(image::eCGT_Rgb), makeImage(image::eCGT_Rgb), target, 3}, false);
    }
}

TEST(RuleMatchColorSpace, SpeaksOfImagesForImagesAndStripsAlike)
{
    const Parts parts(makeImage(image::eCGT_Rgb), makeUserImage(2), image::eCGT_User, 9);
    EXPECT_EQ(parts.getImageRule()->createRuleFormalString(),
              "Color space match between input image InColorImg, output image OutColorImg and color conversion matrix attribute "
              "InColorConversionTransform");
    EXPECT_EQ(parts.getStripRule()->createRuleFormalString(), "Color space match between input image InColorYStrip2d, output "
                                                              "image OutColorYStrip2d and color conversion matrix attribute "
                                                              "InColorConversionTransform");
    for (const unsigned int indentation : {0U, 3U})
    {
        const auto rule = parts.getImageRule();
        EXPECT_EQ(rule->createRuleEvaluatedString(indentation),
                  rule->createRuleEvaluatedStartString(indentation) + "Color space match between input image InColorImg[" +
                      getFormatedName(parts.m_in->getImage(), image::eFT_Short) +
                      " with value eCGT_Rgb], output image OutColorImg[" +
                      getFormatedName(parts.m_out->getImage(), image::eFT_Short) +
                      " with value eCGT_User] and color conversion matrix attribute InColorConversionTransform[with target "
                      "eCGT_User and "
                      "matrix size 9]");
    }
    EXPECT_EQ(parts.getStripRule()->createRuleEvaluatedString(0),
              parts.getStripRule()->createRuleEvaluatedStartString(0) + "Color space match between input image InColorYStrip2d[" +
                  getFormatedName(parts.m_inStrip->getBaseImageYStripColor2d(), image::eFT_Short) +
                  " with value eCGT_Rgb], output image OutColorYStrip2d[" +
                  getFormatedName(parts.m_outStrip->getBaseImageYStripColor2d(), image::eFT_Short) +
                  " with value eCGT_User] and color conversion matrix attribute InColorConversionTransform[with target eCGT_User "
                  "and matrix "
                  "size 9]");
}

TEST(RuleMatchColorSpace, IsAMixedAttributeRule)
{
    const Parts parts(makeImage(image::eCGT_Rgb), makeImage(image::eCGT_Rgb), image::eCGT_Rgb, 0);
    const auto rule = boost::dynamic_pointer_cast<processor::BaseAttributeRule>(parts.getImageRule());
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->getAttributeRuleType(), 4);
    EXPECT_EQ(rule->getRuleType(), processor::eRT_Attribute);
}

TEST(RuleMatchColorSpace, ThrowsWhenTheTransformAttributeIsGone)
{
    Parts parts(makeImage(image::eCGT_Rgb), makeImage(image::eCGT_Rgb), image::eCGT_Rgb, 0);
    const auto rule = parts.getImageRule();
    const auto stripRule = parts.getStripRule();
    EXPECT_EQ(parts.m_transform.use_count(), 1);
    parts.m_transform.reset();
    const test::Recording recording(getKOVISIPLColorLogger());
    int nbThrown = 0;
    const auto expectThrow = [&nbThrown](const auto& call)
    {
        try
        {
            call();
        }
        catch (const KOVISIPLColorException& e)
        {
            ++nbThrown;
            EXPECT_STREQ(e.what(), "Attribute weak pointer has expired, can't get it");
            EXPECT_EQ(e.getFile(), "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils");
            EXPECT_NE(
                e.getFunction().find("RuleMatchColorSpace<ImageAttributeType>::getColorConversionTransformAttribute() const"),
                std::string::npos);
        }
    };
    expectThrow([&] { rule->testRule(); });
    expectThrow([&] { rule->createRuleFormalString(); });
    expectThrow([&] { rule->createRuleEvaluatedString(0); });
    expectThrow([&] { stripRule->testRule(); });
    EXPECT_EQ(nbThrown, 4);
    EXPECT_EQ(recording.getEvents().size(), 4U);
    EXPECT_EQ(recording.getEvents()[0].m_level, 40000);
}
} // namespace
} // namespace kovis::imaproc::color
