#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISImageProcessing/RawStripParser.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3.h"
#include "KOVISIPLColor/KernelTableRows.h"
#include "KOVISIPLColor/kernel/KernelGrid.h"
#include "KOVISIPLColor/kernel/KernelSamples.h"
#include "KOVISIPLColor/kernel/OpenAlgorithm.h"
#include "support/LightnessModel.h"
#include "support/PixelModel.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

// The rows of the strip processor of the lightness: that each runs the form and the type that it is entered for, and its parsers.

namespace kovis::test
{
namespace
{
using namespace image;
using imaproc::attr::eLightnessType;
using imaproc::color::KOVISIPLColorException;
using imaproc::color::LightnessImgLvl3;
using processor::AlgorithmFunctionIdentifier;
using ImagePtr = boost::shared_ptr<BaseImage>;

constexpr unsigned long g_sizeX = 128;
constexpr unsigned long g_nbChannels = 4;
constexpr int g_formulas[] = {0, 1, 2, 7};

class OpenLvl3 : public OpenAlgorithm<LightnessImgLvl3>
{
public:
    OpenLvl3(const ImagePtr& in, const ImagePtr& out)
    {
        EXPECT_TRUE(init());
        set<imaproc::attr::InColorYStrip2d>(makeInputStrip(in, 0, 1));
        set<imaproc::attr::InLightnessType>(imaproc::attr::eLT_Average);
        set<imaproc::attr::OutLightYStrip2d>(
            boost::make_shared<OutputImageYStrip2d>(out, ElementsRange(0, g_sizeX), eStripElements::exact));
    }
};

/// The output holds count pixels of the formula, rounded up to whole blocks of the form, and is untouched after them.
template <class T>
void expectRow(const ModelForm& form, int formula, unsigned long count, const ImagePtr& in, const ImagePtr& out)
{
    const unsigned long reach = modelReach(form, count);
    for (unsigned long i = 0; i < g_sizeX; ++i)
    {
        std::vector<T> channels;
        for (unsigned long c = 0; c < g_nbChannels; ++c)
        {
            channels.push_back(planeData<T>(in, c)[i]);
        }
        const T expected = i < reach ? modelLightness<T>(form, formula, channels) : static_cast<T>(99);
        const T found = planeData<T>(out)[i];
        ASSERT_TRUE(sameValue(found, expected))
            << "formula " << formula << ", count " << count << ", pixel " << i << ": " << +found << " for " << +expected;
    }
}

template <class T>
void checkRow(const AlgorithmFunctionIdentifier& row, const ModelForm& form)
{
    const auto type = static_cast<eImageBufferType>(row.getDataTypes().getId(0));
    const ImagePtr in = createImageUser2d(g_sizeX, 1, g_nbChannels, type);
    const ImagePtr out = createImage2d(g_sizeX, 1, eCGT_Grey, type);
    for (unsigned long c = 0; c < g_nbChannels; ++c)
    {
        const std::vector<T> samples = makeSamples<T>(g_sizeX, static_cast<unsigned int>(c));
        std::copy(samples.begin(), samples.end(), planeData<T>(in, c));
    }
    OpenLvl3 lvl3(in, out);
    lvl3.bind();
    for (const int formula : g_formulas)
    {
        lvl3.set<imaproc::attr::InLightnessType>(static_cast<eLightnessType>(formula));
        std::fill_n(planeData<T>(out), g_sizeX, static_cast<T>(99));
        // no multiple of any block, so that the reach of a call tells the form's block
        for (const unsigned long count : {0UL, 40UL, 97UL})
        {
            const BoolResult result = lvl3.call(row, count);
            EXPECT_TRUE(result);
            EXPECT_EQ(result.getMessage(), "");
            expectRow<T>(form, formula, count, in, out);
            ASSERT_FALSE(testing::Test::HasFatalFailure());
        }
    }
}

using RowCheck = void (*)(const AlgorithmFunctionIdentifier&, const ModelForm&);

template <class... Ts>
RowCheck checkOf(int type, std::tuple<Ts...>*)
{
    static constexpr RowCheck all[] = {&checkRow<Ts>...};
    return all[getStorageType(static_cast<eImageBufferType>(type)) - 1];
}
} // namespace

TEST(LightnessImgLvl3Rows, EachRunsItsFormOnItsType)
{
    std::map<std::string, int> nbOfForm;
    for (const AlgorithmFunctionIdentifier& row : LightnessImgLvl3::accessFunctionSelector().getFunctions())
    {
        const ModelForm& form = formOf(row.getInstructionSets());
        SCOPED_TRACE(std::string(form.m_name) + ": " + row.getDataTypes().getName());
        ++nbOfForm[form.m_name];
        checkOf(row.getDataTypes().getId(0), static_cast<PixelTypes*>(nullptr))(row, form);
        ASSERT_FALSE(HasFatalFailure());
    }
    EXPECT_EQ(nbOfForm["generic"], 11);
    EXPECT_EQ(nbOfForm["sse2"], 11);
    EXPECT_EQ(nbOfForm["avx"], canRun(g_avxForm) ? 1 : 0);
    EXPECT_EQ(nbOfForm["avx2"], canRun(g_avx2Form) ? 11 : 0);
    EXPECT_EQ(nbOfForm["avx512"], canRun(g_avx512Form) ? 11 : 0);
}

TEST(LightnessImgLvl3, GivesItsParsersInTheOrderOfItsStrips)
{
    OpenLvl3 lvl3(createImageUser2d(g_sizeX, 1, 3, eIBT_Int16), createImage2d(g_sizeX, 1, eCGT_Grey, eIBT_Int16));
    EXPECT_EQ(lvl3.getAttributeNameColl(), (std::vector<std::string>{"InColorYStrip2d", "InLightnessType", "OutLightYStrip2d"}));
    lvl3.bind();
    using namespace imaproc;
    using Input = RawYStripUserColor2dParser<short, BaseInputYStripColor2dAttribute>;
    using Output = RawYStrip2dParser<short, BaseOutputYStrip2dAttribute>;
    ASSERT_EQ(lvl3.getParsers().size(), 2U);
    EXPECT_TRUE(boost::dynamic_pointer_cast<Input>(lvl3.getParsers()[0]));
    EXPECT_TRUE(boost::dynamic_pointer_cast<Output>(lvl3.getParsers()[1]));
}

TEST(LightnessImgLvl3Rows, AKernelWithoutParsersOrOfAnotherTypeIsRefused)
{
    const ImagePtr in = createImageUser2d(g_sizeX, 1, 3, eIBT_UInt8);
    const ImagePtr out = createImage2d(g_sizeX, 1, eCGT_Grey, eIBT_UInt8);
    const auto& rows = LightnessImgLvl3::accessFunctionSelector().getFunctions();
    ASSERT_EQ(rows[0].getDataTypes().getId(0), 1);
    ASSERT_EQ(rows[1].getDataTypes().getId(0), 2);

    OpenLvl3 lvl3(in, out);
    EXPECT_THROW(lvl3.call(rows[1], 64), KOVISIPLColorException);
    lvl3.bind();
    EXPECT_THROW(lvl3.call(rows[0], 64), KOVISIPLColorException);
    EXPECT_TRUE(lvl3.call(rows[1], 64));
}
} // namespace kovis::test
