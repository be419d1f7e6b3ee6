#include "ColorTestImages.h"

#include "KOVIS/KOVISBaseImageTools/getLinearTransform.h"
#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"
#include "support/ColorModel.h"
#include "support/GuardedPlane.h"

#include <boost/make_shared.hpp>
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
using Domain = eInstructionSet::domain;

template <class T>
using Planes = std::vector<std::vector<T>>;

struct Space
{
    eColorGeometryType m_geometry;
    unsigned int m_sizeC;
};

struct FormOfSets
{
    const ModelForm* m_form;
    Domain m_first;
    Domain m_second;
};
constexpr FormOfSets g_forms[] = {{&g_genericForm, Domain::eIS_Generic, Domain::eIS_Generic},
                                  {&g_sse2Form, Domain::eIS_SSE2, Domain::eIS_SSE2},
                                  {&g_avxForm, Domain::eIS_AVX, Domain::eIS_AVX},
                                  {&g_avx2Form, Domain::eIS_AVX2, Domain::eIS_AVX2},
                                  {&g_fma3Form, Domain::eIS_FMA3, Domain::eIS_AVX2}};

bool isAvailable(const FormOfSets& form)
{
    return core::isAvailable(form.m_first) && core::isAvailable(form.m_second);
}

/// The form that has to run where nothing is forced: the last one of the list that this computer has; AVX is for float alone.
const ModelForm& getBestForm(bool bFloat)
{
    const ModelForm* best = nullptr;
    for (const FormOfSets& form : g_forms)
    {
        if (isAvailable(form) && (bFloat || form.m_form != &g_avxForm))
        {
            best = form.m_form;
        }
    }
    return *best;
}

/// One link from planes of one space to planes of the next.
template <class Tin, class Tout>
Planes<Tout> modelLink(const ModelForm& form, const Space& from, const Space& to, const std::vector<float>& user,
                       const Planes<Tin>& in)
{
    const std::size_t count = in[0].size();
    Planes<Tout> out(to.m_sizeC, std::vector<Tout>(count));
    if (from.m_geometry == eCGT_HSV || to.m_geometry == eCGT_HSV)
    {
        for (std::size_t i = 0; i < count; ++i)
        {
            const ModelPixel source{modelLoad(in[0][i]), modelLoad(in[1][i]), modelLoad(in[2][i])};
            const ModelPixel pixel = from.m_geometry == eCGT_HSV ? modelRGBFromHSV(form, source) : modelHSVFromRGB(form, source);
            for (std::size_t c = 0; c < 3; ++c)
            {
                out[c][i] = modelStore<Tout>(form, pixel[c]);
            }
        }
        return out;
    }
    std::vector<float> matrix = user;
    if (from.m_geometry != eCGT_User && to.m_geometry != eCGT_User)
    {
        const LinearTransform transform =
            getLinearTransform(from.m_geometry, to.m_geometry, BufferTypeOf<Tin>::g_value, BufferTypeOf<Tout>::g_value);
        matrix.assign(transform.getData(), transform.getData() + transform.getSize());
    }
    for (unsigned int r = 0; r < to.m_sizeC; ++r)
    {
        for (std::size_t i = 0; i < count; ++i)
        {
            float sum = matrix[r * (from.m_sizeC + 1) + from.m_sizeC];
            for (unsigned int c = 0; c < from.m_sizeC; ++c)
            {
                sum = modelMulAdd(form, modelLoad(in[c][i]), matrix[r * (from.m_sizeC + 1) + c], sum);
            }
            out[r][i] = modelStore<Tout>(form, sum);
        }
    }
    return out;
}

/// The whole way between linear spaces and HSV, which is reached through RGB.
template <class Tin, class Tout>
Planes<Tout> modelConversion(const ModelForm& form, const Space& from, const Space& to, const std::vector<float>& user,
                             const Planes<Tin>& in)
{
    if (from.m_geometry == to.m_geometry && from.m_geometry != eCGT_User)
    {
        Planes<Tout> out(to.m_sizeC, std::vector<Tout>(in[0].size()));
        for (unsigned int c = 0; c < from.m_sizeC; ++c)
        {
            for (std::size_t i = 0; i < in[0].size(); ++i)
            {
                out[c][i] = modelCopy<Tin, Tout>(form, in[c][i]);
            }
        }
        return out;
    }
    const Space rgb{eCGT_Rgb, 3};
    if ((from.m_geometry == eCGT_HSV && to.m_geometry != eCGT_Rgb) || (to.m_geometry == eCGT_HSV && from.m_geometry != eCGT_Rgb))
    {
        return modelLink<float, Tout>(form, rgb, to, user, modelLink<Tin, float>(form, from, rgb, user, in));
    }
    return modelLink<Tin, Tout>(form, from, to, user, in);
}

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

ColorGeometry makeColor(const Space& space)
{
    ColorGeometry color;
    if (space.m_geometry == eCGT_User)
    {
        color.initUser(space.m_sizeC);
    }
    else
    {
        color.init(space.m_geometry);
    }
    return color;
}

/// An image on planes of its own that end where readable memory ends, with no room past them.
template <class T>
ImagePtr wrapGuarded(const HomogeneousImageGeometry& geometry)
{
    using Guarded = std::vector<boost::shared_ptr<GuardedPlane<T>>>;
    const auto owner = boost::make_shared<Guarded>();
    std::vector<void*> addresses;
    for (unsigned long c = 0; c < geometry.getSizeC(); ++c)
    {
        owner->push_back(boost::make_shared<GuardedPlane<T>>(geometry.getSizeX() * geometry.getSizeY()));
        addresses.push_back(owner->back()->data());
    }
    return wrapImage(geometry, addresses, owner);
}

template <class T>
ImagePtr makeImage(unsigned long sizeX, unsigned long sizeY, const Space& space, bool bWrapped)
{
    HomogeneousImageGeometry geometry;
    geometry.init(VolumeGeometry(), makeColor(space), TemporalGeometry(), sizeX, sizeY, BufferTypeOf<T>::g_value);
    return bWrapped ? wrapGuarded<T>(geometry) : createImage(geometry);
}

/// Converts an image of that size in every cut and compares all pixels.
template <class Tin, class Tout>
void expectConversion(const ModelForm& form, const Space& from, const Space& to, unsigned long sizeX, unsigned long sizeY,
                      const std::vector<float>& user = {})
{
    const auto transform = attr::createColorConversionTransform(to.m_geometry);
    transform->setMatrix(user);
    std::mt19937 random(static_cast<unsigned int>(sizeX * 131 + sizeY));
    Planes<Tin> source(from.m_sizeC, std::vector<Tin>(sizeX * sizeY));
    for (auto& plane : source)
    {
        for (Tin& sample : plane)
        {
            sample = makeSample<Tin>(random);
        }
    }
    const Planes<Tout> expected = modelConversion<Tin, Tout>(form, from, to, user, source);

    // each side by itself too: one that is staged must not lean on the other
    struct Memory
    {
        bool m_bInWrapped;
        bool m_bOutWrapped;
    };
    for (const Memory& memory : {Memory{false, false}, Memory{true, false}, Memory{false, true}, Memory{true, true}})
    {
        const ImagePtr in = makeImage<Tin>(sizeX, sizeY, from, memory.m_bInWrapped);
        for (unsigned int c = 0; c < from.m_sizeC; ++c)
        {
            std::copy(source[c].begin(), source[c].end(), planeData<Tin>(in, c));
        }
        for (const unsigned int nbThreads : {1U, 4U})
        {
            core::setMaxConcurrency(nbThreads);
            for (const unsigned long stripHeight : {0UL, 1UL, 2UL})
            {
                processor::setStripHeight(stripHeight);
                const ImagePtr out = makeImage<Tout>(sizeX, sizeY, to, memory.m_bOutWrapped);
                colorConvertImg(in, boost::shared_ptr<const attr::ColorConversionTransform>(transform), out);
                const Planes<Tout> found = getPlanes<Tout>(*out);
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

/// Conversions of two and three entries and copies, of all kinds of types.
void expectAll(const ModelForm& form, const ModelForm& floatForm, unsigned long sizeX, unsigned long sizeY)
{
    const Space grey{eCGT_Grey, 1};
    const Space rgb{eCGT_Rgb, 3};
    const Space rgba{eCGT_Rgba, 4};
    const Space xyz{eCGT_XYZ, 3};
    const Space ypbpr{eCGT_YPbPr, 3};
    const Space ycbcr{eCGT_YCbCr, 3};
    const Space hsv{eCGT_HSV, 3};
    expectConversion<float, float>(floatForm, rgb, hsv, sizeX, sizeY);
    expectConversion<float, float>(floatForm, hsv, ycbcr, sizeX, sizeY);
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
        ColorConvertImgLvl3::releaseForcedInstructionSets();
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
    for (const FormOfSets& form : g_forms)
    {
        if (isAvailable(form))
        {
            processor::InstructionSetsIdentifier sets;
            sets.init(form.m_first, form.m_second);
            ColorConvertImgLvl3::forceInstructionSets(sets);
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
    for (const FormOfSets& form : g_forms)
    {
        if (isAvailable(form) && form.m_form != &g_avxForm)
        {
            processor::InstructionSetsIdentifier sets;
            sets.init(form.m_first, form.m_second);
            ColorConvertImgLvl3::forceInstructionSets(sets);
            const auto out = createImage2d(70, 2, eCGT_YPbPr, eIBT_Int16);
            colorConvertImg(in, eCGT_YPbPr, out);
            const short expected = form.m_form->m_bNanIsGreatest ? 32767 : -32768;
            EXPECT_EQ(getPlanes<short>(*out), Planes<short>(3, std::vector<short>(140, expected))) << form.m_form->m_name;
        }
    }
}
} // namespace
} // namespace kovis::imaproc::color
