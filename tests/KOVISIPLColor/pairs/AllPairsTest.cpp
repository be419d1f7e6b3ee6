#include "KOVISIPLColor/ColorForms.h"
#include "KOVISIPLColor/pairs/ConversionRun.h"
#include "KOVISIPLColor/pairs/SpaceSamples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <ostream>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

// All 121 pairs of spaces from end to end, by every level, in every form that this computer runs, bit for bit.

namespace kovis::test
{
namespace
{
using namespace image;

constexpr unsigned long g_sizeX = 131;
constexpr unsigned long g_sizeY = 15;

using EndTypes = std::tuple<unsigned char, short, unsigned int, float>;

/// A form that is forced, or the one that this computer picks.
struct Choice
{
    const ColorForm* m_forced;

    const ModelForm& getForm(bool bFloatToFloat) const
    {
        return m_forced == nullptr ? getBestForm(bFloatToFloat) : *m_forced->m_form;
    }
    bool serves(bool bFloatToFloat) const { return m_forced == nullptr || bFloatToFloat || !isForFloatAlone(*m_forced); }
};

std::ostream& operator<<(std::ostream& stream, const Choice& choice)
{
    return stream << (choice.m_forced == nullptr ? "picked" : choice.m_forced->m_form->m_name);
}

std::vector<Choice> makeChoices()
{
    std::vector<Choice> choices{{nullptr}};
    for (const ColorForm& form : g_colorForms)
    {
        choices.push_back({&form});
    }
    return choices;
}

/// A user space has another number of channels on each side.
ModelSpace makeSource(int geometry)
{
    const auto type = static_cast<eColorGeometryType>(geometry);
    return {type, type == eCGT_User ? 2U : static_cast<unsigned int>(getNbChannels(type))};
}
ModelSpace makeTarget(int geometry)
{
    const auto type = static_cast<eColorGeometryType>(geometry);
    return {type, type == eCGT_User ? 5U : static_cast<unsigned int>(getNbChannels(type))};
}

/// The user's matrix between the User end and the entry of the chain beside it; none where no end is User.
std::vector<float> makeUserMatrix(const ModelSpace& from, const ModelSpace& to)
{
    unsigned int nbIn = from.m_sizeC;
    unsigned int nbOut = to.m_sizeC;
    if (from.m_geometry == eCGT_User)
    {
        nbOut = to.m_geometry >= eCGT_CieLab && to.m_geometry <= eCGT_HSV ? 3U : to.m_sizeC;
    }
    else if (to.m_geometry != eCGT_User)
    {
        return {};
    }
    std::vector<float> matrix;
    for (unsigned int r = 0; r < nbOut; ++r)
    {
        for (unsigned int c = 0; c <= nbIn; ++c)
        {
            matrix.push_back(c == nbIn ? 1.5F * static_cast<float>(r)
                                       : 0.3F + 0.17F * static_cast<float>((r * 5 + c * 3) % 7) - 0.2F);
        }
    }
    return matrix;
}

bool isMeasured(const ModelSpace& from, const ModelSpace& to)
{
    return from.m_geometry == eCGT_Rgb && (to.m_geometry == eCGT_XYZ || to.m_geometry == eCGT_CieLab);
}

/// The element type of a result that a run makes.
eImageBufferType getMadeType(const ModelSpace& from, const ModelSpace& to, eImageBufferType inType)
{
    const auto isColour = [](const ModelSpace& space) { return space.m_geometry == eCGT_Rgb || space.m_geometry == eCGT_Rgba; };
    return (isColour(from) && isColour(to)) || to.m_geometry == eCGT_YCbCr ? inType : eIBT_Real;
}

/// A pair of spaces and types, in the ways that convert the samples as they are.
template <class Tin, class Tout>
void expectPair(const Choice& choice, const ModelSpace& from, const ModelSpace& to)
{
    const bool bFloatToFloat = std::is_same_v<Tin, float> && std::is_same_v<Tout, float>;
    if (!choice.serves(bFloatToFloat))
    {
        return;
    }
    const ModelForm& form = choice.getForm(bFloatToFloat);
    const std::vector<float> matrix = makeUserMatrix(from, to);
    const ModelPlanes<Tin> samples = makeSpaceSamples<Tin>(from, g_sizeX * g_sizeY);
    const ModelPlanes<Tout> expected = modelConversion<Tin, Tout>(form, from, to, matrix, samples);
    std::vector<RunWay> ways;
    for (const RunWay& way : g_runWays)
    {
        if (way.m_level != 1 || !isMeasured(from, to))
        {
            ways.push_back(way);
        }
    }
    expectConversionInWays<Tin, Tout>(ways, from, to, matrix, g_sizeX, samples, expected);

    if (!isMeasured(from, to) && getMadeType(from, to, BufferTypeOf<Tin>::g_value) == BufferTypeOf<Tout>::g_value)
    {
        SCOPED_TRACE("entry function, result made");
        const ImagePtr in = makeSpaceImage<Tin>(g_sizeX, g_sizeY, from, false, samples);
        const auto out = imaproc::color::colorConvertImg(in, makeTransform(to, matrix));
        ASSERT_EQ(out->getBufferType(), BufferTypeOf<Tout>::g_value);
        ASSERT_EQ(out->getColorGeometryType(), to.m_geometry);
        expectPlanes<Tout>(getPlanes<Tout>(*out), expected);
    }
}

/// The samples, held in 0 to 255.
template <class T>
ModelPlanes<T> makeMeasuredSamples(const ModelSpace& from)
{
    ModelPlanes<T> planes = makeSpaceSamples<T>(from, g_sizeX * g_sizeY);
    for (std::vector<T>& plane : planes)
    {
        for (T& sample : plane)
        {
            sample = sample >= T(0) && sample <= T(255) ? sample : T(sample < T(0) ? 0 : 255); // a NaN becomes 255
        }
    }
    return planes;
}

/// A pair that level 1 measures: it converts the float working image, which holds an integer image's samples, and nothing of a
/// float image.
template <class Tin, class Tout>
void expectMeasuredPair(const Choice& choice, const ModelSpace& from, const ModelSpace& to)
{
    if (!choice.serves(std::is_same_v<Tout, float>))
    {
        return;
    }
    const ModelPlanes<Tin> samples = makeMeasuredSamples<Tin>(from);
    ModelPlanes<float> working(from.m_sizeC, std::vector<float>(g_sizeX * g_sizeY, 0.0F));
    if constexpr (!std::is_same_v<Tin, float>)
    {
        for (std::size_t c = 0; c < working.size(); ++c)
        {
            std::transform(samples[c].begin(), samples[c].end(), working[c].begin(),
                           [](Tin sample) { return modelLoad(sample); });
        }
    }
    const ModelPlanes<Tout> expected =
        modelConversion<float, Tout>(choice.getForm(std::is_same_v<Tout, float>), from, to, {}, working);
    std::vector<RunWay> ways;
    std::copy_if(g_runWays.begin(), g_runWays.end(), std::back_inserter(ways),
                 [](const RunWay& way) { return way.m_level == 1; });
    expectConversionInWays<Tin, Tout>(ways, from, to, {}, g_sizeX, samples, expected);

    if constexpr (std::is_same_v<Tout, float>)
    {
        SCOPED_TRACE("entry function, result made");
        const ImagePtr in = makeSpaceImage<Tin>(g_sizeX, g_sizeY, from, false, samples);
        const auto out = imaproc::color::colorConvertImg(in, to.m_geometry);
        ASSERT_EQ(out->getBufferType(), eIBT_Real);
        expectPlanes<float>(getPlanes<float>(*out), expected);
    }
}

template <class Tin, class Tout>
void expectTypes(const Choice& choice, const ModelSpace& from, const ModelSpace& to)
{
    SCOPED_TRACE(std::string(getElementTypeName(BufferTypeOf<Tin>::g_value)) + " to " +
                 getElementTypeName(BufferTypeOf<Tout>::g_value));
    if (!testing::Test::HasFatalFailure())
    {
        expectPair<Tin, Tout>(choice, from, to);
    }
    if (!testing::Test::HasFatalFailure() && isMeasured(from, to))
    {
        expectMeasuredPair<Tin, Tout>(choice, from, to);
    }
}

template <class Tin, class... Touts>
void expectTargets(const Choice& choice, const ModelSpace& from, const ModelSpace& to, std::tuple<Touts...>*)
{
    (expectTypes<Tin, Touts>(choice, from, to), ...);
}

template <class... Tins>
void expectEndTypes(const Choice& choice, const ModelSpace& from, const ModelSpace& to, std::tuple<Tins...>* types)
{
    (expectTargets<Tins>(choice, from, to, types), ...);
}

std::string nameOf(const testing::TestParamInfo<std::tuple<Choice, int>>& info)
{
    return testing::PrintToString(std::get<0>(info.param)) + "_from_" +
           getColorGeometryTypeName(static_cast<eColorGeometryType>(std::get<1>(info.param)));
}
} // namespace

class AllPairs : public testing::TestWithParam<std::tuple<Choice, int>>
{
protected:
    void SetUp() override
    {
        const ColorForm* const forced = getChoice().m_forced;
        if (forced != nullptr && !isAvailable(*forced))
        {
            GTEST_SKIP() << "this processor cannot run " << forced->m_form->m_name;
        }
    }
    static Choice getChoice() { return std::get<0>(GetParam()); }
};

TEST_P(AllPairs, GiveWhatTheLinksOfTheirWaysGive)
{
    const Choice choice = getChoice();
    const std::unique_ptr<ForcedForm> forced(choice.m_forced == nullptr ? nullptr : new ForcedForm(*choice.m_forced));
    const ModelSpace from = makeSource(std::get<1>(GetParam()));
    for (int target = eCGT_Grey; target <= eCGT_User && !HasFatalFailure(); ++target)
    {
        const ModelSpace to = makeTarget(target);
        SCOPED_TRACE(std::string(getColorGeometryTypeName(from.m_geometry)) + " to " + getColorGeometryTypeName(to.m_geometry));
        expectEndTypes(choice, from, to, static_cast<EndTypes*>(nullptr));
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, AllPairs, testing::Combine(testing::ValuesIn(makeChoices()), testing::Range(0, 11)), &nameOf);
} // namespace kovis::test
