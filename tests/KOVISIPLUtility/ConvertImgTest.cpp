#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISBaseProcessing/ProcessorFactory.h"
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl1.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace kovis::imaproc::util
{
namespace
{
using namespace image;
using ImagePtr = boost::shared_ptr<BaseImage>;

void convert(const ImagePtr& in, const eImageBufferType& type, const ImagePtr& out)
{
    const auto processor = ConvertImgLvl1::createProcessor();
    ASSERT_TRUE(processor->init());
    processor->set<attr::InImg>(in);
    processor->set<attr::InConvertImageBufferType>(type);
    processor->set<attr::OutImg>(out);
    processor::executeSyncRun(processor);
}

std::string getRefusal(const ImagePtr& in, const eImageBufferType& type, const ImagePtr& out)
{
    try
    {
        convert(in, type, out);
    }
    catch (const BaseException& e)
    {
        return e.what();
    }
    ADD_FAILURE() << "nothing was thrown";
    return std::string();
}

/// The value that an element has to become, worked out wide.
template <class Tout, class Tin>
Tout model(Tin value)
{
    if constexpr (std::is_same_v<Tout, float>)
    {
        return static_cast<float>(value);
    }
    else
    {
        if (std::isnan(static_cast<long double>(value)))
        {
            return 0;
        }
        const long double rounded = std::round(static_cast<long double>(value)); // half away from zero
        const long double least = std::numeric_limits<Tout>::min();
        const long double greatest = std::numeric_limits<Tout>::max();
        return static_cast<Tout>(rounded < least ? least : rounded > greatest ? greatest : rounded);
    }
}

template <class Tin>
std::vector<Tin> getSamples()
{
    using Limits = std::numeric_limits<Tin>;
    std::vector<Tin> samples{Limits::lowest(), Limits::max(), Tin(0), Tin(1), Tin(127), Limits::min()};
    std::mt19937 random(3);
    for (int i = 0; i < 190; ++i)
    {
        if constexpr (std::is_same_v<Tin, float>)
        {
            samples.push_back(std::uniform_real_distribution<float>(-300.0F, 70000.0F)(random));
        }
        else
        {
            samples.push_back(static_cast<Tin>(random()));
        }
    }
    if constexpr (std::is_same_v<Tin, float>)
    {
        for (const float value : {0.5F, -0.5F, 0.49999997F, 1.5F, 254.5F, 255.5F, -127.5F, -128.5F, 2147483648.0F, -2147483648.0F,
                                  4294967296.0F, 8388609.0F, std::numeric_limits<float>::quiet_NaN(),
                                  std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity()})
        {
            samples.push_back(value);
        }
    }
    return samples;
}

template <class Tin, class Tout>
void expectPair()
{
    const std::vector<Tin> samples = getSamples<Tin>();
    const ImagePtr in = createImage2d(samples.size(), 2, eCGT_Grey, BufferTypeOf<Tin>::g_value);
    std::copy(samples.begin(), samples.end(), planeData<Tin>(in));
    std::copy(samples.begin(), samples.end(), planeData<Tin>(in) + samples.size());
    const ImagePtr out = createImage2d(samples.size(), 2, eCGT_Grey, BufferTypeOf<Tout>::g_value);
    convert(in, BufferTypeOf<Tout>::g_value, out);
    for (std::size_t i = 0; i < 2 * samples.size(); ++i)
    {
        const Tin value = samples[i % samples.size()];
        const Tout found = planeData<Tout>(out)[i];
        if constexpr (std::is_same_v<Tin, float> && std::is_same_v<Tout, float>)
        {
            EXPECT_TRUE(found == value || (std::isnan(found) && std::isnan(value)));
        }
        else
        {
            EXPECT_EQ(found, (model<Tout, Tin>(value))) << +value;
        }
    }
}

template <class Tin>
void expectFrom()
{
    expectPair<Tin, signed char>();
    expectPair<Tin, unsigned char>();
    expectPair<Tin, short>();
    expectPair<Tin, unsigned short>();
    expectPair<Tin, int>();
    expectPair<Tin, unsigned int>();
    expectPair<Tin, float>();
}

TEST(ConvertImg, ConvertsBetweenAllElementTypes)
{
    expectFrom<signed char>();
    expectFrom<unsigned char>();
    expectFrom<short>();
    expectFrom<unsigned short>();
    expectFrom<int>();
    expectFrom<unsigned int>();
    expectFrom<float>();
}

TEST(ConvertImg, ServesAllBufferTypesChannelsSlicesAndCuts)
{
    HomogeneousImageGeometry geometry;
    ColorGeometry color;
    color.initUser(2);
    for (const eImageBufferType type : {eIBT_UInt8, eIBT_UInt8_8, eIBT_UInt8_11})
    {
        geometry.init(VolumeGeometry(2), color, TemporalGeometry(3), 31, 9, type);
        const ImagePtr in = createImage(geometry);
        geometry.init(VolumeGeometry(2), color, TemporalGeometry(3), 31, 9, eIBT_UInt32_10);
        for (const unsigned long stripHeight : {0UL, 1UL, 4UL})
        {
            processor::setStripHeight(stripHeight);
            const ImagePtr out = createImage(geometry);
            unsigned char next = 1;
            for (unsigned long plane = 0; plane < 12; ++plane)
            {
                std::fill_n(planeData<unsigned char>(in, plane % 2, plane / 2 % 2, plane / 4), 279, next++);
            }
            convert(in, eIBT_UInt32_10, out);
            for (unsigned long plane = 0; plane < 12; ++plane)
            {
                for (unsigned long i = 0; i < 279; ++i)
                {
                    ASSERT_EQ(planeData<unsigned int>(out, plane % 2, plane / 2 % 2, plane / 4)[i], plane + 1);
                }
            }
        }
    }
    processor::setStripHeight(0);
}

TEST(ConvertImg, WritesNothingOutsideWrappedPlanes)
{
    std::vector<float> memory(67 * 3 + 2, -7.0F);
    HomogeneousImageGeometry geometry;
    geometry.init(VolumeGeometry(), geometryGrey(), TemporalGeometry(), 67, 3, eIBT_Real);
    const ImagePtr out = wrapImage(geometry, {memory.data() + 1}, boost::shared_ptr<const void>());
    convert(createImage2d(67, 3, eCGT_Grey, eIBT_UInt8), eIBT_Real, out);
    EXPECT_EQ(memory.front(), -7.0F);
    EXPECT_EQ(memory.back(), -7.0F);
    EXPECT_EQ(memory[1], 0.0F);
    EXPECT_EQ(memory[201], 0.0F);
}

TEST(ConvertImg, RefusesAnOutputOfAnotherSizeOrType)
{
    const ImagePtr in = createImage2d(5, 4, eCGT_Rgb, eIBT_UInt8);
    EXPECT_FALSE(getRefusal(in, eIBT_Real, createImage2d(5, 5, eCGT_Rgb, eIBT_Real)).empty());
    EXPECT_FALSE(getRefusal(in, eIBT_Real, createImage2d(5, 4, eCGT_Rgba, eIBT_Real)).empty());
    const std::string text = getRefusal(in, eIBT_Real, createImage2d(5, 4, eCGT_Rgb, eIBT_UInt16));
    EXPECT_NE(text.find("OutImg[u16, value 4] is the one that InConvertImageBufferType[f32, value 7] asks for"),
              std::string::npos)
        << text;
    EXPECT_FALSE(getRefusal(in, eIBT_UInt8_8, createImage2d(5, 4, eCGT_Rgb, eIBT_UInt8)).empty());
    EXPECT_NE(getRefusal(in, eIBT_None, createImage2d(5, 4, eCGT_Rgb, eIBT_UInt8)).find("InConvertImageBufferType"),
              std::string::npos);
    EXPECT_NE(getRefusal(in, eIBT_Real, ImagePtr()).find("OutImg"), std::string::npos);
}

TEST(ConvertImg, IsKnownToTheFactory)
{
    for (const char* const name : {"ConvertImgLvl1", "ConvertImgLvl2", "ConvertImgLvl3"})
    {
        const std::string typeName = std::string("kovis::imaproc::util::") + name;
        const auto info = processor::ProcessorFactory::getInstance().getProcessorInfo(typeName);
        EXPECT_EQ(info.m_name, name);
        EXPECT_EQ(info.m_module, "KOVISIPLUtility");
        EXPECT_EQ(info.m_includePath, std::string("KOVISIPL/KOVISIPLUtility/") + name + ".h");
        EXPECT_EQ(info.m_creator()->getClassName(), typeName);
    }
}
} // namespace
} // namespace kovis::imaproc::util
