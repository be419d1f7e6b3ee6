// The whole road: upload, tryToLaunchGpuProcess, run, download. Compiled twice, as TripleTest.cpp is.
#include "GpuFixture.h"
#include "support/GpuAppendModel.h"

#include "KOVIS/KOVISCore/BaseActionProvider.h"
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISImage/CudaImageFactory.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgGpuLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl2.h"

#include <boost/make_shared.hpp>

#include <cstring>

namespace kovis::imaproc::color
{
namespace
{
using image::BaseImage;
using ImagePtr = boost::shared_ptr<BaseImage>;

struct Sizes
{
    unsigned long m_x = 21;
    unsigned long m_y = 10;
    unsigned long m_z = 1;
    unsigned long m_t = 1;
};

ImagePtr makeImage(const Sizes& sizes, unsigned long sizeC, int bufferType)
{
    image::ColorGeometry color;
    color.initUser(sizeC);
    image::HomogeneousImageGeometry geometry;
    geometry.init(image::VolumeGeometry(sizes.m_z), color, image::TemporalGeometry(sizes.m_t), sizes.m_x, sizes.m_y,
                  static_cast<image::eImageBufferType>(bufferType));
    return image::createImage(geometry);
}

/// The bytes of a plane, whatever its type.
template <class TVisit>
void visitPlane(const BaseImage& image, unsigned long c, unsigned long z, unsigned long t, const TVisit& visit)
{
    auto* const pData = static_cast<unsigned char*>(image::detail::getPlaneData(image, image.getBufferType(), c, z, t));
    visit(pData, image.getSizeX() * image.getSizeY() * image::getElementSize(image.getBufferType()));
}

void fill(const BaseImage& image, unsigned int seed)
{
    for (unsigned long t = 0; t < image.getSizeT(); ++t)
    {
        for (unsigned long z = 0; z < image.getSizeZ(); ++z)
        {
            for (unsigned long c = 0; c < image.getSizeC(); ++c)
            {
                visitPlane(image, c, z, t,
                           [&](unsigned char* pData, std::size_t nbBytes)
                           {
                               for (std::size_t i = 0; i < nbBytes; ++i)
                               {
                                   seed = seed * 1664525U + 1013904223U;
                                   pData[i] = static_cast<unsigned char>(seed >> 24U);
                               }
                           });
            }
        }
    }
}

test::PixelValue getPixel(const BaseImage& image, unsigned long c, std::size_t index)
{
    const image::eImageBufferType type = image::getStorageType(image.getBufferType());
    test::PixelValue value{static_cast<test::PixelType>(type), 0, 0};
    visitPlane(image, c, 0, 0,
               [&](const unsigned char* pData, std::size_t)
               {
                   const auto read = [&]<class T>(T)
                   {
                       T pixel{};
                       std::memcpy(&pixel, pData + index * sizeof(T), sizeof(T));
                       return pixel;
                   };
                   switch (type)
                   {
                   case image::eIBT_Int8:
                       value.m_number = read(static_cast<signed char>(0));
                       break;
                   case image::eIBT_UInt8:
                       value.m_number = read(static_cast<unsigned char>(0));
                       break;
                   case image::eIBT_Int16:
                       value.m_number = read(static_cast<short>(0));
                       break;
                   case image::eIBT_UInt16:
                       value.m_number = read(static_cast<unsigned short>(0));
                       break;
                   case image::eIBT_Int32:
                       value.m_number = read(0);
                       break;
                   case image::eIBT_UInt32:
                       value.m_number = read(0U);
                       break;
                   default:
                       value.m_bits = read(0U);
                   }
               });
    return value;
}

/// The number of pixels of the first slice and time step that are not those of the model.
std::size_t countDifferences(const BaseImage& in1, const BaseImage& in2, const BaseImage& out)
{
    std::size_t nbDifferences = 0;
    for (unsigned long c = 0; c < out.getSizeC(); ++c)
    {
        const bool bFirst = c < in1.getSizeC();
        for (std::size_t i = 0; i < out.getSizeX() * out.getSizeY(); ++i)
        {
            const test::PixelValue source = getPixel(bFirst ? in1 : in2, bFirst ? c : c - in1.getSizeC(), i);
            const test::PixelValue expected = test::appendOnGpuModel(
                source, static_cast<test::PixelType>(image::getStorageType((bFirst ? in2 : in1).getBufferType())),
                static_cast<test::PixelType>(image::getStorageType(out.getBufferType())));
            const test::PixelValue found = getPixel(out, c, i);
            nbDifferences += found.m_number != expected.m_number || found.m_bits != expected.m_bits;
        }
    }
    return nbDifferences;
}

class GpuRoad : public test::GpuFixture
{
protected:
    void TearDown() override { core::setGpuSupportActivated(true); }

    static boost::shared_ptr<AppendColorChannelImgLvl2> makeLevel2(const ImagePtr& in1, const ImagePtr& in2, const ImagePtr& out)
    {
        const auto processor = boost::make_shared<AppendColorChannelImgLvl2>();
        EXPECT_TRUE(processor->init(processor::ePRP_Rules));
        processor->set<attr::InSubColorImg2d1>(in1);
        processor->set<attr::InSubColorImg2d2>(in2);
        processor->set<attr::OutColorImg>(out);
        return processor;
    }

    static boost::shared_ptr<test::SpyImage> makeSpy(bool bOnGpu)
    {
        return boost::make_shared<test::SpyImage>(makeImage(Sizes(), 1, 7)->getGeometry(), bOnGpu);
    }

    static processor::RetrievalResult tryLaunch(const boost::shared_ptr<AppendColorChannelImgLvl2>& processor,
                                                core::ActionProviderPtr& provider)
    {
        return processor->tryToLaunchGpuProcess(core::BasePriority(), provider);
    }
};

TEST_F(GpuRoad, AppendsImagesThatLieOnTheGpu)
{
    const ImagePtr in1 = makeImage(Sizes(), 3, 2);
    const ImagePtr in2 = makeImage(Sizes(), 1, 2);
    fill(*in1, 1);
    fill(*in2, 2);
    const auto out = image::createCudaImage(makeImage(Sizes(), 4, 2)->getGeometry());
    core::ActionProviderPtr provider;
    const processor::RetrievalResult result =
        tryLaunch(makeLevel2(image::uploadImage(*in1), image::uploadImage(*in2), out), provider);
    ASSERT_EQ(0, static_cast<int>(result.getStatus())) << result.getMessage();
    EXPECT_EQ("", result.getMessage());
    ASSERT_TRUE(provider);
    core::runProvider(provider);
    EXPECT_EQ(0U, countDifferences(*in1, *in2, *image::downloadImage(*out)));
}

// Every row of the table: eleven buffer types in each place, by the class of level 3 itself.
TEST_F(GpuRoad, EveryBufferTypeFindsItsKernel)
{
    Sizes sizes;
    sizes.m_x = 5;
    sizes.m_y = 3;
    for (int type1 = 1; type1 <= 11; ++type1)
    {
        for (int type2 = 1; type2 <= 11; ++type2)
        {
            const ImagePtr in1 = makeImage(sizes, 1, type1);
            const ImagePtr in2 = makeImage(sizes, 2, type2);
            fill(*in1, 5);
            fill(*in2, 6);
            const auto gpu1 = image::uploadImage(*in1);
            const auto gpu2 = image::uploadImage(*in2);
            for (int target = 1; target <= 11; ++target)
            {
                const auto out = image::createCudaImage(makeImage(sizes, 3, target)->getGeometry());
                const auto processor = boost::make_shared<AppendColorChannelImgGpuLvl3>();
                processor->init(processor::ePRP_Rules);
                processor->set<attr::InSubGpuImg1>(gpu1);
                processor->set<attr::InSubGpuImg2>(gpu2);
                processor->set<attr::OutSubGpuImg>(out);
                processor::executeSyncRun(processor);
                ASSERT_EQ(0U, countDifferences(*in1, *in2, *image::downloadImage(*out)))
                    << type1 << ", " << type2 << " to " << target;
            }
        }
    }
}

TEST_F(GpuRoad, WritesTheFirstSliceAndTimeStepAlone)
{
    Sizes sizes;
    sizes.m_z = 2;
    sizes.m_t = 3;
    const ImagePtr in1 = makeImage(sizes, 2, 4);
    const ImagePtr in2 = makeImage(sizes, 1, 4);
    fill(*in1, 7);
    fill(*in2, 8);
    const auto out = image::createCudaImage(makeImage(sizes, 3, 4)->getGeometry());
    core::ActionProviderPtr provider;
    ASSERT_EQ(0, tryLaunch(makeLevel2(image::uploadImage(*in1), image::uploadImage(*in2), out), provider).getStatus());
    core::runProvider(provider);
    const ImagePtr result = image::downloadImage(*out);
    EXPECT_EQ(0U, countDifferences(*in1, *in2, *result));
    std::size_t nbWritten = 0;
    for (unsigned long plane = 3; plane < 18; ++plane)
    {
        visitPlane(*result, plane % 3, plane / 3 % 2, plane / 6,
                   [&](const unsigned char* pData, std::size_t nbBytes)
                   {
                       for (std::size_t i = 0; i < nbBytes; ++i)
                       {
                           nbWritten += pData[i] != 0;
                       }
                   });
    }
    EXPECT_EQ(0U, nbWritten);
}

TEST_F(GpuRoad, OneImageInHostMemoryIsReasonEnoughAgainst)
{
    const ImagePtr host = makeImage(Sizes(), 1, 7);
    const ImagePtr gpu = image::uploadImage(*host);
    core::ActionProviderPtr provider;
    for (const auto& processor : {makeLevel2(host, gpu, gpu), makeLevel2(gpu, host, gpu), makeLevel2(gpu, gpu, host)})
    {
        const processor::RetrievalResult result = tryLaunch(processor, provider);
        EXPECT_EQ(1, static_cast<int>(result.getStatus()));
        EXPECT_EQ("", result.getMessage());
        EXPECT_FALSE(provider);
    }
}

TEST_F(GpuRoad, NothingIsAskedAfterTheFirstImageInHostMemory)
{
    const auto first = makeSpy(true);
    const auto second = makeSpy(false);
    const auto third = makeSpy(true);
    core::ActionProviderPtr provider;
    EXPECT_EQ(1, tryLaunch(makeLevel2(first, second, third), provider).getStatus());
    EXPECT_EQ(1, first->m_nbQuestions);
    EXPECT_EQ(1, second->m_nbQuestions);
    EXPECT_EQ(0, third->m_nbQuestions);
}

TEST_F(GpuRoad, SupportThatIsSwitchedOffIsReasonEnoughAgainst)
{
    EXPECT_TRUE(core::isGpuSupportActivated());
    core::setGpuSupportActivated(false);
    EXPECT_FALSE(core::isGpuSupportActivated());
    const auto spy = makeSpy(true);
    core::ActionProviderPtr provider;
    EXPECT_EQ(1, tryLaunch(makeLevel2(spy, spy, spy), provider).getStatus());
    EXPECT_EQ(0, spy->m_nbQuestions);
    // No attribute is looked at: there are none before init.
    EXPECT_EQ(1, tryLaunch(boost::make_shared<AppendColorChannelImgLvl2>(), provider).getStatus());
    EXPECT_FALSE(provider);
}

TEST_F(GpuRoad, AttributesThatAreNotSetAreRefusedInWords)
{
    core::ActionProviderPtr provider;
    const auto processor = boost::make_shared<AppendColorChannelImgLvl2>();
    EXPECT_ANY_THROW(tryLaunch(processor, provider));
    processor->init(processor::ePRP_Rules);
    processor->set<attr::InSubColorImg2d1>(image::uploadImage(*makeImage(Sizes(), 1, 7)));
    const processor::RetrievalResult result = tryLaunch(processor, provider);
    EXPECT_EQ(2, static_cast<int>(result.getStatus()));
    EXPECT_NE(std::string::npos, result.getMessage().find("OutSubGpuImg")) << result.getMessage();
    EXPECT_FALSE(provider);
}
} // namespace
} // namespace kovis::imaproc::color
