#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/convertPlanes.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/stripPlanes.h"
#include "KOVISIPLColor/kernel/KernelGrid.h"
#include "KOVISIPLColor/kernel/KernelSamples.h"
#include "support/RecordingAppender.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

// A whole conversion of planes: copy, chain, links, working planes.

namespace kovis::test
{
namespace
{
using namespace imaproc::color;
using namespace image;

template <eInstructionSet::domain A, eInstructionSet::domain B>
struct SetPair
{
    static constexpr eInstructionSet::domain g_first = A;
    static constexpr eInstructionSet::domain g_second = B;
    using Register = typename simd::FormOf<A, B>::Register;
    static constexpr const ModelForm& g_form = FormTraits<Register>::g_form;
};

struct PairNames
{
    template <class Pair>
    static std::string GetName(int)
    {
        return Pair::g_form.m_name;
    }
};

using AllPairs = testing::Types<
    SetPair<eInstructionSet::eIS_Generic, eInstructionSet::eIS_Generic>,
    SetPair<eInstructionSet::eIS_SSE2, eInstructionSet::eIS_SSE2>, SetPair<eInstructionSet::eIS_AVX, eInstructionSet::eIS_AVX>,
    SetPair<eInstructionSet::eIS_AVX2, eInstructionSet::eIS_AVX2>, SetPair<eInstructionSet::eIS_FMA3, eInstructionSet::eIS_AVX2>>;
using IntegerPairs = testing::Types<SetPair<eInstructionSet::eIS_Generic, eInstructionSet::eIS_Generic>,
                                    SetPair<eInstructionSet::eIS_SSE2, eInstructionSet::eIS_SSE2>,
                                    SetPair<eInstructionSet::eIS_AVX2, eInstructionSet::eIS_AVX2>,
                                    SetPair<eInstructionSet::eIS_FMA3, eInstructionSet::eIS_AVX2>>;

constexpr unsigned long g_count = 192;

unsigned int channelsOf(eColorGeometryType geometry, unsigned int userSizeC = 3)
{
    return geometry == eCGT_User ? userSizeC : static_cast<unsigned int>(getNbChannels(geometry));
}

template <class Pair, class Tin, class Tout>
void convert(eColorGeometryType from, eColorGeometryType to, const std::vector<float>& matrix, PlaneSet<Tin>& in,
             PlaneSet<Tout>& out, unsigned long count = g_count)
{
    convertPlanes<Tin, Tout, Pair::g_first, Pair::g_second>(
        ConversionStep(from, static_cast<unsigned int>(in.size()), BufferTypeOf<Tin>::g_value),
        ConversionStep(to, static_cast<unsigned int>(out.size()), BufferTypeOf<Tout>::g_value), matrix, count, in.in(),
        out.out());
}

std::vector<float> narrowed(eColorGeometryType from, eColorGeometryType to, eImageBufferType fromType, eImageBufferType toType)
{
    const LinearTransform transform = getLinearTransform(from, to, fromType, toType);
    std::vector<float> matrix;
    for (std::size_t i = 0; i < transform.getSize(); ++i)
    {
        matrix.push_back(static_cast<float>(transform.getData()[i]));
    }
    return matrix;
}

template <class T>
void expectSame(PlaneSet<T>& planes, PlaneSet<T>& expected)
{
    for (std::size_t c = 0; c < expected.size(); ++c)
    {
        for (unsigned long i = 0; i < g_count; ++i)
        {
            ASSERT_TRUE(sameValue(planes[c][i], expected[c][i]))
                << "channel " << c << ", element " << i << ": " << +planes[c][i] << " for " << +expected[c][i];
        }
    }
}

template <class T>
void storeHSV(const ModelForm& form, PlaneSet<float>& rgb, PlaneSet<T>& hsv)
{
    for (unsigned long i = 0; i < g_count; ++i)
    {
        const ModelPixel pixel = modelHSVFromRGB(form, {rgb[0][i], rgb[1][i], rgb[2][i]});
        for (std::size_t c = 0; c < 3; ++c)
        {
            hsv[c][i] = modelStore<T>(form, pixel[c]);
        }
    }
}
} // namespace

template <class Pair>
class ConvertPlanes : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!canRun(Pair::g_form))
        {
            GTEST_SKIP() << "this processor cannot run " << Pair::g_form.m_name;
        }
    }
};
template <class Pair>
class ConvertIntegerPlanes : public ConvertPlanes<Pair>
{
};
TYPED_TEST_SUITE(ConvertPlanes, AllPairs, PairNames);
TYPED_TEST_SUITE(ConvertIntegerPlanes, IntegerPairs, PairNames);

TYPED_TEST(ConvertPlanes, EqualGeometriesCopyBitsAndUseNoTransform)
{
    PlaneSet<float> in(3, g_count);
    PlaneSet<float> out(3, g_count);
    in.fill(1);
    convert<TypeParam>(eCGT_HSV, eCGT_HSV, {}, in, out);
    for (std::size_t c = 0; c < 3; ++c)
    {
        EXPECT_EQ(std::memcmp(in[c].data(), out[c].data(), g_count * sizeof(float)), 0);
    }
}

TYPED_TEST(ConvertIntegerPlanes, EqualGeometriesOfOtherTypesGoThroughTheCopyCast)
{
    PlaneSet<float> in(3, g_count);
    PlaneSet<unsigned char> out(3, g_count);
    in.fill(1);
    in[0][0] = 255.9F;
    in[1][0] = 300.0F;
    in[2][0] = -1.5F;
    convert<TypeParam>(eCGT_YCbCr, eCGT_YCbCr, {}, in, out);
    EXPECT_EQ(+out[0][0], 255);
    EXPECT_EQ(+out[1][0], 255);
    EXPECT_EQ(+out[2][0], 0);
    for (unsigned long i = 0; i < g_count; ++i)
    {
        EXPECT_EQ(+out[0][i], +(modelCopy<float, unsigned char>(TypeParam::g_form, in[0][i])));
    }
}

TYPED_TEST(ConvertPlanes, ACopyCountsTheInputsChannelsAlone)
{
    PlaneSet<float> in(3, g_count);
    PlaneSet<float> out(4, g_count);
    in.fill(1);
    out.fill(9);
    const float untouched = out[3][0];
    convert<TypeParam>(eCGT_Rgb, eCGT_Rgb, {}, in, out);
    EXPECT_EQ(std::memcmp(in[2].data(), out[2].data(), g_count * sizeof(float)), 0);
    EXPECT_TRUE(sameValue(out[3][0], untouched));
}

TYPED_TEST(ConvertPlanes, UserToUserNeverCopies)
{
    PlaneSet<float> in(3, g_count);
    PlaneSet<float> out(3, g_count);
    PlaneSet<float> expected(3, g_count);
    in.fill(1);
    const std::vector<float> matrix{0.0F, 0.0F, 2.0F, 1.0F, 0.0F, 3.0F, 0.0F, -1.0F, 4.0F, 0.0F, 0.5F, 0.25F};
    convert<TypeParam>(eCGT_User, eCGT_User, matrix, in, out);
    modelLinear<float, float>(TypeParam::g_form, 3, 3, matrix.data(), g_count, in.in(), expected.out());
    expectSame(out, expected);
}

TYPED_TEST(ConvertPlanes, NoPixelsLeaveThePlanes)
{
    PlaneSet<float> in(3, g_count);
    PlaneSet<float> out(3, g_count);
    out.fill(5);
    PlaneSet<float> before(3, g_count);
    before.copyFrom(out);
    convert<TypeParam>(eCGT_YCbCr, eCGT_HSV, {}, in, out, 0);
    convert<TypeParam>(eCGT_YCbCr, eCGT_Rgb, {}, in, out, 0);
    convert<TypeParam>(eCGT_Rgb, eCGT_Rgb, {}, in, out, 0);
    expectSame(out, before);
}

TYPED_TEST(ConvertPlanes, LinearSpacesAreJoinedByThePlatformsMatrixNarrowedToFloat)
{
    for (eColorGeometryType from : {eCGT_Grey, eCGT_Rgb, eCGT_Rgba, eCGT_XYZ, eCGT_YPbPr, eCGT_YCbCr})
    {
        for (eColorGeometryType to : {eCGT_Grey, eCGT_Rgb, eCGT_Rgba, eCGT_XYZ, eCGT_YPbPr, eCGT_YCbCr})
        {
            if (from == to)
            {
                continue;
            }
            SCOPED_TRACE(std::string(getColorGeometryTypeName(from)) + " to " + getColorGeometryTypeName(to));
            PlaneSet<float> in(channelsOf(from), g_count);
            PlaneSet<float> out(channelsOf(to), g_count);
            PlaneSet<float> expected(channelsOf(to), g_count);
            in.fill(1);
            convert<TypeParam>(from, to, {}, in, out);
            const std::vector<float> matrix = narrowed(from, to, eIBT_Real, eIBT_Real);
            ASSERT_EQ(matrix.size(), channelsOf(to) * (channelsOf(from) + 1U));
            // by the curve from Rgb to XYZ, and nowhere else
            const auto model = from == eCGT_Rgb && to == eCGT_XYZ ? &modelSRGBToXYZ<float, float> : &modelLinear<float, float>;
            model(TypeParam::g_form, channelsOf(from), channelsOf(to), matrix.data(), g_count, in.in(), expected.out());
            expectSame(out, expected);
        }
    }
}

// The offsets of YCbCr are those of each end's own element type.
TYPED_TEST(ConvertIntegerPlanes, TheMatrixIsThatOfTheEndsElementTypes)
{
    PlaneSet<unsigned char> in(3, g_count);
    PlaneSet<unsigned short> out(3, g_count);
    PlaneSet<unsigned short> expected(3, g_count);
    in.fill(1);
    convert<TypeParam>(eCGT_Rgb, eCGT_YCbCr, {}, in, out);
    const std::vector<float> matrix = narrowed(eCGT_Rgb, eCGT_YCbCr, eIBT_UInt8, eIBT_UInt16);
    modelLinear<unsigned char, unsigned short>(TypeParam::g_form, 3, 3, matrix.data(), g_count, in.in(), expected.out());
    expectSame(out, expected);
}

// Between the links nothing is rounded or limited: YCbCr of 255, 255, 255 lies outside the RGB of bytes.
TYPED_TEST(ConvertIntegerPlanes, AChainOfThreeKeepsFloatsBetweenItsLinks)
{
    PlaneSet<unsigned char> in(3, g_count);
    PlaneSet<unsigned short> out(3, g_count);
    PlaneSet<unsigned short> expected(3, g_count);
    PlaneSet<float> middle(3, g_count);
    in.fill(1);
    in[0][0] = in[1][0] = in[2][0] = 255;
    convert<TypeParam>(eCGT_YCbCr, eCGT_HSV, {}, in, out);
    const std::vector<float> matrix = narrowed(eCGT_YCbCr, eCGT_Rgb, eIBT_UInt8, eIBT_Real);
    modelLinear<unsigned char, float>(TypeParam::g_form, 3, 3, matrix.data(), g_count, in.in(), middle.out());
    storeHSV(TypeParam::g_form, middle, expected);
    expectSame(out, expected);
    EXPECT_GT(out[2][0], 255);
}

TYPED_TEST(ConvertPlanes, FromHSVToALinearSpaceEndsWithTheMatrix)
{
    PlaneSet<float> in(3, g_count);
    PlaneSet<float> out(1, g_count);
    PlaneSet<float> expected(1, g_count);
    PlaneSet<float> middle(3, g_count);
    in.fill(1);
    convert<TypeParam>(eCGT_HSV, eCGT_Grey, {}, in, out);
    for (unsigned long i = 0; i < g_count; ++i)
    {
        const ModelPixel rgb = modelRGBFromHSV(TypeParam::g_form, {in[0][i], in[1][i], in[2][i]});
        for (std::size_t c = 0; c < 3; ++c)
        {
            middle[c][i] = rgb[c];
        }
    }
    const std::vector<float> matrix = narrowed(eCGT_Rgb, eCGT_Grey, eIBT_Real, eIBT_Real);
    modelLinear<float, float>(TypeParam::g_form, 3, 1, matrix.data(), g_count, middle.in(), expected.out());
    expectSame(out, expected);
}

TYPED_TEST(ConvertPlanes, TheUserMatrixIsReadOnTheLinkAtTheUserEnd)
{
    PlaneSet<float> in(2, g_count);
    PlaneSet<float> middle(3, g_count);
    PlaneSet<float> out(3, g_count);
    PlaneSet<float> expected(3, g_count);
    in.fill(1);
    // Longer than the first link needs, which is no error.
    const std::vector<float> matrix{1.0F, 0.0F, 5.0F, 0.0F, 2.0F, 0.0F, 0.5F, 0.5F, 0.0F, 77.0F, 78.0F};
    convert<TypeParam>(eCGT_User, eCGT_HSV, matrix, in, out);
    modelLinear<float, float>(TypeParam::g_form, 2, 3, matrix.data(), g_count, in.in(), middle.out());
    storeHSV(TypeParam::g_form, middle, expected);
    expectSame(out, expected);
}

TYPED_TEST(ConvertPlanes, AShortUserMatrixEndsTheRunBeforeTheFirstLink)
{
    PlaneSet<float> in(3, g_count);
    PlaneSet<float> out(2, g_count);
    PlaneSet<float> before(2, g_count);
    in.fill(1);
    out.fill(5);
    before.copyFrom(out);
    for (eColorGeometryType from : {eCGT_HSV, eCGT_Rgb, eCGT_User})
    {
        try
        {
            convert<TypeParam>(from, eCGT_User, std::vector<float>(7, 1.0F), in, out);
            FAIL() << "seven values were taken for eight";
        }
        catch (const KOVISIPLColorException& error)
        {
            EXPECT_STREQ(error.what(),
                         "the conversion matrix holds 7 values, but 3 input channels and 2 output channels need 8: one row per "
                         "output channel, with a value per input channel and an offset");
        }
        expectSame(out, before);
        EXPECT_NO_THROW(convert<TypeParam>(from, eCGT_User, std::vector<float>(8, 1.0F), in, out));
        before.copyFrom(out);
    }
    EXPECT_THROW(convert<TypeParam>(eCGT_User, eCGT_Grey, {}, in, out), KOVISIPLColorException);
}

/// The event of the one error that the call logs and throws.
template <class TCall>
void expectLogged(const TCall& call, const std::string& function, const std::string& file)
{
    const Recording recording(getKOVISIPLColorLogger());
    try
    {
        call();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (const KOVISIPLColorException& error)
    {
        const std::vector<RecordingAppender::Event> events = recording.getEvents();
        ASSERT_EQ(events.size(), 1U);
        EXPECT_EQ(events[0].m_logger, getKOVISIPLColorLoggerName());
        EXPECT_EQ(events[0].m_level, 40000);
        EXPECT_EQ(events[0].m_message, error.getMessage());
        EXPECT_EQ(events[0].m_file, "KOVISIPL/KOVISIPLColor/Processor/" + file);
        EXPECT_EQ(events[0].m_file, error.getFile());
        EXPECT_EQ(events[0].m_line, static_cast<int>(error.getLine()));
        EXPECT_THAT(error.getFunction(), testing::HasSubstr("kovis::imaproc::color::" + function + "("));
    }
}

TYPED_TEST(ConvertPlanes, AnErrorIsLoggedOnceBeforeItIsThrown)
{
    PlaneSet<float> in(3, g_count);
    PlaneSet<float> out(3, g_count);
    expectLogged([&] { convert<TypeParam>(eCGT_Rgb, eCGT_User, std::vector<float>(11, 1.0F), in, out); }, "throwShortMatrix",
                 "ColorConvertImg/Kernel/conversionErrors");
    expectLogged([] { details::throwUnboundStrip("ColorConvertImgLvl3"); }, "details::throwUnboundStrip", "stripPlanes");
}

// Every pair writes every plane of its target: none is left as it was.
TYPED_TEST(ConvertPlanes, AllPairsRun)
{
    int nbRun = 0;
    for (int from = 0; from < 11; ++from)
    {
        for (int to = 0; to < 11; ++to)
        {
            const auto source = static_cast<eColorGeometryType>(from);
            const auto target = static_cast<eColorGeometryType>(to);
            SCOPED_TRACE(std::string(getColorGeometryTypeName(source)) + " to " + getColorGeometryTypeName(target));
            PlaneSet<float> in(channelsOf(source), 64);
            PlaneSet<float> out(channelsOf(target), 64);
            for (std::size_t c = 0; c < in.size(); ++c)
            {
                std::fill_n(in[c].data(), 64, 0.5F);
            }
            for (std::size_t c = 0; c < out.size(); ++c)
            {
                std::fill_n(out[c].data(), 64, 12345.0F);
            }
            const std::vector<float> matrix(16, 0.5F);
            ASSERT_NO_THROW(convert<TypeParam>(source, target, matrix, in, out, 64));
            for (std::size_t c = 0; c < out.size(); ++c)
            {
                EXPECT_EQ(std::count(out[c].data(), out[c].data() + 64, 12345.0F), 0) << "channel " << c;
            }
            ++nbRun;
        }
    }
    EXPECT_EQ(nbRun, 121);
}

// The middle link of a chain of four runs in place: row 1 reads row 0's result, row 2 those of both. On the way to XYZ they go
// through the curve again.
TYPED_TEST(ConvertPlanes, ALinkOnEqualPlanesReadsBackWhatItWrote)
{
    const std::pair<eColorGeometryType, eColorGeometryType> links[] = {{eCGT_XYZ, eCGT_Rgb}, {eCGT_Rgb, eCGT_XYZ}};
    for (const auto& [from, to] : links)
    {
        PlaneSet<float> planes(3, g_count);
        PlaneSet<float> expected(3, g_count);
        PlaneSet<float> separate(3, g_count);
        planes.fill(1);
        expected.copyFrom(planes);
        const std::vector<float> matrix = narrowed(from, to, eIBT_Real, eIBT_Real);
        const auto model = from == eCGT_Rgb ? &modelSRGBToXYZ<float, float> : &modelLinear<float, float>;
        model(TypeParam::g_form, 3, 3, matrix.data(), g_count, expected.in(), separate.out());
        model(TypeParam::g_form, 3, 3, matrix.data(), g_count, expected.in(), expected.out());
        processConversion<TypeParam::g_first, TypeParam::g_second, float, float>(from, 3, eIBT_Real, to, 3, eIBT_Real, {},
                                                                                 g_count, planes.in(), planes.out());
        expectSame(planes, expected);
        for (std::size_t c = 1; c < 3; ++c)
        {
            EXPECT_NE(std::memcmp(planes[c].data(), separate[c].data(), g_count * sizeof(float)), 0) << "row " << c;
        }
    }
}
} // namespace kovis::test
