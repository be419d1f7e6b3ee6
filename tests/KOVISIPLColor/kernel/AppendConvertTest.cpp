#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/AppendKernels.h"
#include "KOVISIPLColor/kernel/KernelGrid.h"
#include "KOVISIPLColor/kernel/KernelSamples.h"
#include "support/AppendModel.h"

#include <bit>
#include <cstring>
#include <vector>

namespace kovis::test
{
namespace
{
using imaproc::color::kernel::appendConvert;

template <class T>
bool sameBits(T a, T b)
{
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}

/// Planes that end with the last block, at a guard page.
template <class Register, class Tin, class Tout>
struct AppendCheck
{
    static void run(const ModelForm& form)
    {
        for (unsigned long count : g_counts)
        {
            const unsigned long reach = modelReach(form, count);
            PlaneSet<Tin> in(1, reach);
            PlaneSet<Tout> out(1, reach);
            in.fill(static_cast<unsigned int>(count));
            appendConvert<Register, Tin, Tout>(count, in.in()[0], out.out()[0]);
            for (unsigned long i = 0; i < reach; ++i)
            {
                const Tout expected = modelAppend<Tin, Tout>(form, in[0][i]);
                ASSERT_TRUE(sameBits(out[0][i], expected)) << "count " << count << ", element " << i << ": " << +in[0][i]
                                                           << " gives " << +out[0][i] << " for " << +expected;
            }
        }
    }
};

/// Whole blocks and nothing else are written, and no address needs to be aligned.
template <class Register, class Tin, class Tout>
struct AppendReachCheck
{
    static void run(const ModelForm& form)
    {
        constexpr unsigned long room = 192;
        const std::vector<Tin> in = makeSamples<Tin>(room, 5);
        const auto untouched = static_cast<Tout>(77);
        for (unsigned long count : {0UL, 1UL, 15UL, 16UL, 17UL, 31UL, 32UL, 33UL, 63UL, 64UL, 65UL})
        {
            std::vector<Tout> out(room, untouched);
            appendConvert<Register, Tin, Tout>(count, in.data() + 1, out.data() + 3);
            const unsigned long reach = modelReach(form, count);
            for (unsigned long i = 0; i < room; ++i)
            {
                const bool bWritten = i >= 3 && i < 3 + reach;
                const Tout expected = bWritten ? modelAppend<Tin, Tout>(form, in[i - 2]) : untouched;
                ASSERT_TRUE(sameBits(out[i], expected)) << "count " << count << ", element " << i;
            }
        }
    }
};

using Widest = simd::avx512::Register;

/// One sample; every lane of the block gives the same.
template <class Register, class Tin, class Tout>
Tout appendOf(Tin sample)
{
    const std::vector<Tin> from(64, sample);
    std::vector<Tout> to(64);
    appendConvert<Register, Tin, Tout>(64, from.data(), to.data());
    for (const Tout& lane : to)
    {
        EXPECT_TRUE(sameBits(lane, to[0])) << "lanes differ";
    }
    return to[0];
}

using S8 = signed char;
using U8 = unsigned char;
using U16 = unsigned short;
using U32 = unsigned int;
constexpr int g_least = std::numeric_limits<int>::min();

std::string formName(const testing::TestParamInfo<const ModelForm*>& info)
{
    return info.param->m_name;
}
} // namespace

class AppendConvertGrid : public KernelGridTest
{
};
TEST_P(AppendConvertGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(Append, AppendConvertGrid, testing::ValuesIn(makeGrid<AppendCheck, Widest>()), placeName);
INSTANTIATE_TEST_SUITE_P(AppendReach, AppendConvertGrid, testing::ValuesIn(makeGrid<AppendReachCheck, Widest>()), placeName);

/// The columns of the conversion table, each by itself. A form that the processor lacks is a reported skip.
class AppendConvert : public testing::TestWithParam<const ModelForm*>
{
protected:
    void SetUp() override
    {
        if (!canRun(*GetParam()))
        {
            GTEST_SKIP() << "this processor cannot run " << GetParam()->m_name;
        }
    }

    static bool is(const ModelForm& form) { return GetParam() == &form; }

    /// A sample in the form under test. AVX copies floats and nothing else.
    template <class Tout, class Tin>
    static Tout append(Tin sample)
    {
        if constexpr (std::is_same_v<Tin, float> && std::is_same_v<Tout, float>)
        {
            if (is(g_avxForm))
            {
                return appendOf<simd::avx::Register, Tin, Tout>(sample);
            }
        }
        return is(g_avx512Form) ? appendOf<simd::avx512::Register, Tin, Tout>(sample)
               : is(g_avx2Form) ? appendOf<simd::avx2::Register, Tin, Tout>(sample)
               : is(g_sse2Form) ? appendOf<simd::sse2::Register, Tin, Tout>(sample)
                                : appendOf<simd::generic::Register, Tin, Tout>(sample);
    }

    template <class Tout, class Tin>
    static void expectColumns(Tin sample, Tout generic, Tout sse2, Tout avx2, Tout avx512)
    {
        const Tout expected = is(g_avx512Form) ? avx512 : is(g_avx2Form) ? avx2 : is(g_sse2Form) ? sse2 : generic;
        EXPECT_EQ(append<Tout>(sample), expected) << +sample;
    }

    template <class Tout, class Tin>
    static void expectEverywhere(Tin sample, Tout expected)
    {
        expectColumns<Tout>(sample, expected, expected, expected, expected);
    }
};
INSTANTIATE_TEST_SUITE_P(Form, AppendConvert, testing::Values(&g_genericForm, &g_sse2Form, &g_avx2Form, &g_avx512Form), formName);

TEST_P(AppendConvert, NarrowsSixteenBits)
{
    expectColumns<U8>(U16{300}, 44, 255, 255, 255);
    expectColumns<U8>(U16{40000}, 64, 0, 0, 0);
    expectColumns<U8>(short{-1}, 255, 0, 0, 0);
    expectColumns<S8>(U16{300}, 44, 127, 127, 127);
    expectColumns<S8>(U16{40000}, 64, -128, -128, -128);
    expectColumns<S8>(short{-300}, -44, -128, -128, -128);
}

TEST_P(AppendConvert, NarrowsThirtyTwoBits)
{
    expectColumns<U16>(70000, 4464, 4464, 65535, 65535);
    expectColumns<U16>(-1, 65535, 65535, 0, 0);
    expectColumns<U16>(U32{4000000000U}, 10240, 10240, 0, 0);
    expectColumns<U8>(70000, 112, 255, 0, 0);
    expectColumns<U8>(40000, 64, 0, 0, 0);
    expectColumns<U8>(300, 44, 255, 255, 255);
    expectColumns<U8>(-1, 255, 0, 0, 0);
    expectColumns<U8>(65536 + 7, 7, 7, 0, 0);
    expectColumns<short>(70000, 4464, 32767, 32767, 32767);
    expectColumns<short>(U32{4000000000U}, 10240, -32768, -32768, -32768);
    expectColumns<S8>(200, -56, 127, 127, 127);
    expectColumns<S8>(U32{4294967295U}, -1, -1, -1, -1);
}

TEST_P(AppendConvert, WidensByTheSignOfTheSource)
{
    expectEverywhere<U16>(S8{-1}, 65535);
    expectEverywhere<U32>(S8{-1}, 4294967295U);
    expectEverywhere<U32>(short{-2}, 4294967294U);
    expectEverywhere<short>(U8{255}, 255);
    expectEverywhere<int>(U16{65535}, 65535);
    expectEverywhere<U8>(S8{-1}, 255);
    expectEverywhere<short>(U16{65535}, -1);
    expectEverywhere<int>(U32{4294967295U}, -1);
}

TEST_P(AppendConvert, GivesTheNearestFloat)
{
    expectEverywhere<float>(16777217, 16777216.0F);
    expectEverywhere<float>(16777219, 16777220.0F);
    expectEverywhere<float>(U32{4294967295U}, 4294967296.0F);
    expectEverywhere<float>(U32{4294967167U}, 4294967040.0F);
    expectEverywhere<float>(U32{2147483777U}, 2147483904.0F);
    expectEverywhere<float>(S8{-128}, -128.0F);
}

TEST_P(AppendConvert, TruncatesFloats)
{
    expectEverywhere<U8>(3.9F, 3);
    expectEverywhere<int>(-3.9F, -3);
    expectEverywhere<short>(-3.9F, -3);
    for (const float outside : {2147483648.0F, -3e9F, std::numeric_limits<float>::infinity(),
                                std::numeric_limits<float>::quiet_NaN(), -std::numeric_limits<float>::infinity()})
    {
        expectEverywhere<int>(outside, g_least);
        expectColumns<short>(outside, 0, -32768, -32768, -32768);
        expectColumns<S8>(outside, 0, -128, -128, -128);
        expectColumns<U16>(outside, 0, 0, 0, 0);
        expectColumns<U8>(outside, 0, 0, 0, 0);
    }
    expectColumns<short>(70000.5F, 4464, 32767, 32767, 32767);
    expectColumns<U16>(70000.5F, 4464, 4464, 65535, 65535);
    expectColumns<U8>(40000.0F, 64, 0, 0, 0);
    expectColumns<U8>(70000.0F, 112, 255, 0, 0);
    expectColumns<U8>(300.0F, 44, 255, 255, 255);
}

TEST_P(AppendConvert, TruncatesFloatsToUnsigned)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    expectColumns<U32>(-1.5F, 0xFFFFFFFFU, 0U, 0U, 0xFFFFFFFFU);
    expectEverywhere<U32>(-0.5F, 0U);
    expectEverywhere<U32>(2147483648.0F, 2147483648U);
    expectEverywhere<U32>(3000000000.0F, 3000000000U);
    expectEverywhere<U32>(4294967040.0F, 4294967040U);
    expectColumns<U32>(4294967296.0F, 0U, 0U, 0U, 0xFFFFFFFFU);
    expectColumns<U32>(4294967296.0F + 1024.0F, 1024U, 0U, 0U, 0xFFFFFFFFU);
    expectColumns<U32>(1e20F, 0U, 0U, 0U, 0xFFFFFFFFU);
    expectColumns<U32>(-3e9F, static_cast<U32>(-3000000000LL), 0U, 0U, 0xFFFFFFFFU);
    expectColumns<U32>(infinity, 0U, 0U, 0U, 0xFFFFFFFFU);
    expectColumns<U32>(-infinity, 0U, 0U, 0U, 0xFFFFFFFFU);
    expectColumns<U32>(nan, 0U, 0U, 0U, 0xFFFFFFFFU);
}

class AppendConvertCopy : public AppendConvert
{
};
INSTANTIATE_TEST_SUITE_P(Form, AppendConvertCopy,
                         testing::Values(&g_genericForm, &g_sse2Form, &g_avxForm, &g_avx2Form, &g_avx512Form), formName);

TEST_P(AppendConvertCopy, KeepsTheBitsOfEqualTypes)
{
    const float signalling = std::bit_cast<float>(0xFFA12345U);
    EXPECT_TRUE(sameBits(append<float>(-0.0F), -0.0F));
    EXPECT_TRUE(sameBits(append<float>(signalling), signalling));
}
} // namespace kovis::test
