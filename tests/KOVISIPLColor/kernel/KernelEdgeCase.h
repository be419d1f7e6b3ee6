#pragma once

#include "KOVISIPLColor/kernel/KernelGrid.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

// What tests of edge cases share: the forms as types, and kernels on one pixel.

namespace kovis::test
{
/// A form's register type, which is incomplete here.
template <class T>
struct FormTag
{
    using Register = T;
};

template <class Tag>
class KernelEdgeCase : public testing::Test
{
protected:
    void SetUp() override
    {
        const ModelForm& form = FormTraits<typename Tag::Register>::g_form;
        if (!canRun(form))
        {
            GTEST_SKIP() << "this processor cannot run " << form.m_name;
        }
    }
};

struct FormNames
{
    template <class Tag>
    static std::string GetName(int)
    {
        return FormTraits<typename Tag::Register>::g_form.m_name;
    }
};

using AllForms = testing::Types<FormTag<simd::generic::Register>, FormTag<simd::sse2::Register>, FormTag<simd::avx::Register>,
                                FormTag<simd::avx2::Register>, FormTag<simd::fma3_avx2::Register>>;
using IntegerForms = testing::Types<FormTag<simd::generic::Register>, FormTag<simd::sse2::Register>,
                                    FormTag<simd::avx2::Register>, FormTag<simd::fma3_avx2::Register>>;

/// Room for a whole block of every form.
inline constexpr unsigned long g_room = 64;

using Pixel = std::array<float, 3>;
using Bytes = std::array<unsigned char, 3>;

/// What a kernel makes of one pixel, which all lanes of a block hold.
template <class Tin, class Tout>
std::array<Tout, 3> pixelOf(void (*convert)(unsigned long, const Tin**, Tout**), std::array<Tin, 3> pixel)
{
    std::vector<std::vector<Tin>> from;
    std::vector<std::vector<Tout>> to(3, std::vector<Tout>(g_room));
    const Tin* in[3];
    Tout* out[3];
    for (std::size_t c = 0; c < 3; ++c)
    {
        from.emplace_back(g_room, pixel[c]);
    }
    for (std::size_t c = 0; c < 3; ++c)
    {
        in[c] = from[c].data();
        out[c] = to[c].data();
    }
    convert(32, in, out);
    for (const std::vector<Tout>& plane : to)
    {
        EXPECT_EQ(std::memcmp(&plane[0], &plane[31], sizeof(Tout)), 0) << "lanes differ";
    }
    return {to[0][0], to[1][0], to[2][0]};
}

/// value with as many decimals as like has; no minus before a zero.
inline std::string printedLike(float value, const std::string& like)
{
    const std::size_t point = like.find('.');
    const int nbDecimals = point == std::string::npos ? 0 : static_cast<int>(like.size() - point - 1);
    char text[64];
    std::snprintf(text, sizeof(text), "%.*f", nbDecimals, static_cast<double>(value));
    const std::string printed = text;
    return printed.find_first_of("123456789nf") == std::string::npos && printed[0] == '-' ? printed.substr(1) : printed;
}

using Digits = std::array<std::string, 3>;

/// A pixel to the digits that a table shows.
inline void expectDigits(const Pixel& pixel, const Digits& digits)
{
    for (std::size_t c = 0; c < 3; ++c)
    {
        EXPECT_EQ(printedLike(pixel[c], digits[c]), digits[c]) << "channel " << c << ": " << pixel[c];
    }
}
} // namespace kovis::test
