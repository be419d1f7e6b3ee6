#include "ColorTestImages.h"

#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISImageProcessing/ImageBufferTypeIdentifier.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

namespace kovis::imaproc::color
{
namespace
{
using namespace image;
using Domain = eInstructionSet::domain;

processor::InstructionSetsIdentifier makeSets(Domain first, Domain second)
{
    processor::InstructionSetsIdentifier sets;
    sets.init(first, second);
    return sets;
}

processor::DataTypeIdentifierColl makeKey(int in, int out)
{
    ImageBufferTypeIdentifier first;
    first.init(static_cast<eImageBufferType>(in));
    ImageBufferTypeIdentifier second;
    second.init(static_cast<eImageBufferType>(out));
    processor::DataTypeIdentifierColl key;
    key.init(first, second);
    return key;
}

struct Form
{
    Domain m_first;
    Domain m_second;
    bool m_bFull;
};
constexpr Form g_formsInLoadOrder[] = {{Domain::eIS_Generic, Domain::eIS_Generic, true},
                                       {Domain::eIS_AVX, Domain::eIS_AVX, false},
                                       {Domain::eIS_AVX2, Domain::eIS_AVX2, true},
                                       {Domain::eIS_FMA3, Domain::eIS_AVX2, true},
                                       {Domain::eIS_SSE2, Domain::eIS_SSE2, true}};
constexpr int g_types[] = {1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10};

/// Forces instruction sets as long as it lives.
class Forced
{
public:
    Forced(Domain first, Domain second) { ColorConvertImgLvl3::forceInstructionSets(makeSets(first, second)); }
    ~Forced() { ColorConvertImgLvl3::releaseForcedInstructionSets(); }
    Forced(const Forced&) = delete;
    Forced& operator=(const Forced&) = delete;
};

TEST(ColorKernelTable, HoldsTheRowsOfEveryFormOfThisComputerInTheOrderOfLoading)
{
    const auto& rows = ColorConvertImgLvl3::retrieveFunctionSelector().getFunctions();
    std::size_t row = 0;
    for (const Form& form : g_formsInLoadOrder)
    {
        if (!core::isAvailable(form.m_first) || !core::isAvailable(form.m_second))
        {
            continue;
        }
        for (const int in : g_types)
        {
            for (const int out : g_types)
            {
                if (form.m_bFull || (in == 7 && out == 7))
                {
                    ASSERT_LT(row, rows.size());
                    EXPECT_TRUE(rows[row].getDataTypes() == makeKey(in, out)) << row;
                    EXPECT_EQ(rows[row].getInstructionSets(), makeSets(form.m_first, form.m_second)) << row;
                    ++row;
                }
            }
        }
    }
    EXPECT_EQ(row, rows.size());
}

/// The set that KOVIS_MAX_INSTRUCTION_SET leaves is given beside the number of rows, so that a computer without it is told apart
/// from a table that lacks rows.
TEST(ColorKernelTable, HoldsTheNumberOfRowsThatTheSetsLeft)
{
    const char* const nbRows = std::getenv("KOVIS_EXPECTED_ROWS");
    if (nbRows == nullptr)
    {
        GTEST_SKIP() << "KOVIS_EXPECTED_ROWS is not set";
    }
    const char* const name = std::getenv("KOVIS_EXPECTED_FORM");
    ASSERT_NE(name, nullptr) << "KOVIS_EXPECTED_ROWS needs KOVIS_EXPECTED_FORM";
    const std::string form = name;
    // the compiler's own look at the processor: a set that the platform hides by mistake is no reason to skip
    __builtin_cpu_init();
    const bool bHere = (form != "avx" || __builtin_cpu_supports("avx") != 0) &&
                       (form != "avx2" || __builtin_cpu_supports("avx2") != 0) &&
                       (form != "fma3" || (__builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0));
    if (!bHere)
    {
        GTEST_SKIP() << "this computer has no " << form;
    }
    EXPECT_EQ(ColorConvertImgLvl3::retrieveFunctionSelector().getFunctions().size(), std::stoul(nbRows));
}

TEST(ColorKernelTable, SharesKernelsAmongBufferTypesOfOneStorage)
{
    const auto& selector = ColorConvertImgLvl3::retrieveFunctionSelector();
    std::set<int> distinct;
    std::vector<processor::AlgorithmFunctionIdentifier::Function> functions;
    for (const int in : g_types)
    {
        for (const int out : g_types)
        {
            processor::AlgorithmFunctionIdentifier row;
            ASSERT_TRUE(selector.select(makeKey(in, out), makeSets(Domain::eIS_Generic, Domain::eIS_Generic), row));
            if (std::find(functions.begin(), functions.end(), row.getFunction()) == functions.end())
            {
                functions.push_back(row.getFunction());
            }
        }
    }
    EXPECT_EQ(functions.size(), 49U);
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
} // namespace
} // namespace kovis::imaproc::color
