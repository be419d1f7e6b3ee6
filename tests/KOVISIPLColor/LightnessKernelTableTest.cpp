#include "ColorTestImages.h"
#include "KernelTableRows.h"

#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3.h"

#include <gtest/gtest.h>

namespace kovis::imaproc::color
{
namespace
{
using namespace image;
using test::Domain;
using test::makeKey;
using test::makeSets;
using Forced = test::Forced<LightnessImgLvl3>;

TEST(LightnessKernelTable, HoldsTheRowsOfEveryFormOfThisComputerInTheOrderOfLoading)
{
    test::expectRowsInLoadOrder(LightnessImgLvl3::retrieveFunctionSelector(),
                                {{Domain::eIS_Generic, Domain::eIS_Generic, true},
                                 {Domain::eIS_AVX, Domain::eIS_AVX, false},
                                 {Domain::eIS_AVX2, Domain::eIS_AVX2, true},
                                 {Domain::eIS_AVX512, Domain::eIS_AVX512, true},
                                 {Domain::eIS_SSE2, Domain::eIS_SSE2, true}},
                                1);
}

TEST(LightnessKernelTable, HoldsTheNumberOfRowsThatTheSetsLeft)
{
    test::expectNumberOfRows(LightnessImgLvl3::retrieveFunctionSelector());
}

TEST(LightnessKernelTable, SharesKernelsAmongBufferTypesOfOneStorage)
{
    const auto& selector = LightnessImgLvl3::retrieveFunctionSelector();
    EXPECT_EQ(test::countGenericKernels(selector, 1), 7U);
    processor::AlgorithmFunctionIdentifier two;
    processor::AlgorithmFunctionIdentifier other;
    ASSERT_TRUE(selector.select(makeKey({2}), {}, two));
    for (const int type : {8, 11})
    {
        ASSERT_TRUE(selector.select(makeKey({type}), {}, other));
        EXPECT_EQ(two.getFunction(), other.getFunction()) << type;
    }
}

TEST(LightnessKernelTable, PicksTheStrongestRow)
{
    const auto& selector = LightnessImgLvl3::retrieveFunctionSelector();
    processor::AlgorithmFunctionIdentifier row;
    for (const int type : {2, 7})
    {
        ASSERT_TRUE(selector.select(makeKey({type}), {}, row));
        Domain best = Domain::eIS_Generic;
        for (const Domain set : {Domain::eIS_SSE2, Domain::eIS_AVX, Domain::eIS_AVX2, Domain::eIS_AVX512})
        {
            if (core::isAvailable(set) && (type == 7 || set != Domain::eIS_AVX))
            {
                best = set;
            }
        }
        EXPECT_EQ(row.getInstructionSets(), makeSets(best, best)) << type;
        // ... and that of the run, where it is told: FMA3 adds nothing, AVX nothing but floats
        const char* const name = std::getenv("KOVIS_EXPECTED_FORM");
        if (name != nullptr && test::hasForm(name))
        {
            const std::string form = name;
            const std::string expected = form == "fma3" ? "avx2" : form == "avx" && type != 7 ? "sse2" : form;
            EXPECT_EQ(test::formOf(row.getInstructionSets()).m_name, expected) << type;
        }
    }
    EXPECT_FALSE(selector.select(makeKey({0}), {}, row));
    EXPECT_FALSE(selector.select(makeKey({12}), {}, row));
}

TEST(LightnessKernelTable, RunsAForcedFormOrRefusesByKeyAndSets)
{
    const auto bytes = test::makeFilledImage<unsigned char>(9, 7, eCGT_Rgb, 20);
    if (core::isAvailable(Domain::eIS_AVX))
    {
        const Forced forced(Domain::eIS_AVX, Domain::eIS_AVX);
        EXPECT_NO_THROW(lightnessImg(test::makeFilledImage<float>(9, 7, eCGT_Rgb, 20.0F)));
        try
        {
            lightnessImg(bytes);
            ADD_FAILURE() << "nothing was thrown";
        }
        catch (const BaseException& e)
        {
            const std::string text = e.what();
            EXPECT_NE(text.find("u8 (2)"), std::string::npos) << text;
            EXPECT_NE(text.find("AVX"), std::string::npos) << text;
        }
    }
    EXPECT_EQ(test::getPlanes<unsigned char>(*lightnessImg(bytes))[0], std::vector<unsigned char>(63, 21));
}
} // namespace
} // namespace kovis::imaproc::color
