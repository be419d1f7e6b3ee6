#include "ColorForms.h"
#include "SpaceImages.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "support/ChainModel.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>

// Whole images through colorConvertImg against plain scalar code, pixel by pixel, for any cut, width, number of threads and
// memory.

namespace kovis::imaproc::color
{
namespace
{
using namespace image;
using namespace kovis::test;
template <class T>
T makeSample(std::mt19937& random)
{
    if constexpr (std::is_same_v<T, float>)
    {
        return std::uniform_real_distribution<float>(-20.0F, 300.0F)(random);
    }
    else
    {
        const auto bits = static_cast<unsigned int>(random());
        return (bits & 1U) != 0 ? static_cast<T>(bits >> 8U) : static_cast<T>((bits >> 8U) % 120U);
    }
}

/// Converts an image of that size in every cut and compares all pixels.
template <class Tin, class Tout>
void expectConversion(const ModelForm& form, const ModelSpace& from, const ModelSpace& to, unsigned long sizeX,
                      unsigned long sizeY, const std::vector<float>& user = {})
{
    const auto transform = attr::createColorConversionTransform(to.m_geometry);
    transform->setMatrix(user);
    std::mt19937 random(static_cast<unsigned int>(sizeX * 131 + sizeY));
    ModelPlanes<Tin> source(from.m_sizeC, std::vector<Tin>(sizeX * sizeY));
    for (auto& plane : source)
    {
        for (Tin& sample : plane)
        {
            sample = makeSample<Tin>(random);
        }
    }
    const ModelPlanes<Tout> expected = modelConversion<Tin, Tout>(form, from, to, user, source);

    // each side by itself too: one that is staged must not lean on the other
    struct Memory
    {
        bool m_bInWrapped;
        bool m_bOutWrapped;
    };
    for (const Memory& memory : {Memory{false, false}, Memory{true, false}, Memory{false, true}, Memory{true, true}})
    {
        const ImagePtr in = makeSpaceImage<Tin>(sizeX, sizeY, from, memory.m_bInWrapped, source);
        for (const unsigned int nbThreads : {1U, 4U})
        {
            core::setMaxConcurrency(nbThreads);
            for (const unsigned long stripHeight : {0UL, 1UL, 2UL})
            {
                processor::setStripHeight(stripHeight);
                const ImagePtr out = makeSpaceImage<Tout>(sizeX, sizeY, to, memory.m_bOutWrapped);
                colorConvertImg(in, boost::shared_ptr<const attr::ColorConversionTransform>(transform), out);
                const ModelPlanes<Tout> found = getPlanes<Tout>(*out);
                for (unsigned int c = 0; c < to.m_sizeC; ++c)
                {
                    for (std::size_t i = 0; i < found[c].size(); ++i)
                    {
                        ASSERT_TRUE(sameValue(found[c][i], expected[c][i]))
                            << form.m_name << ", " << getColorGeometryTypeName(from.m_geometry) << " to "
                            << getColorGeometryTypeName(to.m_geometry) << ", width " << sizeX << ", strip height " << stripHeight
                            << ", " << nbThreads << " threads, input wrapped " << memory.m_bInWrapped << ", output wrapped "
                            << memory.m_bOutWrapped << ", channel " << c << ", element " << i << ": " << +found[c][i]
                            << " instead of " << +expected[c][i];
                    }
                }
            }
        }
    }
}

/// Conversions of two, three and four entries and copies, of all kinds of types.
void expectAll(const ModelForm& form, const ModelForm& floatForm, unsigned long sizeX, unsigned long sizeY)
{
    const ModelSpace grey{eCGT_Grey, 1};
    const ModelSpace rgb{eCGT_Rgb, 3};
    const ModelSpace rgba{eCGT_Rgba, 4};
    const ModelSpace xyz{eCGT_XYZ, 3};
    const ModelSpace ypbpr{eCGT_YPbPr, 3};
    const ModelSpace ycbcr{eCGT_YCbCr, 3};
    const ModelSpace hsv{eCGT_HSV, 3};
    const ModelSpace hls{eCGT_HLS, 3};
    const ModelSpace lab{eCGT_CieLab, 3};
    expectConversion<float, float>(floatForm, rgb, hsv, sizeX, sizeY);
    expectConversion<float, float>(floatForm, hsv, ycbcr, sizeX, sizeY);
    expectConversion<float, float>(floatForm, hls, lab, sizeX, sizeY);
    expectConversion<float, float>(floatForm, {eCGT_User, 2}, {eCGT_User, 3}, sizeX, sizeY,
                                   {1, 2, 3, -1, 0.5F, 7, 0.25F, 0, -40});
    if (&form == &g_avxForm)
    {
        return; // for float alone
    }
    expectConversion<unsigned char, unsigned char>(form, rgb, ycbcr, sizeX, sizeY);
    expectConversion<unsigned short, float>(form, hsv, ypbpr, sizeX, sizeY);
    expectConversion<unsigned char, short>(form, grey, hsv, sizeX, sizeY);
    expectConversion<float, unsigned char>(form, rgba, grey, sizeX, sizeY);
    expectConversion<short, unsigned char>(form, lab, hsv, sizeX, sizeY);
    expectConversion<unsigned char, float>(form, rgb, {eCGT_CieLuv, 3}, sizeX, sizeY);
    expectConversion<int, unsigned int>(form, ycbcr, xyz, sizeX, sizeY);
    expectConversion<signed char, float>(form, rgb, rgb, sizeX, sizeY);
    expectConversion<float, unsigned char>(form, hsv, hsv, sizeX, sizeY);
    expectConversion<unsigned char, float>(form, {eCGT_User, 2}, hsv, sizeX, sizeY, {1, 0, 0, 0, 1, 0, 0.5F, 0.5F, 3});
}

class WholeConversion : public testing::Test
{
protected:
    ~WholeConversion() override
    {
        processor::setStripHeight(0);
        core::setMaxConcurrency(0);
    }
};

TEST_F(WholeConversion, RunsTheFormThatThisComputerIsMeantToRun)
{
    const char* const expected = std::getenv("KOVIS_EXPECTED_FORM");
    if (expected == nullptr)
    {
        GTEST_SKIP() << "KOVIS_EXPECTED_FORM is not set";
    }
    EXPECT_STREQ(getBestForm(true).m_name, expected);
}

TEST_F(WholeConversion, GivesTheSameForEveryWidthCutAndNumberOfThreads)
{
    for (unsigned long sizeX = 1; sizeX <= 130 && !HasFatalFailure(); ++sizeX)
    {
        expectAll(getBestForm(false), getBestForm(true), sizeX, 3);
    }
}

TEST_F(WholeConversion, GivesTheSameForTallImages)
{
    for (const unsigned long sizeY : {1UL, 64UL, 257UL})
    {
        expectAll(getBestForm(false), getBestForm(true), 37, sizeY);
    }
}

TEST_F(WholeConversion, RunsEachFormThatIsForced)
{
    for (const ColorForm& form : g_colorForms)
    {
        if (isAvailable(form))
        {
            const ForcedForm forced(form);
            expectAll(*form.m_form, *form.m_form, 67, 5);
        }
    }
}

/// What becomes of a NaN at the store to an integer type sets the forms apart.
TEST_F(WholeConversion, StoresANaNAsTheFormDoes)
{
    const auto in = createImage2d(70, 2, eCGT_Rgb, eIBT_Real);
    for (unsigned long c = 0; c < 3; ++c)
    {
        std::fill_n(planeData<float>(in, c), 140, std::numeric_limits<float>::quiet_NaN());
    }
    for (const ColorForm& form : g_colorForms)
    {
        if (isAvailable(form) && !isForFloatAlone(form))
        {
            const ForcedForm forced(form);
            const auto out = createImage2d(70, 2, eCGT_YPbPr, eIBT_Int16);
            colorConvertImg(in, eCGT_YPbPr, out);
            const short expected = form.m_form->m_bNanIsGreatest ? 32767 : -32768;
            EXPECT_EQ(getPlanes<short>(*out), ModelPlanes<short>(3, std::vector<short>(140, expected))) << form.m_form->m_name;
        }
    }
}
} // namespace
} // namespace kovis::imaproc::color
