#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorImg.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorYStrip2.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorYStrip2d.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorYStrip2d1.h"
#include "KOVISIPL/KOVISIPLAttributes/InConvertImageBufferType.h"
#include "KOVISIPL/KOVISIPLAttributes/InImg.h"
#include "KOVISIPL/KOVISIPLAttributes/InImg1.h"
#include "KOVISIPL/KOVISIPLAttributes/InImg2.h"
#include "KOVISIPL/KOVISIPLAttributes/InLightnessType.h"
#include "KOVISIPL/KOVISIPLAttributes/InSubColorImg2d.h"
#include "KOVISIPL/KOVISIPLAttributes/InSubColorImg2d1.h"
#include "KOVISIPL/KOVISIPLAttributes/InSubColorImg2d2.h"
#include "KOVISIPL/KOVISIPLAttributes/InSubGpuImg1.h"
#include "KOVISIPL/KOVISIPLAttributes/InSubGpuImg2.h"
#include "KOVISIPL/KOVISIPLAttributes/OutColorImg.h"
#include "KOVISIPL/KOVISIPLAttributes/OutColorYStrip2d.h"
#include "KOVISIPL/KOVISIPLAttributes/OutImg.h"
#include "KOVISIPL/KOVISIPLAttributes/OutLightImg.h"
#include "KOVISIPL/KOVISIPLAttributes/OutLightYStrip2d.h"
#include "KOVISIPL/KOVISIPLAttributes/OutOptWk1RealImg.h"
#include "KOVISIPL/KOVISIPLAttributes/OutStatsResult.h"
#include "KOVISIPL/KOVISIPLAttributes/OutSubColorImg2d.h"
#include "KOVISIPL/KOVISIPLAttributes/OutSubGpuImg.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace kovis::imaproc::attr
{
namespace
{
template <class TAttribute>
void expectIdentity(const std::string& name, bool bOutput, bool bMandatory)
{
    const TAttribute attribute;
    EXPECT_EQ(TAttribute::getObjectNameStr(), name);
    EXPECT_EQ(&TAttribute::getObjectNameStr(), &TAttribute::getObjectNameStr());
    EXPECT_FALSE(TAttribute::getToolTipStr().empty());
    EXPECT_EQ(attribute.getObjectName(), name);
    EXPECT_EQ(attribute.getToolTip(), TAttribute::getToolTipStr());
    EXPECT_EQ(TAttribute::g_bOutput, bOutput);
    EXPECT_EQ(attribute.isOutput(), bOutput);
    EXPECT_EQ(attribute.isMandatory(), bMandatory);
    EXPECT_FALSE(attribute.isInitialised());
    EXPECT_FALSE(attribute.isUsable());
}

TEST(Attributes, TellWhatTheyAre)
{
    expectIdentity<InColorImg>("InColorImg", false, true);
    expectIdentity<OutColorImg>("OutColorImg", true, true);
    expectIdentity<InImg>("InImg", false, true);
    expectIdentity<OutImg>("OutImg", true, true);
    expectIdentity<OutOptWk1RealImg>("OutOptWk1RealImg", true, false);
    expectIdentity<InSubColorImg2d>("InSubColorImg2d", false, true);
    expectIdentity<OutSubColorImg2d>("OutSubColorImg2d", true, true);
    expectIdentity<InColorYStrip2d>("InColorYStrip2d", false, true);
    expectIdentity<OutColorYStrip2d>("OutColorYStrip2d", true, true);
    expectIdentity<InImg1>("InImg1", false, true);
    expectIdentity<InImg2>("InImg2", false, true);
    expectIdentity<InSubColorImg2d1>("InSubColorImg2d1", false, true);
    expectIdentity<InSubColorImg2d2>("InSubColorImg2d2", false, true);
    expectIdentity<InSubGpuImg1>("InSubGpuImg1", false, true);
    expectIdentity<InSubGpuImg2>("InSubGpuImg2", false, true);
    expectIdentity<OutSubGpuImg>("OutSubGpuImg", true, true);
    expectIdentity<InColorYStrip2d1>("InColorYStrip2d1", false, true);
    expectIdentity<InColorYStrip2>("InColorYStrip2", false, true);
    expectIdentity<InColorConversionTransform>("InColorConversionTransform", false, true);
    expectIdentity<InConvertImageBufferType>("InConvertImageBufferType", false, true);
    expectIdentity<OutStatsResult>("OutStatsResult", true, true);
    expectIdentity<InLightnessType>("InLightnessType", false, true);
    expectIdentity<OutLightImg>("OutLightImg", true, true);
    expectIdentity<OutLightYStrip2d>("OutLightYStrip2d", true, true);
    EXPECT_EQ(InColorImg().getAttributeType(), 2);
    EXPECT_EQ(InColorImg().getImageProcessingAttributeType(), 4);
}

TEST(Attributes, HoldTheirValues)
{
    const auto image = image::createImage2d(2, 2, image::eCGT_Rgb, image::eIBT_UInt8);
    OutColorImg attribute;
    attribute.init(image);
    EXPECT_EQ(attribute.getStorage(), image);
    EXPECT_EQ(&attribute.getImage(), image.get());
    EXPECT_TRUE(attribute.isUsable());
    attribute.clear();
    EXPECT_FALSE(attribute.isInitialised());
    EXPECT_FALSE(attribute.getStorage());
    attribute.init(OutColorImg::StorageType());
    EXPECT_TRUE(attribute.isInitialised());
    EXPECT_FALSE(attribute.isUsable());
}

TEST(InConvertImageBufferType, IsUsableForABufferTypeOnly)
{
    InConvertImageBufferType attribute;
    EXPECT_EQ(attribute.getValue(), image::eIBT_None);
    for (int type = -1; type <= 12; ++type)
    {
        attribute.setValue(static_cast<image::eImageBufferType>(type));
        EXPECT_TRUE(attribute.isInitialised());
        EXPECT_EQ(attribute.isUsable(), type >= 1 && type <= 11) << type;
    }
    attribute.clear();
    EXPECT_FALSE(attribute.isInitialised());
    EXPECT_EQ(attribute.getImageProcessingAttributeType(), 1);
}

TEST(InLightnessType, TakesEveryNumberAndBeginsAtTheAverage)
{
    InLightnessType attribute;
    EXPECT_EQ(attribute.getValue(), eLT_Average);
    for (const int type : {2, 1, 0, 7})
    {
        attribute.setValue(static_cast<eLightnessType>(type));
        EXPECT_TRUE(attribute.isInitialised());
        EXPECT_TRUE(attribute.isUsable());
        EXPECT_EQ(attribute.getValue(), type);
    }
    attribute.clear();
    EXPECT_FALSE(attribute.isInitialised());
    EXPECT_EQ(attribute.getValue(), eLT_Average);
    EXPECT_EQ(attribute.getImageProcessingAttributeType(), 1);
}

TEST(InColorConversionTransform, GivesItsNodeAsWhatItIs)
{
    InColorConversionTransform attribute;
    EXPECT_THROW(attribute.getDataItemNode(), processor::KOVISBaseProcessingException);
    EXPECT_FALSE(attribute.accessDataItemNodePtr());
    const boost::shared_ptr<const ColorConversionTransform> node = createColorConversionTransform(image::eCGT_HSV);
    attribute.init(node);
    EXPECT_EQ(&attribute.getDataItemNode(), node.get());
    EXPECT_EQ(attribute.accessDataItemNodePtr(), node);
    EXPECT_EQ(attribute.getDataItemNode().getTargetGeometry(), image::eCGT_HSV);
}

TEST(ColorConversionTransform, KeepsAnyTargetAndReadsOneOutOfRangeAsGrey)
{
    ColorConversionTransform transform;
    EXPECT_EQ(transform.getTarget(), 0);
    EXPECT_TRUE(transform.getMatrix().empty());
    for (const int target : {INT_MIN, -1, 0, 1, 5, 10, 11, INT_MAX})
    {
        transform.setTarget(target);
        EXPECT_EQ(transform.getTarget(), target);
        EXPECT_EQ(transform.getTargetGeometry(), target >= 0 && target <= 10 ? target : 0);
    }
    transform.setMatrix({1.0F, 2.0F});
    EXPECT_EQ(transform.getMatrix(), (std::vector<float>{1.0F, 2.0F}));
}

TEST(StatsResult, IsAllZerosUntilItIsFilled)
{
    StatsResult result;
    EXPECT_EQ(result.getNbElements(), 0U);
    EXPECT_EQ(result.getMinimum(), 0.0);
    result.setValues(1, 2, 3, 4, 5, 6);
    EXPECT_EQ(result.getNbElements(), 1U);
    EXPECT_EQ(result.getSum(), 2.0);
    EXPECT_EQ(result.getMean(), 3.0);
    EXPECT_EQ(result.getMinimum(), 4.0);
    EXPECT_EQ(result.getMaximum(), 5.0);
    EXPECT_EQ(result.getStandardDeviation(), 6.0);
}
} // namespace
} // namespace kovis::imaproc::attr
