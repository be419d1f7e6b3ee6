#include "ColorTestImages.h"
#include "ErrorText.h"

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"

#include <gtest/gtest.h>

namespace kovis::imaproc::color
{
namespace
{
using namespace image;
using Transform = boost::shared_ptr<const attr::ColorConversionTransform>;

boost::shared_ptr<attr::ColorConversionTransform> makeUserTransform(const std::vector<float>& matrix)
{
    const auto transform = attr::createColorConversionTransform(eCGT_User);
    transform->setMatrix(matrix);
    return transform;
}

using test::getError;

TEST(ColorConvertImg, DoesTheSameForASpaceAndForItsTransform)
{
    const auto in = test::makeFilledImage<unsigned char>(9, 7, eCGT_Rgb, 20);
    const auto bySpace = colorConvertImg(in, eCGT_YCbCr);
    const auto byTransform = colorConvertImg(in, Transform(attr::createColorConversionTransform(eCGT_YCbCr)));
    EXPECT_EQ(bySpace->getBufferType(), eIBT_UInt8);
    EXPECT_EQ(bySpace->getColorGeometryType(), eCGT_YCbCr);
    EXPECT_EQ(test::getPlanes<unsigned char>(*bySpace), test::getPlanes<unsigned char>(*byTransform));
    EXPECT_EQ(test::getPlanes<unsigned char>(*bySpace)[0][0], 21); // 0.299 * 20 + 0.587 * 21 + 0.114 * 22 = 20.8
}

TEST(ColorConvertImg, WritesIntoTheResultThatIsGiven)
{
    const auto in = test::makeFilledImage<unsigned char>(9, 7, eCGT_Rgb, 20);
    const auto made = colorConvertImg(in, eCGT_HSV);
    EXPECT_EQ(made->getBufferType(), eIBT_Real);
    const auto given = createImage2d(9, 7, eCGT_HSV, eIBT_Real);
    colorConvertImg(in, eCGT_HSV, given);
    EXPECT_EQ(test::getPlanes<float>(*given), test::getPlanes<float>(*made));
    const auto another = createImage2d(9, 7, eCGT_HSV, eIBT_Real);
    colorConvertImg(in, Transform(attr::createColorConversionTransform(eCGT_HSV)), another);
    EXPECT_EQ(test::getPlanes<float>(*another), test::getPlanes<float>(*made));
}

TEST(ColorConvertImg, KeepsNothingOfItsProcessor)
{
    const auto in = test::makeFilledImage<unsigned char>(9, 7, eCGT_Rgb, 20);
    const auto out = colorConvertImg(in, eCGT_Grey);
    EXPECT_EQ(in.use_count(), 1);
    EXPECT_EQ(out.use_count(), 1);
}

TEST(ColorConvertImg, ConvertsVolumesAndTimeSeries)
{
    const auto in = createImage(test::makeColorGeometry(6, 5, eCGT_Rgb, eIBT_UInt8, 3, 2));
    for (unsigned long t = 0; t < 2; ++t)
    {
        for (unsigned long z = 0; z < 3; ++z)
        {
            for (unsigned long c = 0; c < 3; ++c)
            {
                std::fill_n(planeData<unsigned char>(in, c, z, t), 30, static_cast<unsigned char>(100 + 10 * z + 40 * t));
            }
        }
    }
    const auto out = colorConvertImg(in, eCGT_Grey);
    ASSERT_EQ(out->getSizeZ(), 3U);
    ASSERT_EQ(out->getSizeT(), 2U);
    for (unsigned long t = 0; t < 2; ++t)
    {
        for (unsigned long z = 0; z < 3; ++z)
        {
            for (unsigned long i = 0; i < 30; ++i)
            {
                EXPECT_NEAR(planeData<float>(out, 0, z, t)[i], static_cast<float>(100 + 10 * z + 40 * t), 1e-3F);
            }
        }
    }
}

TEST(ColorConvertImg, AppliesAUserMatrix)
{
    const auto in = test::makeFilledImage<unsigned char>(5, 4, eCGT_Rgb, 10); // 10, 11, 12
    const auto out = colorConvertImg(in, Transform(makeUserTransform({1, 0, 0, 0.5F, 2, 0, 1, -100})));
    ASSERT_EQ(out->getSizeC(), 2U);
    EXPECT_EQ(out->getColorGeometryType(), eCGT_User);
    EXPECT_EQ(test::getPlanes<float>(*out),
              (std::vector<std::vector<float>>{std::vector<float>(20, 10.5F), std::vector<float>(20, -68.0F)}));
}

TEST(ColorConvertImg, AppliesAUserMatrixWithinOneImage)
{
    // rows are written one after the other, so the second row reads what the first one wrote
    const auto image = createImageUser2d(5, 4, 2, eIBT_Real);
    std::fill_n(planeData<float>(image, 0), 20, 1.0F);
    std::fill_n(planeData<float>(image, 1), 20, 2.0F);
    colorConvertImg(image, Transform(makeUserTransform({0, 1, 0, 1, 0, 5})), image);
    EXPECT_EQ(test::getPlanes<float>(*image),
              (std::vector<std::vector<float>>{std::vector<float>(20, 2.0F), std::vector<float>(20, 7.0F)}));
}

TEST(ColorConvertImg, TruncatesWithinOneSpaceAndRoundsElsewhere)
{
    const auto in = createImage2d(3, 1, eCGT_Rgb, eIBT_Real);
    for (unsigned long c = 0; c < 3; ++c)
    {
        planeData<float>(in, c)[0] = 255.9F;
        planeData<float>(in, c)[1] = 300.0F;
        planeData<float>(in, c)[2] = -1.5F;
    }
    const auto out = createImage2d(3, 1, eCGT_Rgb, eIBT_UInt8);
    colorConvertImg(in, eCGT_Rgb, out);
    EXPECT_EQ(test::getPlanes<unsigned char>(*out), std::vector<std::vector<unsigned char>>(3, {255, 255, 0}));

    planeData<float>(in, 0)[0] = planeData<float>(in, 1)[0] = planeData<float>(in, 2)[0] = 10.9F;
    const auto rgba = createImage2d(3, 1, eCGT_Rgba, eIBT_UInt8);
    colorConvertImg(in, eCGT_Rgba, rgba);
    EXPECT_EQ(test::getPlanes<unsigned char>(*rgba)[0][0], 11);
    EXPECT_EQ(test::getPlanes<unsigned char>(*rgba)[3][0], 255);
}

TEST(ColorConvertImg, ReadsATargetOutOfRangeAsGrey)
{
    const auto in = test::makeFilledImage<unsigned char>(5, 4, eCGT_Rgb, 10);
    for (const int target : {11, -1})
    {
        const auto transform = attr::createColorConversionTransform(eCGT_Grey);
        transform->setTarget(target);
        const auto out = colorConvertImg(in, Transform(transform));
        EXPECT_EQ(out->getColorGeometryType(), eCGT_Grey);
        EXPECT_EQ(test::getPlanes<float>(*out), test::getPlanes<float>(*colorConvertImg(in, eCGT_Grey)));
    }
}

TEST(ColorConvertImg, RefusesWhatIsNull)
{
    const auto in = test::makeFilledImage<unsigned char>(5, 4, eCGT_Rgb, 10);
    EXPECT_NE(getError([] { colorConvertImg(test::ConstImagePtr(), eCGT_HSV); }).find("InColorImg"), std::string::npos);
    EXPECT_NE(getError([&] { colorConvertImg(in, Transform()); }).find("InColorConversionTransform"), std::string::npos);
    // whoever gives a result wants to see it
    EXPECT_EQ(getError([&] { colorConvertImg(in, eCGT_HSV, test::ImagePtr()); }),
              "output OutColorImg of processor ColorConvertImgLvl1 is a null pointer: set it to an object before the run, or "
              "leave it unset");
    EXPECT_FALSE(getError([] { getAsyncProcessorOutput(boost::shared_ptr<ColorConvertImgLvl1>()); }).empty());
    EXPECT_EQ(planeData<unsigned char>(in)[0], 10);
}

TEST(ColorConvertImg, RefusesAResultOfAnotherShapeOrSpace)
{
    const auto in = test::makeFilledImage<unsigned char>(5, 4, eCGT_Rgb, 10);
    const auto wrongSize = createImage2d(5, 5, eCGT_HSV, eIBT_Real);
    EXPECT_FALSE(getError([&] { colorConvertImg(in, eCGT_HSV, wrongSize); }).empty());
    const auto wrongSpace = createImage2d(5, 4, eCGT_Rgb, eIBT_Real);
    const std::string text = getError([&] { colorConvertImg(in, eCGT_HSV, wrongSpace); });
    EXPECT_NE(text.find("Color space match between input image InColorImg["), std::string::npos) << text;
    EXPECT_NE(text.find("with value eCGT_Rgb] and color conversion matrix attribute InColorConversionTransform[with target "
                        "eCGT_HSV and matrix "
                        "size 0]"),
              std::string::npos)
        << text;
    EXPECT_EQ(planeData<float>(wrongSpace)[0], 0.0F);
}

TEST(ColorConvertImg, RefusesAUserMatrixOfTheWrongLength)
{
    const auto in = test::makeFilledImage<unsigned char>(5, 4, eCGT_Rgb, 10);
    // nine values make two channels, which take eight
    EXPECT_NE(getError([&] { colorConvertImg(in, Transform(makeUserTransform(std::vector<float>(9)))); }).find("matrix size 9"),
              std::string::npos);
    EXPECT_FALSE(getError([&] { colorConvertImg(in, Transform(makeUserTransform({}))); }).empty());
    // a source of user channels with another target reads the matrix unmeasured: too short a one ends the run
    const auto user = createImageUser2d(5, 4, 2, eIBT_UInt8);
    const auto toRgb = attr::createColorConversionTransform(eCGT_Rgb);
    toRgb->setMatrix(std::vector<float>(8));
    const std::string text = getError([&] { colorConvertImg(user, Transform(toRgb)); });
    EXPECT_NE(text.find('8'), std::string::npos) << text;
    EXPECT_NE(text.find('9'), std::string::npos) << text;
    toRgb->setMatrix(std::vector<float>(10, 1.0F));
    EXPECT_EQ(test::getPlanes<float>(*colorConvertImg(user, Transform(toRgb)))[2][19], 1.0F);
}

TEST(ColorConvertImg, IsFitForTheNextRunAfterAFailureInAWorker)
{
    const auto in = test::makeFilledImage<unsigned char>(300, 200, eCGT_Rgb, 10);
    const auto user = createImageUser2d(300, 200, 5, eIBT_UInt8);
    // too short by one for the link from five channels to RGB, which only the kernels see
    const auto toHsv = attr::createColorConversionTransform(eCGT_HSV);
    toHsv->setMatrix(std::vector<float>(17));
    for (int i = 0; i < 20; ++i)
    {
        // the first one wins and reaches the caller once, unchanged
        EXPECT_THROW(colorConvertImg(user, Transform(toHsv)), KOVISIPLColorException);
        EXPECT_EQ(colorConvertImg(in, eCGT_HSV)->getSizeC(), 3U);
    }
}

TEST(ColorConvertImgAsync, GivesItsOutputWhenItIsDone)
{
    const auto in = test::makeFilledImage<unsigned char>(50, 40, eCGT_Rgb, 10);
    const auto expected = test::getPlanes<float>(*colorConvertImg(in, eCGT_HSV));
    const auto given = createImage2d(50, 40, eCGT_HSV, eIBT_Real);
    const Transform transform = attr::createColorConversionTransform(eCGT_HSV);
    for (const auto& processor : {colorConvertImg_async(in, eCGT_HSV), colorConvertImg_async(in, transform)})
    {
        ASSERT_TRUE(processor->wait());
        ASSERT_TRUE(processor->getRunResult());
        EXPECT_EQ(processor->getState(), core::eActionState::done);
        EXPECT_EQ(processor->getProgress(), 1.0);
        EXPECT_EQ(test::getPlanes<float>(*getAsyncProcessorOutput(processor)), expected);
    }
    for (const bool bSpace : {true, false})
    {
        const auto processor = bSpace ? colorConvertImg_async(in, eCGT_HSV, given) : colorConvertImg_async(in, transform, given);
        EXPECT_EQ(getAsyncProcessorOutput(processor), given); // also while it runs
        ASSERT_TRUE(processor->wait());
        EXPECT_EQ(getAsyncProcessorOutput(processor), given);
        EXPECT_EQ(test::getPlanes<float>(*given), expected);
    }
}

TEST(ColorConvertImgAsync, ShowsAFailureInItsRunResultAlone)
{
    const auto in = test::makeFilledImage<float>(50, 40, eCGT_Rgb, 1000.0F);
    const auto processor = colorConvertImg_async(in, eCGT_XYZ);
    EXPECT_FALSE(processor->wait());
    EXPECT_EQ(processor->getState(), core::eActionState::failed);
    EXPECT_THROW(processor->getRunResult(), KOVISIPLColorException);
    EXPECT_FALSE(getAsyncProcessorOutput(processor)); // what the run had made is taken out again
}

TEST(ColorConvertImgAsync, GivesNothingForAProcessorThatWasNeverRun)
{
    const auto processor = ColorConvertImgLvl1::createProcessor();
    EXPECT_THROW(getAsyncProcessorOutput(processor), processor::KOVISBaseProcessingException);
    ASSERT_TRUE(processor->init());
    EXPECT_FALSE(getAsyncProcessorOutput(processor));
}
} // namespace
} // namespace kovis::imaproc::color
