#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISBaseProcessing/ProcessorFactory.h"
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/ExactSum.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl1.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl2.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl3.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace kovis::imaproc::glbmsr
{
namespace
{
using namespace image;
using ImagePtr = boost::shared_ptr<BaseImage>;
using Result = boost::shared_ptr<attr::StatsResult>;

Result measure(const ImagePtr& source)
{
    const auto processor = StatsMsrLvl1::createProcessor();
    EXPECT_TRUE(processor->init());
    const auto result = boost::make_shared<attr::StatsResult>();
    processor->set<attr::InImg>(source);
    processor->set<attr::OutStatsResult>(result);
    processor::executeSyncRun(processor);
    return result;
}

ImagePtr makeImage(unsigned long sizeX, unsigned long sizeY, unsigned long sizeZ, unsigned long sizeC, unsigned long sizeT,
                   eImageBufferType type)
{
    ColorGeometry color;
    color.initUser(sizeC);
    HomogeneousImageGeometry geometry;
    geometry.init(VolumeGeometry(sizeZ), color, TemporalGeometry(sizeT), sizeX, sizeY, type);
    return createImage(geometry);
}

/// Calls with the address and number of elements of each plane.
template <class T, class TCall>
void forEachPlane(const ImagePtr& target, const TCall& call)
{
    for (unsigned long t = 0; t < target->getSizeT(); ++t)
    {
        for (unsigned long z = 0; z < target->getSizeZ(); ++z)
        {
            for (unsigned long c = 0; c < target->getSizeC(); ++c)
            {
                call(planeData<T>(target, c, z, t), target->getSizeX() * target->getSizeY());
            }
        }
    }
}

template <class T>
class StatsMsr : public testing::Test
{
};
using Elements = testing::Types<signed char, unsigned char, short, unsigned short, int, unsigned int, float>;
TYPED_TEST_SUITE(StatsMsr, Elements);

TYPED_TEST(StatsMsr, MeasuresAllChannelsSlicesAndTimeSteps)
{
    std::mt19937 random(7);
    const ImagePtr source = makeImage(61, 37, 2, 3, 2, BufferTypeOf<TypeParam>::g_value);
    long double sum = 0;
    long double squares = 0;
    double least = std::numeric_limits<double>::infinity();
    double greatest = -least;
    forEachPlane<TypeParam>(source,
                            [&](TypeParam* plane, unsigned long count)
                            {
                                for (unsigned long i = 0; i < count; ++i)
                                {
                                    plane[i] =
                                        std::is_same_v<TypeParam, float>
                                            ? static_cast<TypeParam>(std::uniform_real_distribution<float>(-1e3F, 1e3F)(random))
                                            : static_cast<TypeParam>(random());
                                    const auto value = static_cast<double>(plane[i]);
                                    sum += value;
                                    squares += static_cast<long double>(value) * value;
                                    least = std::min(least, value);
                                    greatest = std::max(greatest, value);
                                }
                            });
    const Result result = measure(source);
    const unsigned long count = 61 * 37 * 12;
    const long double mean = sum / count;
    EXPECT_EQ(result->getNbElements(), count);
    EXPECT_EQ(result->getMinimum(), least);
    EXPECT_EQ(result->getMaximum(), greatest);
    EXPECT_NEAR(result->getSum(), static_cast<double>(sum), std::abs(static_cast<double>(sum)) * 1e-12);
    EXPECT_NEAR(result->getMean(), static_cast<double>(mean), std::abs(static_cast<double>(mean)) * 1e-12);
    const auto deviation = static_cast<double>(std::sqrt(squares / count - mean * mean));
    EXPECT_NEAR(result->getStandardDeviation(), deviation, deviation * 1e-9);
}

TYPED_TEST(StatsMsr, FindsTheExtremesAtEveryPlaceAndNothingPastThePlane)
{
    for (const unsigned long sizeX : {1UL, 3UL, 63UL, 64UL, 65UL, 130UL})
    {
        const ImagePtr source = makeImage(sizeX, 3, 1, 2, 1, BufferTypeOf<TypeParam>::g_value);
        forEachPlane<TypeParam>(source,
                                [](TypeParam* plane, unsigned long count) { std::fill_n(plane, count + 64, TypeParam(100)); });
        // what lies past a plane's end is no pixel
        forEachPlane<TypeParam>(source,
                                [](TypeParam* plane, unsigned long count)
                                {
                                    std::fill_n(plane + count, 32, TypeParam(127));
                                    std::fill_n(plane + count + 32, 32, TypeParam(0));
                                });
        for (unsigned long i = 0; i < sizeX * 3; ++i)
        {
            TypeParam* const plane = planeData<TypeParam>(source, 1);
            plane[i] = TypeParam(7);
            EXPECT_EQ(measure(source)->getMinimum(), 7.0) << sizeX << ' ' << i;
            EXPECT_EQ(measure(source)->getMaximum(), 100.0);
            plane[i] = TypeParam(120);
            EXPECT_EQ(measure(source)->getMaximum(), 120.0) << sizeX << ' ' << i;
            EXPECT_EQ(measure(source)->getMinimum(), 100.0);
            plane[i] = TypeParam(100);
        }
    }
}

std::vector<double> getBits(const Result& result)
{
    return {result->getSum(), result->getMean(), result->getMinimum(), result->getMaximum(), result->getStandardDeviation()};
}

TEST(StatsMsrFloat, GivesTheSameBitsForEveryCutAndNumberOfThreads)
{
    std::mt19937 random(11);
    const ImagePtr source = makeImage(251, 67, 1, 3, 1, eIBT_Real);
    forEachPlane<float>(source,
                        [&random](float* plane, unsigned long count)
                        {
                            for (unsigned long i = 0; i < count; ++i)
                            {
                                // of very different magnitudes, so that the order of plain additions would show
                                plane[i] = std::ldexp(static_cast<float>(random() % 1000) - 500.0F,
                                                      static_cast<int>(random() % 60) - 30);
                            }
                            plane[5] = -0.0F;
                        });
    core::setMaxConcurrency(1);
    const std::vector<double> expected = getBits(measure(source));
    for (const unsigned int nbThreads : {1U, 2U, 5U})
    {
        core::setMaxConcurrency(nbThreads);
        for (const unsigned long stripHeight : {0UL, 1UL, 2UL, 7UL, 66UL})
        {
            processor::setStripHeight(stripHeight);
            const std::vector<double> found = getBits(measure(source));
            EXPECT_EQ(std::memcmp(found.data(), expected.data(), sizeof(double) * expected.size()), 0)
                << nbThreads << ' ' << stripHeight;
        }
    }
    processor::setStripHeight(0);
    core::setMaxConcurrency(0);
}

TEST(StatsMsrFloat, IsNaNWhereverANaNIs)
{
    const ImagePtr source = makeImage(67, 3, 1, 2, 1, eIBT_Real);
    for (unsigned long i = 0; i < 201; ++i)
    {
        planeData<float>(source, 1)[i] = std::numeric_limits<float>::quiet_NaN();
        const Result result = measure(source);
        EXPECT_TRUE(std::isnan(result->getMinimum())) << i;
        EXPECT_TRUE(std::isnan(result->getMaximum())) << i;
        EXPECT_TRUE(std::isnan(result->getSum())) << i;
        EXPECT_EQ(result->getNbElements(), 402U);
        planeData<float>(source, 1)[i] = 0.0F;
    }
    EXPECT_EQ(measure(source)->getMaximum(), 0.0);
}

TEST(StatsMsrFloat, CarriesInfinities)
{
    const ImagePtr source = makeImage(67, 3, 1, 1, 1, eIBT_Real);
    const float infinity = std::numeric_limits<float>::infinity();
    planeData<float>(source)[70] = infinity;
    EXPECT_EQ(measure(source)->getMaximum(), infinity);
    EXPECT_EQ(measure(source)->getSum(), infinity);
    planeData<float>(source)[7] = -infinity;
    EXPECT_EQ(measure(source)->getMinimum(), -infinity);
    EXPECT_TRUE(std::isnan(measure(source)->getSum()));
}

TEST(StatsMsrLvl1, ServesEveryBufferType)
{
    for (int type = 1; type <= 11; ++type)
    {
        EXPECT_EQ(measure(makeImage(5, 5, 1, 1, 1, static_cast<eImageBufferType>(type)))->getNbElements(), 25U) << type;
    }
}

TEST(StatsMsrLvl1, AsksForItsImageAndItsResult)
{
    const auto processor = StatsMsrLvl1::createProcessor();
    EXPECT_THROW(processor->set<attr::InImg>(attr::InImg::StorageType()), processor::KOVISBaseProcessingException);
    ASSERT_TRUE(processor->init());
    EXPECT_THROW(processor::executeSyncRun(processor), BaseException);
    processor->set<attr::InImg>(makeImage(5, 5, 1, 1, 1, eIBT_UInt8));
    EXPECT_THROW(processor::executeSyncRun(processor), BaseException);
    const auto result = boost::make_shared<attr::StatsResult>();
    processor->set<attr::OutStatsResult>(result);
    EXPECT_NO_THROW(processor::executeSyncRun(processor));
    EXPECT_EQ(result->getNbElements(), 25U);
}

TEST(StatsMsr, IsKnownToTheFactory)
{
    for (const char* const name : {"StatsMsrLvl1", "StatsMsrLvl2", "StatsMsrLvl3"})
    {
        const std::string typeName = std::string("kovis::imaproc::glbmsr::") + name;
        const auto info = processor::ProcessorFactory::getInstance().getProcessorInfo(typeName);
        EXPECT_EQ(info.m_name, name);
        EXPECT_EQ(info.m_module, "KOVISIPLGlobalMeasure");
        EXPECT_EQ(info.m_includePath, std::string("KOVISIPL/KOVISIPLGlobalMeasure/") + name + ".h");
        EXPECT_NE(info.m_toolTip.find("measure"), std::string::npos);
        EXPECT_EQ(info.m_creator()->getClassName(), typeName);
    }
}

TEST(ExactSum, LosesNothing)
{
    ExactSum sum;
    sum.add(std::ldexp(1.0, 200));
    sum.add(std::ldexp(1.0, -298));
    sum.add(-std::ldexp(1.0, 200));
    EXPECT_EQ(sum.getValue(), std::ldexp(1.0L, -298));
    ExactSum other;
    other.add(-std::ldexp(1.0, -298));
    sum.add(other);
    EXPECT_EQ(sum.getValue(), 0.0L);
}

TEST(ExactSum, IsAsGoodBelowZero)
{
    ExactSum sum;
    sum.add(-1.0);
    EXPECT_EQ(sum.getValue(), -1.0L);
    sum.add(0.75);
    EXPECT_EQ(sum.getValue(), -0.25L);
    sum.add(1e300); // beyond what sums of floats and of their squares reach: kept, though not exactly
    EXPECT_GT(sum.getValue(), 0.9e300L);
}

TEST(ExactSum, HoldsManyTerms)
{
    ExactSum sum;
    for (int i = 0; i < 100000; ++i)
    {
        sum.add(-3.25);
        sum.add(1e18);
    }
    EXPECT_EQ(sum.getValue(), 1e23L - 325000.0L);
}

TEST(StatsMsrLvl2, NamesAnAttributeOfItsOwnLibraryByItsOwnNamespace)
{
    StatsMsrLvl2 processor;
    try
    {
        processor.set<OutStatsAccumulation>(OutStatsAccumulation::StorageType());
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (const BaseException& e)
    {
        EXPECT_EQ(e.getFunction(), "void kovis::imaproc::glbmsr::StatsMsrLvl2::set(const typename TAttribute::StorageType&) "
                                   "[with TAttribute = kovis::imaproc::glbmsr::OutStatsAccumulation]");
    }
}
} // namespace
} // namespace kovis::imaproc::glbmsr
