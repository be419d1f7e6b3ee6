#include "ColorTestImages.h"
#include "ErrorText.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISImage/HostImage.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl2.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <random>

// Whole runs of the channel append.

namespace kovis::imaproc::color
{
namespace
{
using namespace image;

unsigned char* getPlaneBytes(const BaseImage& image, unsigned long c, unsigned long z, unsigned long t)
{
    const auto& hostImage = static_cast<const HostImage&>(image);
    hostImage.prepareElements(c, z, t, 0, image.getSizeX() * image.getSizeY());
    return static_cast<unsigned char*>(hostImage.getPlane(c, z, t).m_pData);
}

/// The bytes of all channels at one Z and T, one after the other.
std::string getBytes(const BaseImage& source, unsigned long z = 0, unsigned long t = 0)
{
    std::string bytes;
    const unsigned long nbBytes = source.getSizeX() * source.getSizeY() * getElementSize(source.getBufferType());
    for (unsigned long c = 0; c < source.getSizeC(); ++c)
    {
        bytes.append(reinterpret_cast<const char*>(getPlaneBytes(source, c, z, t)), nbBytes);
    }
    return bytes;
}

/// An image whose bytes are random; so are those of float elements, NaN and infinities among them.
test::ImagePtr makeNoise(const HomogeneousImageGeometry& geometry, unsigned int seed)
{
    const test::ImagePtr made = createImage(geometry);
    std::mt19937 random(seed);
    for (unsigned long t = 0; t < made->getSizeT(); ++t)
    {
        for (unsigned long z = 0; z < made->getSizeZ(); ++z)
        {
            for (unsigned long c = 0; c < made->getSizeC(); ++c)
            {
                unsigned char* const bytes = getPlaneBytes(*made, c, z, t);
                for (unsigned long i = 0; i < made->getSizeX() * made->getSizeY() * getElementSize(made->getBufferType()); ++i)
                {
                    bytes[i] = static_cast<unsigned char>(random());
                }
            }
        }
    }
    return made;
}

test::ImagePtr makeNoise(eColorGeometryType type, eImageBufferType bufferType, unsigned int seed)
{
    return makeNoise(test::makeColorGeometry(37, 23, type, bufferType), seed);
}

void expectAppended(const BaseImage& first, const BaseImage& second, const BaseImage& out)
{
    EXPECT_EQ(out.getSizeC(), first.getSizeC() + second.getSizeC());
    for (unsigned long t = 0; t < first.getSizeT(); ++t)
    {
        for (unsigned long z = 0; z < first.getSizeZ(); ++z)
        {
            EXPECT_TRUE(getBytes(out, z, t) == getBytes(first, z, t) + getBytes(second, z, t)) << "Z " << z << ", T " << t;
        }
    }
}

TEST(AppendColorChannelImg, PutsTheFirstImagesChannelsFirst)
{
    const auto first = test::makeFilledImage<unsigned char>(5, 4, eCGT_Rgb, 10);
    const auto second = test::makeFilledImage<unsigned char>(5, 4, eCGT_Grey, 99);
    const auto out = appendColorChannelImg(first, second);
    ASSERT_EQ(out->getSizeC(), 4U);
    EXPECT_EQ(out->getColorGeometryType(), eCGT_User); // not Rgba
    EXPECT_EQ(out->getBufferType(), eIBT_UInt8);
    for (unsigned long c = 0; c < 4; ++c)
    {
        EXPECT_EQ(test::getPlanes<unsigned char>(*out)[c],
                  std::vector<unsigned char>(20, static_cast<unsigned char>(c == 3 ? 99 : 10 + c)));
    }
    const auto turned = appendColorChannelImg(second, first);
    EXPECT_EQ(planeData<unsigned char>(*turned, 0)[7], 99);
    EXPECT_EQ(planeData<unsigned char>(*turned, 3)[7], 12);
}

TEST(AppendColorChannelImg, MakesTwoChannelsOfTwoGreyImages)
{
    const auto first = makeNoise(eCGT_Grey, eIBT_UInt16, 1);
    const auto second = makeNoise(eCGT_Grey, eIBT_UInt16, 2);
    const auto out = appendColorChannelImg(first, second);
    EXPECT_EQ(out->getColorGeometryType(), eCGT_User);
    expectAppended(*first, *second, *out);
    const auto third = appendColorChannelImg(out, first);
    EXPECT_EQ(third->getColorGeometryType(), eCGT_User); // nor does a third grey image make it Rgb
    expectAppended(*out, *first, *third);
}

TEST(AppendColorChannelImg, CopiesEveryBufferTypeToTheBit)
{
    for (int type = 1; type <= 11; ++type)
    {
        const auto first = makeNoise(eCGT_Rgb, static_cast<eImageBufferType>(type), 3);
        const auto second = makeNoise(eCGT_Rgba, static_cast<eImageBufferType>(type), 4);
        const auto out = appendColorChannelImg(first, second);
        EXPECT_EQ(out->getBufferType(), type);
        expectAppended(*first, *second, *out);
    }
}

TEST(AppendColorChannelImg, TakesImagesOfAllColourSpaces)
{
    for (int space = 0; space < 10; ++space)
    {
        const auto first = makeNoise(static_cast<eColorGeometryType>(space), eIBT_UInt8, 5);
        const auto second = makeNoise(eCGT_Grey, eIBT_UInt8, 6);
        const auto out = appendColorChannelImg(first, second);
        EXPECT_EQ(out->getColorGeometryType(), eCGT_User);
        EXPECT_EQ(first->getColorGeometryType(), space); // seen as another, not made one
        expectAppended(*first, *second, *out);
    }
}

TEST(AppendColorChannelImg, DoesEverySliceOfAVolumeInTime)
{
    const auto first = makeNoise(test::makeColorGeometry(5, 7, eCGT_Rgb, eIBT_Real, 3, 2), 7);
    const auto second = makeNoise(test::makeColorGeometry(5, 7, eCGT_HSV, eIBT_Real, 3, 2), 8);
    const auto out = appendColorChannelImg(first, second);
    EXPECT_EQ(out->getSizeZ(), 3U);
    EXPECT_EQ(out->getSizeT(), 2U);
    expectAppended(*first, *second, *out);
}

/// Cuts into strips of that many rows for as long as this object lives, whatever ends its scope.
struct StripHeight
{
    explicit StripHeight(unsigned long nbRows) { processor::setStripHeight(nbRows); }
    ~StripHeight() { processor::setStripHeight(0); }
    StripHeight(const StripHeight&) = delete;
    StripHeight& operator=(const StripHeight&) = delete;
};

TEST(AppendColorChannelImg, WorksAtAnyStripHeightAndSize)
{
    for (const unsigned long height : {1UL, 3UL, 0UL})
    {
        const StripHeight cut(height);
        for (const unsigned long sizeX : {1UL, 31UL, 64UL, 65UL})
        {
            for (const unsigned long sizeY : {1UL, 9UL})
            {
                const auto first = makeNoise(test::makeColorGeometry(sizeX, sizeY, eCGT_Rgb, eIBT_Int16), 9);
                const auto second = makeNoise(test::makeColorGeometry(sizeX, sizeY, eCGT_Grey, eIBT_Int16), 10);
                expectAppended(*first, *second, *appendColorChannelImg(first, second));
            }
        }
    }
}

TEST(AppendColorChannelImg, WritesIntoAGivenResultOfAnySpace)
{
    const auto first = makeNoise(eCGT_Rgb, eIBT_UInt8, 11);
    const auto second = makeNoise(eCGT_Grey, eIBT_UInt8, 12);
    const auto rgba = createImage2d(37, 23, eCGT_Rgba, eIBT_UInt8);
    appendColorChannelImg(first, second, rgba);
    EXPECT_EQ(rgba->getColorGeometryType(), eCGT_Rgba); // a given result keeps its geometry
    expectAppended(*first, *second, *rgba);
}

TEST(AppendColorChannelImg, AppendsAnImageToItself)
{
    const auto image = makeNoise(eCGT_Rgb, eIBT_UInt32, 13);
    expectAppended(*image, *image, *appendColorChannelImg(image, image));
}

TEST(AppendColorChannelImg, RunsInTheBackground)
{
    const auto first = makeNoise(eCGT_Rgb, eIBT_UInt8, 14);
    const auto second = makeNoise(eCGT_Grey, eIBT_UInt8, 15);
    const auto processor = appendColorChannelImg_async(first, second);
    EXPECT_TRUE(processor->wait());
    EXPECT_EQ(processor->getProgress(), 1.0);
    expectAppended(*first, *second, *getAsyncProcessorOutput(processor));

    const test::ImagePtr result = createImageUser2d(37, 23, 4, eIBT_UInt8);
    const auto another = appendColorChannelImg_async(first, second, result);
    EXPECT_TRUE(another->wait());
    EXPECT_EQ(getAsyncProcessorOutput(another), result);
    expectAppended(*first, *second, *result);
    EXPECT_THROW(getAsyncProcessorOutput(boost::shared_ptr<AppendColorChannelImgLvl1>()),
                 processor::KOVISBaseProcessingException);
}

using test::getError;

TEST(AppendColorChannelImg, RefusesImagesThatDoNotFit)
{
    const auto rgb = makeNoise(eCGT_Rgb, eIBT_UInt8, 16);
    const auto refuses = [&rgb](const test::ImagePtr& second, const std::string& word)
    {
        const std::string text = getError([&] { appendColorChannelImg(rgb, second); });
        EXPECT_NE(text.find(word), std::string::npos) << text;
        EXPECT_NE(text.find("InImg1"), std::string::npos) << text;
        EXPECT_NE(text.find("InImg2"), std::string::npos) << text;
    };
    refuses(createImage2d(38, 23, eCGT_Grey, eIBT_UInt8), "size");
    refuses(createImage2d(37, 22, eCGT_Grey, eIBT_UInt8), "size");
    refuses(createImage(test::makeColorGeometry(37, 23, eCGT_Grey, eIBT_UInt8, 2, 1)), "size");
    refuses(createImage(test::makeColorGeometry(37, 23, eCGT_Grey, eIBT_UInt8, 1, 2)), "size");
    // kernels for mixed types are there, but only level 3 reaches them
    refuses(createImage2d(37, 23, eCGT_Grey, eIBT_Real), "uffer type");
    refuses(createImage2d(37, 23, eCGT_Grey, eIBT_UInt8_11), "uffer type");

    const auto grey = makeNoise(eCGT_Grey, eIBT_UInt8, 17);
    EXPECT_NE(getError([&] { appendColorChannelImg(rgb, nullptr); }).find("InImg2"), std::string::npos);
}

/// What level 1 says of these images, and below what level 2 does.
std::string refuseLvl1(const test::ImagePtr& first, const test::ImagePtr& second, const test::ImagePtr& out)
{
    return getError([&] { appendColorChannelImg(first, second, out); });
}

std::string refuseLvl2(const test::ImagePtr& first, const test::ImagePtr& second, const test::ImagePtr& out)
{
    const auto processor = boost::make_shared<AppendColorChannelImgLvl2>();
    EXPECT_TRUE(processor->init());
    processor->set<attr::InSubColorImg2d1>(first);
    processor->set<attr::InSubColorImg2d2>(second);
    processor->set<attr::OutColorImg>(out);
    return getError([&] { processor::executeSyncRun(processor); });
}

const std::string g_noWords = "Exception thrown while processing message";

/// The rule of level 1, or else level 2, over images of 37 x 23 pixels: its parts, and that the first that fails is told.
class AppendRefusal : public testing::TestWithParam<bool>
{
protected:
    /// What the level says of this output.
    std::string refuse(const HomogeneousImageGeometry& geometry) const { return refuse(m_grey, geometry); }
    std::string refuse(const test::ImagePtr& second, const HomogeneousImageGeometry& geometry) const
    {
        const test::ImagePtr out = makeNoise(geometry, 30);
        const std::string before = getBytes(*out);
        const std::string text = GetParam() ? refuseLvl1(m_rgb, second, out) : refuseLvl2(m_rgb, second, out);
        EXPECT_EQ(getBytes(*out), before); // nothing is written
        return text;
    }

    /// The text is that of the part of the rule that compares the first input with this attribute.
    void expectPart(const std::string& text, const std::string& part, const std::string& attribute) const
    {
        EXPECT_NE(text.find(part + " match between input image " + (GetParam() ? "InImg1" : "InSubColorImg2d1") + " ["),
                  std::string::npos)
            << text;
        EXPECT_NE(text.find(" " + attribute + " ["), std::string::npos) << text;
    }
    std::string getSecondName() const { return GetParam() ? "InImg2" : "InSubColorImg2d2"; }

    const test::ImagePtr m_rgb = makeNoise(eCGT_Rgb, eIBT_UInt8, 31);
    const test::ImagePtr m_grey = makeNoise(eCGT_Grey, eIBT_UInt8, 32);
};
INSTANTIATE_TEST_SUITE_P(Level, AppendRefusal, testing::Values(true, false),
                         [](const auto& place) { return std::string(place.param ? "Lvl1" : "Lvl2"); });

TEST_P(AppendRefusal, TellsOfAnOutputOfAnotherSize)
{
    for (const auto& geometry :
         {test::makeUserGeometry(38, 23, 4, eIBT_UInt8), test::makeUserGeometry(37, 22, 4, eIBT_UInt8),
          test::makeUserGeometry(37, 23, 4, eIBT_UInt8, 2, 1), test::makeUserGeometry(37, 23, 4, eIBT_UInt8, 1, 2)})
    {
        expectPart(refuse(geometry), "size", "OutColorImg");
    }
}

TEST_P(AppendRefusal, TellsOfInputsAndOutputsOfAnotherBufferType)
{
    expectPart(refuse(test::makeUserGeometry(37, 23, 4, eIBT_UInt16)), "buffer type", "OutColorImg");
    expectPart(refuse(test::makeUserGeometry(37, 23, 4, eIBT_UInt8_11)), "buffer type", "OutColorImg");
    expectPart(refuse(makeNoise(eCGT_Grey, eIBT_Int8, 33), test::makeUserGeometry(37, 23, 4, eIBT_UInt8)), "buffer type",
               getSecondName());
}

TEST_P(AppendRefusal, HasNoWordsForChannels)
{
    EXPECT_EQ(refuse(test::makeUserGeometry(37, 23, 3, eIBT_UInt8)), g_noWords);
    EXPECT_EQ(refuse(test::makeUserGeometry(37, 23, 5, eIBT_UInt8)), g_noWords);
}

TEST_P(AppendRefusal, TellsOfTheFirstPartThatFails)
{
    // both sizes: that of the inputs; then size before channels, channels before types, the inputs' types before the output's
    const test::ImagePtr small = makeNoise(test::makeColorGeometry(36, 23, eCGT_Grey, eIBT_UInt8), 34);
    expectPart(refuse(small, test::makeUserGeometry(38, 23, 4, eIBT_UInt8)), "size", getSecondName());
    expectPart(refuse(test::makeUserGeometry(38, 23, 5, eIBT_UInt8)), "size", "OutColorImg");
    const test::ImagePtr real = makeNoise(eCGT_Grey, eIBT_Real, 35);
    EXPECT_EQ(refuse(test::makeUserGeometry(37, 23, 5, eIBT_UInt16)), g_noWords);
    EXPECT_EQ(refuse(real, test::makeUserGeometry(37, 23, 5, eIBT_UInt8)), g_noWords);
    expectPart(refuse(real, test::makeUserGeometry(37, 23, 4, eIBT_UInt16)), "buffer type", getSecondName());
}

/// The refusal of channels cannot be put into words: its text is never finished.
TEST(AppendColorChannelImg, FailsWithoutWordsWhereChannelsDoNotAddUp)
{
    const auto rgb = makeNoise(eCGT_Rgb, eIBT_UInt8, 18);
    const auto grey = makeNoise(eCGT_Grey, eIBT_UInt8, 19);
    for (const unsigned long nbChannels : {3UL, 5UL})
    {
        const test::ImagePtr result = createImageUser2d(37, 23, nbChannels, eIBT_UInt8);
        const std::string before = getBytes(*result);
        try
        {
            appendColorChannelImg(rgb, grey, result);
            ADD_FAILURE() << "nothing was thrown";
        }
        catch (const BaseException& e)
        {
            EXPECT_EQ(e.what(), g_noWords);
            ASSERT_TRUE(e.getCause());
            EXPECT_NE(std::string(e.getCause()->what()).find("boost::too_few_args"), std::string::npos) << e.getCause()->what();
        }
        EXPECT_EQ(getBytes(*result), before); // nothing is written

        const auto processor = appendColorChannelImg_async(rgb, grey, result);
        EXPECT_FALSE(processor->wait());
        EXPECT_EQ(processor->getState(), core::eActionState::failed);
        EXPECT_EQ(getError([&processor] { processor->getRunResult(); }), g_noWords);
    }
}

TEST(AppendColorChannelImg, TakesMemoryOfTheCallersOwn)
{
    std::vector<std::vector<short>> planes(4, std::vector<short>(15));
    for (std::size_t c = 0; c < 4; ++c)
    {
        for (std::size_t i = 0; i < 15; ++i)
        {
            planes[c][i] = static_cast<short>(100 * c + i);
        }
    }
    const auto wrap = [&planes](std::size_t first, unsigned long nbChannels)
    {
        ColorGeometry color;
        color.initUser(nbChannels);
        HomogeneousImageGeometry geometry;
        geometry.init(VolumeGeometry(), color, TemporalGeometry(), 5, 3, eIBT_Int16);
        std::vector<void*> addresses;
        for (std::size_t c = 0; c < nbChannels; ++c)
        {
            addresses.push_back(planes[first + c].data());
        }
        return wrapImage(geometry, addresses, boost::make_shared<int>(0));
    };
    // the result's first two planes are the first input's own
    const auto before = planes;
    appendColorChannelImg(wrap(0, 2), wrap(2, 1), wrap(0, 3));
    EXPECT_EQ(planes, before);
    appendColorChannelImg(wrap(3, 1), wrap(3, 1), wrap(0, 2));
    EXPECT_EQ(planes[0], before[3]);
    EXPECT_EQ(planes[1], before[3]);
}

TEST(AppendColorChannelImgLvl2, AppendsSlices)
{
    const auto first = makeNoise(eCGT_Rgb, eIBT_Real, 20);
    const auto second = makeNoise(eCGT_HSV, eIBT_Real, 21);
    const auto processor = boost::make_shared<AppendColorChannelImgLvl2>();
    ASSERT_TRUE(processor->init());
    const test::ImagePtr out = createImageUser2d(37, 23, 6, eIBT_Real);
    processor->set<attr::InSubColorImg2d1>(first);
    processor->set<attr::InSubColorImg2d2>(second);
    processor->set<attr::OutColorImg>(out);
    processor::executeSyncRun(processor);
    expectAppended(*first, *second, *out);
}
} // namespace
} // namespace kovis::imaproc::color
