// Rules on images and strips: which sizes they look at, and what they say.
#include "support/ToyImageProcessors.h"

#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISImageProcessing/BaseImageRule.h"
#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
using namespace kovis;
using namespace kovis::test;
using namespace kovis::imaproc;
using testing::HasSubstr;

boost::shared_ptr<image::BaseImage> makeImage(unsigned long sizeX, unsigned long sizeY, unsigned long sizeZ, unsigned long sizeC,
                                              unsigned long sizeT, image::eImageBufferType bufferType = image::eIBT_UInt8)
{
    image::ColorGeometry color;
    color.initUser(sizeC);
    image::HomogeneousImageGeometry geometry;
    geometry.init(image::VolumeGeometry(sizeZ), color, image::TemporalGeometry(sizeT), sizeX, sizeY, bufferType);
    return image::createImage(geometry);
}

class ImageRule : public testing::Test
{
protected:
    const boost::shared_ptr<InToyImg> m_in = boost::make_shared<InToyImg>();
    const boost::shared_ptr<OutToyImg> m_out = boost::make_shared<OutToyImg>();
};

TEST_F(ImageRule, EachMatchLooksAtItsOwnSizes)
{
    m_in->init(makeImage(4, 5, 2, 3, 2));
    struct Case
    {
        unsigned long m_sizes[5];
        bool m_bAll, m_bXYZT, m_bXY;
    };
    for (const Case& one : {Case{{4, 5, 2, 3, 2}, true, true, true}, Case{{4, 5, 2, 1, 2}, false, true, true},
                            Case{{4, 5, 3, 3, 2}, false, false, true}, Case{{4, 5, 2, 3, 1}, false, false, true},
                            Case{{5, 5, 2, 3, 2}, false, false, false}, Case{{4, 4, 2, 3, 2}, false, false, false}})
    {
        m_out->init(makeImage(one.m_sizes[0], one.m_sizes[1], one.m_sizes[2], one.m_sizes[3], one.m_sizes[4]));
        EXPECT_EQ(one.m_bAll, matchSize(m_in, m_out)->testRule());
        EXPECT_EQ(one.m_bXYZT, matchSize(static_cast<eMatchImageSizeType>(5), m_in, m_out)->testRule());
        EXPECT_EQ(one.m_bXY, matchSize(static_cast<eMatchImageSizeType>(7), m_in, m_out)->testRule());
        EXPECT_EQ(one.m_bXY, match2dSize(m_in, m_out)->testRule());
    }
    EXPECT_THROW(matchSize(static_cast<eMatchImageSizeType>(6), m_in, m_out), KOVISImageProcessingException);
}

TEST_F(ImageRule, BufferTypesAreComparedByValue)
{
    m_in->init(makeImage(4, 5, 1, 1, 1, image::eIBT_UInt8));
    for (const image::eImageBufferType type : {image::eIBT_UInt8_8, image::eIBT_UInt8_11, image::eIBT_Int8})
    {
        m_out->init(makeImage(4, 5, 1, 1, 1, type));
        EXPECT_FALSE(matchBufferType(m_in, m_out)->testRule());
    }
    EXPECT_THAT(matchBufferType(m_in, m_out)->createRuleEvaluatedString(0),
                HasSubstr("buffer type 2] and output image OutToyImg"));
    m_out->init(makeImage(9, 9, 1, 1, 1, image::eIBT_UInt8));
    EXPECT_TRUE(matchBufferType(m_in, m_out)->testRule());
}

TEST_F(ImageRule, TextsNameBothImages)
{
    EXPECT_EQ("size match between input image InToyImg and output image OutToyImg in X and Y",
              match2dSize(m_in, m_out)->createRuleFormalString());
    EXPECT_EQ("size match between input image InToyImg and output image OutToyImg in X, Y, Z, channels and T",
              matchSize(m_in, m_out)->createRuleFormalString());
    EXPECT_EQ("buffer type match between input image InToyImg and output image OutToyImg",
              matchBufferType(m_in, m_out)->createRuleFormalString());
    m_in->init(makeImage(4, 5, 2, 3, 1));
    m_out->init(makeImage(4, 6, 2, 1, 1));
    EXPECT_EQ("  size match between input image InToyImg [4 x 5 x 2, 3 channels, u8] and output image OutToyImg [4 x 6 x 2, 1 "
              "channel, u8] in X and Y",
              match2dSize(m_in, m_out)->createRuleEvaluatedString(1));
}

TEST_F(ImageRule, WithoutAnImageOrAnAttributeItThrows)
{
    const auto rule = matchSize(m_in, m_out);
    EXPECT_THROW(rule->testRule(), KOVISImageProcessingException);
    boost::shared_ptr<InToyImg> gone = boost::make_shared<InToyImg>();
    const auto ruleOfGone = matchSize(gone, m_out);
    gone.reset();
    EXPECT_THROW(ruleOfGone->testRule(), processor::KOVISBaseProcessingException);
    EXPECT_THROW(ruleOfGone->createRuleEvaluatedString(0), processor::KOVISBaseProcessingException);
}

TEST_F(ImageRule, StripsMatchByPlanarSizeAndBufferType)
{
    const auto in = boost::make_shared<InToyStrip>();
    const auto out = boost::make_shared<OutToyStrip>();
    EXPECT_THROW(matchPlanarSize(in, out)->testRule(), KOVISImageProcessingException);
    EXPECT_EQ(image::eIBT_None, in->getImageBufferType());
    EXPECT_THROW(in->getBaseImageYStripColor2d(), KOVISImageProcessingException);
    in->init(image::makeInputStrip(makeImage(8, 9, 1, 3, 1, image::eIBT_UInt8), 0, 4));
    out->init(image::makeOutputStrip(makeImage(8, 5, 1, 1, 1, image::eIBT_UInt8_8), 1, 4));
    EXPECT_TRUE(matchPlanarSize(in, out)->testRule());
    EXPECT_FALSE(matchBufferType(in, out)->testRule());
    EXPECT_EQ("buffer type match between input strip InToyStrip [8 x 4, 3 channels, u8, buffer type 2] and output strip "
              "OutToyStrip [8 x 4, 1 "
              "channel, u8, buffer type 8]",
              matchBufferType(in, out)->createRuleEvaluatedString(0));
    out->init(image::makeOutputStrip(makeImage(8, 5, 1, 1, 1, image::eIBT_UInt8), 1, 3));
    EXPECT_FALSE(matchPlanarSize(in, out)->testRule());
    EXPECT_TRUE(matchBufferType(in, out)->testRule());
    EXPECT_EQ("size match between input strip InToyStrip and output strip OutToyStrip in X and Y",
              matchPlanarSize(in, out)->createRuleFormalString());
}

/// A rule of its own on whatever two attributes.
template <class TBase>
class OwnRule : public TBase
{
public:
    bool testRule() const override
    {
        if constexpr (std::is_base_of_v<BaseStripRule, TBase>)
        {
            return this->getStripAttribute1() != nullptr && this->getStripAttribute2() != nullptr;
        }
        else
        {
            return this->getImageAttribute1() != nullptr && this->getImageAttribute2() != nullptr;
        }
    }
    std::string createRuleFormalString() const override { return "own"; }
    std::string createRuleEvaluatedString(unsigned int) const override { return "own"; }
};

TEST_F(ImageRule, BasesTellTheirKindAndRefuseOtherAttributes)
{
    const auto strip = boost::make_shared<InToyStrip>();
    const boost::weak_ptr<const processor::BaseAttribute> image1(m_in);
    const boost::weak_ptr<const processor::BaseAttribute> strip1(strip);
    OwnRule<BaseImagePropertyRule> imageRule;
    imageRule.initBase(image1, image1);
    EXPECT_TRUE(imageRule.testRule());
    EXPECT_EQ(processor::eART_Image, imageRule.getAttributeRuleType());
    imageRule.initBase(image1, strip1);
    EXPECT_THROW(imageRule.testRule(), KOVISImageProcessingException);
    OwnRule<BaseRuleMatchStripRange> stripRule;
    stripRule.initBase(strip1, strip1);
    EXPECT_TRUE(stripRule.testRule());
    EXPECT_EQ(4, stripRule.getAttributeRuleType());
    stripRule.initBase(strip1, image1);
    EXPECT_THROW(stripRule.testRule(), KOVISImageProcessingException);
    EXPECT_EQ(4, OwnRule<BaseRuleMatchImageRange>().getAttributeRuleType());
    EXPECT_EQ(4, OwnRule<BaseRuleMatchScalarToImageSize>().getAttributeRuleType());
}
} // namespace
