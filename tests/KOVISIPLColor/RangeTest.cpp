#include "ColorForms.h"
#include "ColorTestImages.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl2.h"
#include "support/RecordingAppender.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <string>
#include <vector>

// The range that level 1 tests before it converts by the sRGB curve.

namespace kovis::imaproc::color
{
namespace
{
using namespace image;
using Planes = std::vector<std::vector<float>>;

const std::string g_converted = "converted";
constexpr eColorGeometryType g_measuredTargets[] = {eCGT_XYZ, eCGT_CieLab};
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

void convertByLevel2(const test::ImagePtr& in, eColorGeometryType target, const test::ImagePtr& out)
{
    const auto processor = boost::make_shared<ColorConvertImgLvl2>();
    ASSERT_TRUE(processor->init());
    processor->set<attr::InSubColorImg2d>(in);
    processor->set<attr::InColorConversionTransform>(attr::createColorConversionTransform(target));
    processor->set<attr::OutSubColorImg2d>(out);
    processor::executeSyncRun(processor);
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

/// What level 2 makes of an image: no range, no working image.
Planes convertedByLevel2(const test::ImagePtr& in, eColorGeometryType target)
{
    const auto out = createImage2d(in->getSizeX(), in->getSizeY(), target, eIBT_Real);
    convertByLevel2(in, target, out);
    return test::getPlanes<float>(*out);
}

/// That the conversion runs and gives these planes, into a result that is given and into one that the run makes.
void expectConversion(const test::ImagePtr& in, eColorGeometryType target, const Planes& expected)
{
    const auto given = test::makeFilledImage<float>(in->getSizeX(), in->getSizeY(), target, -3.0F);
    ASSERT_NO_THROW(colorConvertImg(in, target, given));
    EXPECT_EQ(test::getPlanes<float>(*given), expected);
    const auto made = colorConvertImg(in, target);
    EXPECT_EQ(made->getBufferType(), eIBT_Real);
    EXPECT_EQ(test::getPlanes<float>(*made), expected);
}

TEST(RangeTest, RefusesValuesOutside0To255AndWritesNothing)
{
    for (const eColorGeometryType target : g_measuredTargets)
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

/// Integer samples from the least to the greatest that both T and the range hold.
template <class T>
test::ImagePtr makeWholeRange(unsigned long sizeX)
{
    const auto greatest = static_cast<int>(std::min<long long>(std::numeric_limits<T>::max(), 255));
    const auto made = createImage2d(sizeX, 4, eCGT_Rgb, BufferTypeOf<T>::g_value);
    for (unsigned long c = 0; c < 3; ++c)
    {
        for (unsigned long i = 0; i < 4 * sizeX; ++i)
        {
            planeData<T>(made, c)[i] = static_cast<T>(static_cast<int>(i * (c + 1)) % (greatest + 1));
        }
        planeData<T>(made, c)[c] = static_cast<T>(greatest);
    }
    return made;
}

template <class T>
test::ImagePtr makeFloatCopy(const test::ImagePtr& source)
{
    const auto made = createImage2d(source->getSizeX(), source->getSizeY(), eCGT_Rgb, eIBT_Real);
    for (unsigned long c = 0; c < 3; ++c)
    {
        std::copy_n(planeData<T>(source, c), source->getSizeX() * source->getSizeY(), planeData<float>(made, c));
    }
    return made;
}

template <class T>
class RangeOfIntegers : public testing::Test
{
};
using IntegerTypes = testing::Types<signed char, unsigned char, short, unsigned short, int, unsigned int>;
TYPED_TEST_SUITE(RangeOfIntegers, IntegerTypes);

TYPED_TEST(RangeOfIntegers, IsConvertedWithItsBoundsByWayOfFloat)
{
    for (const eColorGeometryType target : g_measuredTargets)
    {
        const auto in = makeWholeRange<TypeParam>(65);
        expectConversion(in, target, convertedByLevel2(makeFloatCopy<TypeParam>(in), target));
    }
}

TYPED_TEST(RangeOfIntegers, IsRefusedOneBesideItsBounds)
{
    for (const eColorGeometryType target : g_measuredTargets)
    {
        for (const long long value : {-1LL, 256LL})
        {
            using Limits = std::numeric_limits<TypeParam>;
            if (value < static_cast<long long>(Limits::min()) || value > static_cast<long long>(Limits::max()))
            {
                continue;
            }
            const auto in = makeWholeRange<TypeParam>(65);
            planeData<TypeParam>(in, 2)[4 * 65 - 1] = static_cast<TypeParam>(value);
            expectRefusal(in, target);
            // level 2 looks at no range
            convertedByLevel2(in, target);
        }
    }
}

// White is at the white of XYZ, whose Y is 100, and mid grey at 21.586 of it.
TEST(RangeTest, LetsTheCurveReadSamplesAsNumbersUpTo255)
{
    const auto in = createImage2d(3, 1, eCGT_Rgb, eIBT_UInt16);
    for (unsigned long c = 0; c < 3; ++c)
    {
        planeData<unsigned short>(in, c)[0] = 255;
        planeData<unsigned short>(in, c)[1] = 128;
        planeData<unsigned short>(in, c)[2] = 1;
    }
    const Planes xyz = test::getPlanes<float>(*colorConvertImg(in, eCGT_XYZ));
    EXPECT_NEAR(xyz[0][0], 95.047F, 1e-4F);
    EXPECT_NEAR(xyz[1][0], 100.0F, 1e-4F);
    EXPECT_NEAR(xyz[2][0], 108.883F, 1e-4F);
    EXPECT_NEAR(xyz[1][1], 21.5861F, 1e-4F);
    EXPECT_NEAR(xyz[1][2], 0.0303527F, 1e-7F);
    const Planes lab = test::getPlanes<float>(*colorConvertImg(in, eCGT_CieLab));
    EXPECT_NEAR(lab[0][0], 100.0F, 1e-4F);
    EXPECT_NEAR(lab[1][0], 0.0F, 1e-3F);
    EXPECT_NEAR(lab[2][0], 0.0F, 1e-3F);
}

// The second run of level 2 reads the working image, which nobody has filled.
TEST(RangeTest, GivesAFloatImageTheConversionOfZeros)
{
    for (const eColorGeometryType target : g_measuredTargets)
    {
        const auto in = test::makeFilledImage<float>(33, 21, eCGT_Rgb, 100.5F);
        planeData<float>(in, 0)[7] = 0.0F;
        planeData<float>(in, 1)[3] = 255.0F;
        const Planes ofZeros = convertedByLevel2(createImage2d(33, 21, eCGT_Rgb, eIBT_Real), target);
        EXPECT_NE(convertedByLevel2(in, target), ofZeros);
        expectConversion(in, target, ofZeros);
    }
    const auto scaledTo1 = test::makeFilledImage<float>(33, 21, eCGT_Rgb, 0.0F);
    planeData<float>(scaledTo1, 0)[0] = 1.0F;
    EXPECT_EQ(test::getPlanes<float>(*colorConvertImg(scaledTo1, eCGT_XYZ)), Planes(3, std::vector<float>(33 * 21, 0.0F)));

    // in integers too
    const auto in = test::makeFilledImage<float>(33, 21, eCGT_Rgb, 200.0F);
    const auto out = test::makeFilledImage<unsigned char>(33, 21, eCGT_CieLab, 9);
    colorConvertImg(in, eCGT_CieLab, out);
    EXPECT_EQ(test::getPlanes<unsigned char>(*out),
              std::vector<std::vector<unsigned char>>(3, std::vector<unsigned char>(693, 0)));
}

TEST(RangeTest, SeesNothingPastThePlanes)
{
    const auto in = test::makeFilledImage<unsigned short>(3, 3, eCGT_Rgb, 100);
    const Planes expected = convertedByLevel2(in, eCGT_XYZ);
    for (unsigned long c = 0; c < 3; ++c)
    {
        std::fill_n(planeData<unsigned short>(in, c) + 9, 55, static_cast<unsigned short>(60000));
    }
    expectConversion(in, eCGT_XYZ, expected);
}

TEST(RangeTest, IsNotThereForLuvAndRgba)
{
    // Rgba reaches XYZ by a matrix, Rgb by the curve
    const auto rgba = test::makeFilledImage<float>(5, 5, eCGT_Rgba, 1000.0F);
    expectConversion(rgba, eCGT_XYZ, convertedByLevel2(rgba, eCGT_XYZ));
    expectConversion(rgba, eCGT_CieLab, convertedByLevel2(rgba, eCGT_CieLab));
    const auto rgb = test::makeFilledImage<float>(5, 5, eCGT_Rgb, 1000.0F);
    const Planes luv = convertedByLevel2(rgb, eCGT_CieLuv);
    EXPECT_GT(luv[0][0], 100.0F);
    expectConversion(rgb, eCGT_CieLuv, luv);
    const auto hsv = test::makeFilledImage<float>(5, 5, eCGT_HSV, 1000.0F);
    expectConversion(hsv, eCGT_XYZ, convertedByLevel2(hsv, eCGT_XYZ));
}

/// Where the processor's working image is.
boost::shared_ptr<attr::OutOptWk1RealImg> getWorkingAttribute(const ColorConvertImgLvl1& processor)
{
    return boost::static_pointer_cast<attr::OutOptWk1RealImg>(processor.getAttribute("OutOptWk1RealImg"));
}

boost::shared_ptr<ColorConvertImgLvl1> makeLevel1(const test::ImagePtr& in, eColorGeometryType target)
{
    const auto processor = boost::make_shared<ColorConvertImgLvl1>();
    EXPECT_TRUE(processor->init());
    processor->set<attr::InColorConversionTransform>(attr::createColorConversionTransform(target));
    processor->set<attr::InColorImg>(in);
    return processor;
}

TEST(RangeTest, LeavesTheWorkingImageInItsAttributeAfterAGoodRun)
{
    const auto in = test::makeFilledImage<unsigned char>(9, 4, eCGT_Rgb, 100);
    const auto processor = makeLevel1(in, eCGT_CieLab);
    // one that the caller gave is replaced, and no pixel of it is read or written
    const auto given = test::makeFilledImage<float>(9, 4, eCGT_Rgb, 7.0F);
    getWorkingAttribute(*processor)->init(given);
    processor::executeSyncRun(processor);
    const auto working = getWorkingAttribute(*processor)->getStorage();
    ASSERT_TRUE(working);
    EXPECT_NE(working, given);
    EXPECT_EQ(test::getPlanes<float>(*given), test::getPlanes<float>(*test::makeFilledImage<float>(9, 4, eCGT_Rgb, 7.0F)));
    EXPECT_EQ(test::getPlanes<float>(*working), test::getPlanes<float>(*test::makeFilledImage<float>(9, 4, eCGT_Rgb, 100.0F)));
    EXPECT_EQ(test::getPlanes<float>(*processor->getStorage<attr::OutColorImg>()), convertedByLevel2(in, eCGT_CieLab));

    // ... where the next run's input has to match it
    processor->set<attr::InColorImg>(test::makeFilledImage<unsigned char>(6, 4, eCGT_Rgb, 100));
    processor->set<attr::OutColorImg>(createImage2d(6, 4, eCGT_CieLab, eIBT_Real));
    EXPECT_THROW(processor::executeSyncRun(processor), BaseException);
    getWorkingAttribute(*processor)->clear();
    EXPECT_NO_THROW(processor::executeSyncRun(processor));

    // a pair that is not measured has none
    const auto other = makeLevel1(in, eCGT_CieLuv);
    processor::executeSyncRun(other);
    EXPECT_FALSE(getWorkingAttribute(*other)->isInitialised());
}

TEST(RangeTest, LeavesNoWorkingImageBehindARunThatFails)
{
    const auto processor = makeLevel1(test::makeFilledImage<unsigned char>(5, 4, eCGT_Rgb, 100), eCGT_XYZ);
    // another size each time: a working image of the run before would be refused
    for (const unsigned long sizeX : {5UL, 9UL, 6UL})
    {
        processor->set<attr::InColorImg>(test::makeFilledImage<unsigned char>(sizeX, 4, eCGT_Rgb, 100));
        const auto out = createImage2d(sizeX, 4, eCGT_XYZ, eIBT_Real);
        processor->set<attr::OutColorImg>(out);
        {
            // no kernel has these sets: the third step fails, with the working image made and filled
            const test::ForcedForm forced({nullptr, eInstructionSet::eIS_AVX512, eInstructionSet::eIS_AVX512});
            try
            {
                processor::executeSyncRun(processor);
                ADD_FAILURE() << "a kernel ran that is not there";
            }
            catch (const BaseException& e)
            {
                EXPECT_NE(std::string(e.what()).find("there is no kernel for data types"), std::string::npos) << e.what();
            }
        }
        EXPECT_FALSE(getWorkingAttribute(*processor)->isInitialised());
        EXPECT_EQ(processor->getStorage<attr::OutColorImg>(), out);
    }
    processor::executeSyncRun(processor);
    EXPECT_TRUE(getWorkingAttribute(*processor)->isUsable());
}
} // namespace
} // namespace kovis::imaproc::color
