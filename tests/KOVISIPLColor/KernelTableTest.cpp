#include "ColorTestImages.h"
#include "KernelTableRows.h"

#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3.h"
#include "kernel/OpenAlgorithm.h"

#include <gtest/gtest.h>

namespace kovis::imaproc::color
{
namespace
{
using namespace image;
using Domain = eInstructionSet::domain;

using test::makeSets;
using Forced = test::Forced<ColorConvertImgLvl3>;

processor::DataTypeIdentifierColl makeKey(int in, int out)
{
    return test::makeKey({in, out});
}

TEST(ColorKernelTable, HoldsTheRowsOfEveryFormOfThisComputerInTheOrderOfLoading)
{
    test::expectRowsInLoadOrder(ColorConvertImgLvl3::retrieveFunctionSelector(),
                                {{Domain::eIS_Generic, Domain::eIS_Generic, true},
                                 {Domain::eIS_AVX, Domain::eIS_AVX, false},
                                 {Domain::eIS_AVX2, Domain::eIS_AVX2, true},
                                 {Domain::eIS_FMA3, Domain::eIS_AVX2, true},
                                 {Domain::eIS_SSE2, Domain::eIS_SSE2, true}},
                                2);
}

TEST(ColorKernelTable, HoldsTheNumberOfRowsThatTheSetsLeft)
{
    test::expectNumberOfRows(ColorConvertImgLvl3::retrieveFunctionSelector());
}

TEST(ColorKernelTable, SharesKernelsAmongBufferTypesOfOneStorage)
{
    const auto& selector = ColorConvertImgLvl3::retrieveFunctionSelector();
    EXPECT_EQ(test::countGenericKernels(selector, 2), 49U);
    processor::AlgorithmFunctionIdentifier two;
    processor::AlgorithmFunctionIdentifier eleven;
    ASSERT_TRUE(selector.select(makeKey(2, 7), {}, two));
    ASSERT_TRUE(selector.select(makeKey(11, 7), {}, eleven));
    EXPECT_EQ(two.getFunction(), eleven.getFunction());
}

TEST(ColorKernelTable, PicksTheBestRowAndHonoursForcedSets)
{
    const auto& selector = ColorConvertImgLvl3::retrieveFunctionSelector();
    processor::AlgorithmFunctionIdentifier row;
    ASSERT_TRUE(selector.select(makeKey(2, 2), {}, row));
    const bool bAvx2 = core::isAvailable(Domain::eIS_AVX2);
    const bool bFused = bAvx2 && core::isAvailable(Domain::eIS_FMA3);
    const bool bSse2 = core::isAvailable(Domain::eIS_SSE2);
    EXPECT_EQ(row.getInstructionSets(), bFused  ? makeSets(Domain::eIS_FMA3, Domain::eIS_AVX2)
                                        : bAvx2 ? makeSets(Domain::eIS_AVX2, Domain::eIS_AVX2)
                                        : bSse2 ? makeSets(Domain::eIS_SSE2, Domain::eIS_SSE2)
                                                : makeSets(Domain::eIS_Generic, Domain::eIS_Generic));
    const auto weak = bSse2 ? Domain::eIS_SSE2 : Domain::eIS_Generic;
    ASSERT_TRUE(selector.select(makeKey(2, 2), makeSets(weak, weak), row));
    EXPECT_EQ(row.getInstructionSets(), makeSets(weak, weak));
    EXPECT_FALSE(selector.select(makeKey(0, 7), {}, row));
    EXPECT_FALSE(selector.select(makeKey(12, 7), {}, row));
}

TEST(ColorKernelTable, RunsAForcedFormOrRefusesByKeyAndSets)
{
    const auto bytes = test::makeFilledImage<unsigned char>(9, 7, eCGT_Rgb, 20);
    const auto reals = test::makeFilledImage<float>(9, 7, eCGT_Rgb, 20.0F);
    if (core::isAvailable(Domain::eIS_SSE2))
    {
        const Forced forced(Domain::eIS_SSE2, Domain::eIS_SSE2);
        EXPECT_NO_THROW(colorConvertImg(bytes, eCGT_YCbCr));
    }
    {
        const Forced forced(Domain::eIS_Generic, Domain::eIS_Generic);
        EXPECT_NO_THROW(colorConvertImg(bytes, eCGT_YCbCr));
    }
    if (core::isAvailable(Domain::eIS_AVX))
    {
        const Forced forced(Domain::eIS_AVX, Domain::eIS_AVX);
        EXPECT_NO_THROW(colorConvertImg(reals, eCGT_HSV));
        try
        {
            colorConvertImg(bytes, eCGT_YCbCr);
            ADD_FAILURE() << "nothing was thrown";
        }
        catch (const BaseException& e)
        {
            const std::string text = e.what();
            EXPECT_NE(text.find("u8 (2), u8 (2)"), std::string::npos) << text;
            EXPECT_NE(text.find("AVX"), std::string::npos) << text;
        }
    }
    EXPECT_NO_THROW(colorConvertImg(bytes, eCGT_YCbCr));
}

/// There are neither attributes nor parsers yet.
template <class T>
void expectKernelsRefusedBeforeInit()
{
    for (const processor::AlgorithmFunctionIdentifier& row : T::retrieveFunctionSelector().getFunctions())
    {
        test::OpenAlgorithm<T> lvl3;
        EXPECT_THROW(lvl3.call(row, 64), KOVISIPLColorException) << row.getDataTypes().getName();
    }
}

TEST(KernelsBeforeInit, AreRefused)
{
    expectKernelsRefusedBeforeInit<ColorConvertImgLvl3>();
    expectKernelsRefusedBeforeInit<LightnessImgLvl3>();
    expectKernelsRefusedBeforeInit<AppendColorChannelImgLvl3>();
}
} // namespace
} // namespace kovis::imaproc::color
