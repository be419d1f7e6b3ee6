#include "ColorTestImages.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl2.h"
#include "support/RecordingAppender.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

// The range that level 1 tests before it converts by the sRGB curve.

namespace kovis::imaproc::color
{
namespace
{
using namespace image;

const std::string g_converted = "converted";
const std::string g_rangeMessage = "Error: the image values does not match the range [0, 255]";

/// What became of a conversion: the exception's message and place, or g_converted.
struct Outcome
{
    std::string m_message = g_converted;
    std::string m_function;
    std::string m_file;
};

/// Runs a conversion into an image full of -3, and looks whether it was written.
Outcome convertInto(const test::ImagePtr& in, eColorGeometryType target,
                    const std::function<void(const test::ImagePtr& out)>& conversion)
{
    const auto out = test::makeFilledImage<float>(in->getSizeX(), in->getSizeY(), target, -3.0F);
    const auto before = test::getPlanes<float>(*out);
    Outcome outcome;
    try
    {
        conversion(out);
    }
    catch (const KOVISIPLColorException& e)
    {
        outcome = {e.what(), e.getFunction(), e.getFile()};
    }
    EXPECT_EQ(test::getPlanes<float>(*out) != before, outcome.m_message == g_converted) << outcome.m_message;
    return outcome;
}

Outcome convertByLevel1(const test::ImagePtr& in, eColorGeometryType target)
{
    return convertInto(in, target, [&](const test::ImagePtr& out) { colorConvertImg(in, target, out); });
}

Outcome convertByLevel2(const test::ImagePtr& in, eColorGeometryType target)
{
    return convertInto(in, target,
                       [&](const test::ImagePtr& out)
                       {
                           const auto processor = boost::make_shared<ColorConvertImgLvl2>();
                           ASSERT_TRUE(processor->init());
                           processor->set<attr::InSubColorImg2d>(in);
                           processor->set<attr::InColorConversionTransform>(attr::createColorConversionTransform(target));
                           processor->set<attr::OutSubColorImg2d>(out);
                           processor::executeSyncRun(processor);
                       });
}

void expectRefusal(const test::ImagePtr& in, eColorGeometryType target)
{
    const Outcome outcome = convertByLevel1(in, target);
    EXPECT_EQ(outcome.m_message, g_rangeMessage);
    EXPECT_EQ(outcome.m_function, "virtual kovis::processor::RetrievalResult "
                                  "kovis::imaproc::color::ColorConvertImgLvl1::retrieveSecondProvider(const "
                                  "kovis::core::BasePriority&, kovis::core::ActionProviderPtr&)");
    EXPECT_EQ(outcome.m_file, "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl1");
}

/// That level 1 comes to level 2 with this image: it ends as level 2 does, which looks at no range. Where kernels are missing,
/// level 2 ends with the name of their family.
void expectThatLevel2Decides(const test::ImagePtr& in, eColorGeometryType target, const std::string& family)
{
    const std::string expected = convertByLevel2(in, target).m_message;
    if (expected != g_converted)
    {
        EXPECT_NE(expected.find("needs the " + family + " kernels, which this version does not have"), std::string::npos)
            << expected;
    }
    EXPECT_EQ(convertByLevel1(in, target).m_message, expected);
}

TEST(RangeTest, RefusesValuesOutside0To255AndWritesNothing)
{
    for (const eColorGeometryType target : {eCGT_XYZ, eCGT_CieLab})
    {
        const auto in = test::makeFilledImage<unsigned short>(33, 21, eCGT_Rgb, 100);
        planeData<unsigned short>(in, 2)[33 * 21 - 1] = 256;
        const test::Recording recording(getKOVISIPLColorLogger());
        expectRefusal(in, target);
        ASSERT_EQ(recording.getEvents().size(), 1U);
        EXPECT_EQ(recording.getEvents()[0].m_level, 40000);
        EXPECT_NE(recording.getEvents()[0].m_message.find(g_rangeMessage), std::string::npos);

        const auto negative = test::makeFilledImage<short>(33, 21, eCGT_Rgb, 100);
        planeData<short>(negative, 0)[17] = -1;
        expectRefusal(negative, target);

        for (const float value :
             {255.00002F, -1e-30F, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()})
        {
            SCOPED_TRACE(value);
            const auto real = test::makeFilledImage<float>(33, 21, eCGT_Rgb, 100.0F);
            planeData<float>(real, 1)[500] = value;
            expectRefusal(real, target);
        }
    }
}

TEST(RangeTest, IncludesItsBoundsAndNeverRefusesUnsignedChar)
{
    const auto in = test::makeFilledImage<float>(5, 5, eCGT_Rgb, 0.0F);
    planeData<float>(in, 1)[3] = 255.0F;
    expectThatLevel2Decides(in, eCGT_XYZ, "sRGB");
    expectThatLevel2Decides(test::makeFilledImage<unsigned char>(5, 5, eCGT_Rgb, 253), eCGT_XYZ, "sRGB");
}

TEST(RangeTest, SeesNothingPastThePlanes)
{
    const auto in = test::makeFilledImage<float>(3, 3, eCGT_Rgb, 100.0F);
    for (unsigned long c = 0; c < 3; ++c)
    {
        std::fill_n(planeData<float>(in, c) + 9, 64, 1e9F);
    }
    expectThatLevel2Decides(in, eCGT_XYZ, "sRGB");
}

TEST(RangeTest, IsNotThereForLuvAndRgba)
{
    const auto rgba = test::makeFilledImage<float>(5, 5, eCGT_Rgba, 1000.0F);
    EXPECT_EQ(convertByLevel1(rgba, eCGT_XYZ).m_message, g_converted);
    // Rgba reaches XYZ by a matrix, Rgb by the curve
    expectThatLevel2Decides(rgba, eCGT_CieLab, "Lab");
    expectThatLevel2Decides(test::makeFilledImage<float>(5, 5, eCGT_Rgb, 1000.0F), eCGT_CieLuv, "sRGB");
}

/// Where the processor's working image is.
boost::shared_ptr<processor::BaseAttribute> getWorkingAttribute(const ColorConvertImgLvl1& processor)
{
    return processor.getAttribute("OutOptWk1RealImg");
}

TEST(RangeTest, LeavesNoWorkingImageBehindARunThatFails)
{
    const auto processor = boost::make_shared<ColorConvertImgLvl1>();
    ASSERT_TRUE(processor->init());
    processor->set<attr::InColorConversionTransform>(attr::createColorConversionTransform(eCGT_XYZ));
    for (const unsigned long sizeX : {5UL, 9UL, 6UL})
    {
        // another size each time: a working image of the run before would be refused
        const auto in = test::makeFilledImage<unsigned char>(sizeX, 4, eCGT_Rgb, 100);
        const auto out = createImage2d(sizeX, 4, eCGT_XYZ, eIBT_Real);
        processor->set<attr::InColorImg>(in);
        processor->set<attr::OutColorImg>(out);
        try
        {
            processor::executeSyncRun(processor);
            // only a run that went well keeps it
            EXPECT_TRUE(getWorkingAttribute(*processor)->isUsable());
            getWorkingAttribute(*processor)->clear();
        }
        catch (const KOVISIPLColorException& e)
        {
            EXPECT_EQ(std::string(e.what()), convertByLevel2(in, eCGT_XYZ).m_message);
            EXPECT_FALSE(getWorkingAttribute(*processor)->isInitialised());
        }
        EXPECT_EQ(processor->getStorage<attr::OutColorImg>(), out);
    }
}
} // namespace
} // namespace kovis::imaproc::color
