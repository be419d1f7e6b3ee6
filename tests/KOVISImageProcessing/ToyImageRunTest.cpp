// A three-level run over images: every element once, by processors of their own, at any width, strip height and number of
// threads.
#include "support/ToyImageProcessors.h"

#include "KOVIS/KOVISCore/KOVISCoreLog.h"
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVIS/KOVISImage/ImageFactory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <set>

namespace
{
using namespace kovis;
using namespace kovis::test;
using core::KOVISCoreException;
using image::BaseImage;
using testing::HasSubstr;

using ImagePtr = boost::shared_ptr<BaseImage>;

ImagePtr makeImage(unsigned long sizeX, unsigned long sizeY, unsigned long sizeZ, unsigned long sizeC, unsigned long sizeT,
                   image::eImageBufferType bufferType)
{
    image::ColorGeometry color;
    color.initUser(sizeC);
    image::HomogeneousImageGeometry geometry;
    geometry.init(image::VolumeGeometry(sizeZ), color, image::TemporalGeometry(sizeT), sizeX, sizeY, bufferType);
    return image::createImage(geometry);
}

/// The sample of the model: small, and different from plane to plane and from element to element.
template <class T>
T sampleOf(unsigned long plane, unsigned long i)
{
    return static_cast<T>((plane * 31 + i * 7 + i / 64) % 101);
}

template <class T, class TWork>
void forEachSample(BaseImage& image, const TWork& work)
{
    unsigned long plane = 0;
    for (unsigned long t = 0; t < image.getSizeT(); ++t)
    {
        for (unsigned long z = 0; z < image.getSizeZ(); ++z)
        {
            for (unsigned long c = 0; c < image.getSizeC(); ++c, ++plane)
            {
                T* const pData = image::planeData<T>(image, c, z, t);
                for (unsigned long i = 0; i < image.getSizeX() * image.getSizeY(); ++i)
                {
                    work(pData[i], sampleOf<T>(plane, i));
                }
            }
        }
    }
}

template <class T>
void fill(BaseImage& image)
{
    forEachSample<T>(image, [](T& value, T sample) { value = sample; });
}

template <class T>
unsigned long countWrong(BaseImage& image, int factor)
{
    unsigned long nbWrong = 0;
    forEachSample<T>(image, [&](T& value, T sample)
                     { nbWrong += value == static_cast<T>(sample * static_cast<T>(factor) + T(1)) ? 0 : 1; });
    return nbWrong;
}

boost::shared_ptr<ToyImgLvl1> makeLvl1(const ImagePtr& in, int factor)
{
    const auto processor = boost::make_shared<ToyImgLvl1>();
    processor->init();
    processor->set<InToyImg>(in);
    processor->set<InToyFactor>(toyValue(factor));
    return processor;
}

std::string getFailure(const boost::shared_ptr<processor::BaseProcessor>& processor)
{
    try
    {
        processor::executeSyncRun(processor);
    }
    catch (const KOVISCoreException& e)
    {
        return e.what();
    }
    return std::string();
}

class ToyImageRun : public testing::Test
{
protected:
    void SetUp() override { ToyKernelLog::get().reset(); }
    void TearDown() override
    {
        processor::setStripHeight(0);
        core::setMaxConcurrency(0);
        ToyKernelLog::get().reset();
    }
};

TEST_F(ToyImageRun, ConvertsEverySampleOfEveryPlane)
{
    const ImagePtr in = makeImage(130, 41, 3, 2, 2, image::eIBT_Real);
    fill<float>(*in);
    processor::setStripHeight(5);
    const auto processor = makeLvl1(in, 3);
    processor::executeSyncRun(processor);
    const ImagePtr out = processor->getStorage<OutToyImg>();
    ASSERT_NE(nullptr, out);
    EXPECT_EQ(0U, countWrong<float>(*out, 3));
    EXPECT_EQ(1.0, processor->getProgress());

    const ToyKernelLog& log = ToyKernelLog::get();
    // 6 slices of 9 strips each, by 54 processors.
    EXPECT_EQ(54U, log.m_infos.size());
    std::set<const void*> processors;
    for (const auto& kept : log.m_processors)
    {
        processors.insert(kept.get());
    }
    EXPECT_EQ(54U, processors.size());
    // The same object, not a copy, for every strip.
    EXPECT_THAT(log.m_factors, testing::Each(processor->getStorage<InToyFactor>().get()));
    unsigned long nbExact = 0;
    for (const processor::ProcessingInfo& info : log.m_infos)
    {
        EXPECT_EQ(0U, info.m_nbElements % 64);
        EXPECT_LE(info.m_nbExactElements, info.m_nbElements);
        nbExact += info.m_nbExactElements;
    }
    EXPECT_EQ(6U * 130 * 41, nbExact);
}

TEST_F(ToyImageRun, ResultsDoNotDependOnWidthStripHeightOrThreads)
{
    for (unsigned long sizeX = 1; sizeX <= 130; ++sizeX)
    {
        const unsigned long sizeY = 1 + sizeX % 9;
        const ImagePtr in = makeImage(sizeX, sizeY, 1, 3, 1, image::eIBT_UInt16);
        fill<unsigned short>(*in);
        for (const unsigned long stripHeight : {0UL, 1UL, 2UL, 5UL, 100UL})
        {
            for (const unsigned int nbThreads : {1U, 3U})
            {
                processor::setStripHeight(stripHeight);
                core::setMaxConcurrency(nbThreads);
                ToyKernelLog::get().reset();
                const auto processor = makeLvl1(in, 5);
                processor::executeSyncRun(processor);
                ASSERT_EQ(0U, countWrong<unsigned short>(*processor->getStorage<OutToyImg>(), 5)) << sizeX << " " << stripHeight;
                unsigned long nbExact = 0;
                for (const processor::ProcessingInfo& info : ToyKernelLog::get().m_infos)
                {
                    nbExact += info.m_nbExactElements;
                    // A strip without a block is not handed to a kernel.
                    ASSERT_LT(0U, info.m_nbElements);
                }
                ASSERT_EQ(sizeX * sizeY, nbExact) << sizeX << " " << stripHeight;
            }
        }
    }
}

TEST_F(ToyImageRun, WrappedPlanesWithoutRoomAreNeverLeft)
{
    constexpr unsigned char g_mark = 0xAB;
    for (const unsigned long sizeX : {1UL, 17UL, 64UL, 65UL, 130UL})
    {
        for (const unsigned long stripHeight : {0UL, 1UL, 3UL})
        {
            processor::setStripHeight(stripHeight);
            const unsigned long nbElements = sizeX * 7;
            std::vector<unsigned char> memory(nbElements + 64, g_mark);
            image::HomogeneousImageGeometry geometry;
            geometry.init(image::VolumeGeometry(), image::geometryGrey(), image::TemporalGeometry(), sizeX, 7, image::eIBT_UInt8);
            const ImagePtr out = image::wrapImage(geometry, {memory.data()}, boost::shared_ptr<const void>());
            std::vector<unsigned char> source(nbElements);
            const ImagePtr in = image::wrapImage(geometry, {source.data()}, boost::shared_ptr<const void>());
            fill<unsigned char>(*in);
            const auto processor = makeLvl1(in, 2);
            processor->set<OutToyImg>(out);
            processor::executeSyncRun(processor);
            EXPECT_EQ(0U, countWrong<unsigned char>(*out, 2));
            for (unsigned long i = nbElements; i < memory.size(); ++i)
            {
                ASSERT_EQ(g_mark, memory[i]);
            }
        }
    }
}

TEST_F(ToyImageRun, InputAndOutputMayBeTheSameImage)
{
    const ImagePtr both = makeImage(100, 90, 1, 1, 1, image::eIBT_UInt16);
    fill<unsigned short>(*both);
    const auto processor = makeLvl1(both, 2);
    processor->set<OutToyImg>(both);
    processor::executeSyncRun(processor);
    EXPECT_EQ(0U, countWrong<unsigned short>(*both, 2));
}

TEST_F(ToyImageRun, AnImageOfTheWrongSizeIsRefusedInWords)
{
    const auto processor = makeLvl1(makeImage(64, 32, 1, 3, 1, image::eIBT_UInt8), 2);
    const ImagePtr out = makeImage(64, 31, 1, 1, 1, image::eIBT_Real);
    processor->set<OutToyImg>(out);
    EXPECT_EQ("size match between input image InToyImg [64 x 32, 3 channels, u8] and output image OutToyImg [64 x 31, 1 channel, "
              "f32] in X, Y, Z and T",
              getFailure(processor));
    EXPECT_EQ(out, processor->getStorage<OutToyImg>());
    EXPECT_TRUE(ToyKernelLog::get().m_infos.empty());
    processor->set<OutToyImg>(makeImage(64, 32, 1, 1, 1, image::eIBT_Real));
    EXPECT_EQ("buffer type match between input image InToyImg [64 x 32, 3 channels, u8, buffer type 2] and output image "
              "OutToyImg [64 x 32, 1 "
              "channel, f32, buffer type 7]",
              getFailure(processor));
}

TEST_F(ToyImageRun, NoKernelForABufferTypeEndsTheRunAndTakesTheImageOut)
{
    const auto processor = makeLvl1(makeImage(64, 32, 1, 1, 1, image::eIBT_Int32), 2);
    EXPECT_EQ("there is no kernel for data types i32 (5)", getFailure(processor));
    EXPECT_EQ(nullptr, processor->getStorage<OutToyImg>());
}

TEST_F(ToyImageRun, AnExceptionOfAKernelArrivesOnceAndTheProcessIsFitForTheNextRun)
{
    struct OwnError
    {
        unsigned long m_nbCalls;
    };
    const ImagePtr in = makeImage(64, 200, 2, 1, 1, image::eIBT_UInt8);
    fill<unsigned char>(*in);
    processor::setStripHeight(1);
    for (int round = 0; round < 20; ++round)
    {
        ToyKernelLog::get().reset();
        ToyKernelLog::get().m_hook = [](unsigned long nbCalls) -> BoolResult
        {
            if (nbCalls >= 50)
            {
                throw OwnError{nbCalls};
            }
            return BoolResult(true);
        };
        const auto processor = makeLvl1(in, 2);
        EXPECT_THROW(processor::executeSyncRun(processor), OwnError);
        EXPECT_EQ(core::eActionState::failed, processor->getState());
        EXPECT_LT(processor->getProgress(), 1.0);
        EXPECT_EQ(nullptr, processor->getStorage<OutToyImg>());
        // What has not begun is dropped.
        EXPECT_LT(ToyKernelLog::get().m_infos.size(), 400U);

        ToyKernelLog::get().m_hook = nullptr;
        processor::executeSyncRun(processor);
        EXPECT_EQ(0U, countWrong<unsigned char>(*processor->getStorage<OutToyImg>(), 2));
    }
}

TEST_F(ToyImageRun, AFailedKernelsMessageReachesTheCaller)
{
    const auto processor = makeLvl1(makeImage(64, 64, 1, 1, 1, image::eIBT_UInt8), 2);
    ToyKernelLog::get().m_hook = [](unsigned long) { return BoolResult(false, "this kernel is out of order"); };
    EXPECT_EQ("this kernel is out of order", getFailure(processor));
    EXPECT_EQ("this kernel is out of order", processor->wait().getMessage());
}

TEST_F(ToyImageRun, CancellationStopsTheStripsAndTakesTheImageOut)
{
    const ImagePtr in = makeImage(64, 500, 4, 1, 1, image::eIBT_UInt8);
    processor::setStripHeight(1);
    const auto processor = makeLvl1(in, 2);
    std::promise<void> begun;
    std::promise<void> goOn;
    std::shared_future<void> mayGoOn = goOn.get_future().share();
    ToyKernelLog::get().m_hook = [&](unsigned long nbCalls)
    {
        if (nbCalls == 100)
        {
            begun.set_value();
        }
        if (nbCalls >= 100)
        {
            mayGoOn.wait();
        }
        return BoolResult(true);
    };
    ASSERT_TRUE(processor->run(core::eST_Asynchronous).getResult());
    begun.get_future().wait();
    EXPECT_EQ(core::eActionState::running, processor->getState());
    EXPECT_NE(nullptr, processor->getStorage<OutToyImg>());
    const double progress = processor->getProgress();
    EXPECT_GT(progress, 0.0);
    EXPECT_LT(progress, 0.2);
    processor->requestCancellation();
    goOn.set_value();
    EXPECT_THAT(processor->wait().getMessage(), HasSubstr("cancelled"));
    EXPECT_EQ(core::eActionState::cancelled, processor->getState());
    EXPECT_LT(ToyKernelLog::get().m_infos.size(), 2000U);
    EXPECT_EQ(nullptr, processor->getStorage<OutToyImg>());
}

TEST_F(ToyImageRun, MissingImagesAreNamed)
{
    const auto processor = boost::make_shared<ToyImgLvl1>();
    processor->init();
    EXPECT_EQ("input InToyImg of processor ToyImgLvl1 is not set: set it before the run", getFailure(processor));
    processor->set<InToyImg>(boost::shared_ptr<const BaseImage>());
    EXPECT_THAT(getFailure(processor), HasSubstr("input InToyImg of processor ToyImgLvl1 is a null pointer"));
}

TEST_F(ToyImageRun, ALevelCanBeDrivenByHand)
{
    const ImagePtr in = makeImage(70, 20, 1, 3, 1, image::eIBT_Real);
    fill<float>(*in);
    const ImagePtr out = makeImage(70, 20, 1, 3, 1, image::eIBT_Real);
    const auto lvl2 = boost::make_shared<ToyImgLvl2>();
    lvl2->init();
    lvl2->set<InToyImg>(in);
    lvl2->set<InToyFactor>(toyValue(4));
    EXPECT_THAT(getFailure(lvl2), HasSubstr("output OutToyImg of processor ToyImgLvl2 is not set"));
    lvl2->set<OutToyImg>(out);
    processor::executeSyncRun(lvl2);
    EXPECT_EQ(0U, countWrong<float>(*out, 4));

    // Strips of exact rows, at level 3.
    const ImagePtr other = makeImage(70, 20, 1, 3, 1, image::eIBT_Real);
    const auto lvl3 = boost::make_shared<ToyImgLvl3>();
    lvl3->init();
    lvl3->set<InToyFactor>(toyValue(4));
    lvl3->set<InToyStrip>(image::makeInputStrip(in, 3, 5));
    lvl3->set<OutToyStrip>(image::makeOutputStrip(other, 3, 6));
    EXPECT_EQ("size match between input strip InToyStrip [70 x 5, 3 channels, f32] and output strip OutToyStrip [70 x 6, 3 "
              "channels, f32] in X and Y",
              getFailure(lvl3));
    lvl3->set<OutToyStrip>(image::makeOutputStrip(other, 3, 5));
    processor::executeSyncRun(lvl3);
    EXPECT_EQ(350U, ToyKernelLog::get().m_infos.back().m_nbExactElements);
    for (unsigned long i = 0; i < 1400; ++i)
    {
        const bool bInside = i >= 210 && i < 560;
        ASSERT_EQ(bInside ? image::planeData<float>(out, 1)[i] : 0.0F, image::planeData<float>(other, 1)[i]) << i;
    }
}
} // namespace
