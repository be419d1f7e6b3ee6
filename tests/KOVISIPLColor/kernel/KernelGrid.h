#pragma once

#include "KOVIS/KOVISSimd/Forms.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/Kernels.h"
#include "support/ColorModel.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <tuple>
#include <vector>

// The grid that every kernel is tested on: each form, and in it each pair of pixel types that it serves.

namespace kovis::test
{
/// Can this processor run the form? Asked of the compiler's own detector.
bool canRun(const ModelForm& form);

/// The strongest form that this processor can run.
const ModelForm& strongestForm();

template <class Register>
struct FormTraits;
template <>
struct FormTraits<simd::generic::Register>
{
    static constexpr const ModelForm& g_form = g_genericForm;
};
template <>
struct FormTraits<simd::sse2::Register>
{
    static constexpr const ModelForm& g_form = g_sse2Form;
};
template <>
struct FormTraits<simd::avx::Register>
{
    static constexpr const ModelForm& g_form = g_avxForm;
};
template <>
struct FormTraits<simd::avx2::Register>
{
    static constexpr const ModelForm& g_form = g_avx2Form;
};
template <>
struct FormTraits<simd::fma3_avx2::Register>
{
    static constexpr const ModelForm& g_form = g_fma3Form;
};
template <>
struct FormTraits<simd::avx512::Register>
{
    static constexpr const ModelForm& g_form = g_avx512Form;
};

template <class T>
constexpr const char* typeName()
{
    if constexpr (std::is_same_v<T, signed char>)
    {
        return "i8";
    }
    else if constexpr (std::is_same_v<T, unsigned char>)
    {
        return "u8";
    }
    else if constexpr (std::is_same_v<T, short>)
    {
        return "i16";
    }
    else if constexpr (std::is_same_v<T, unsigned short>)
    {
        return "u16";
    }
    else if constexpr (std::is_same_v<T, int>)
    {
        return "i32";
    }
    else if constexpr (std::is_same_v<T, unsigned int>)
    {
        return "u32";
    }
    else
    {
        static_assert(std::is_same_v<T, float>);
        return "f32";
    }
}

/// One place of the grid: a form, a pair of types, and the check that is made there.
struct GridPlace
{
    const ModelForm* m_form;
    const char* m_inName;
    const char* m_outName;
    void (*m_check)(const ModelForm&);
};

inline std::ostream& operator<<(std::ostream& stream, const GridPlace& place)
{
    return stream << place.m_form->m_name << " " << place.m_inName << " to " << place.m_outName;
}

using PixelTypes = std::tuple<signed char, unsigned char, short, unsigned short, int, unsigned int, float>;

template <template <class, class, class> class Check, class Register, class Tin, class Tout>
void addPlace(std::vector<GridPlace>& grid)
{
    grid.push_back({&FormTraits<Register>::g_form, typeName<Tin>(), typeName<Tout>(), &Check<Register, Tin, Tout>::run});
}

template <template <class, class, class> class Check, class Register, class Tin, class... Touts>
void addTargets(std::vector<GridPlace>& grid, std::tuple<Touts...>*)
{
    (addPlace<Check, Register, Tin, Touts>(grid), ...);
}

template <template <class, class, class> class Check, class Register, class... Tins>
void addForm(std::vector<GridPlace>& grid, std::tuple<Tins...>*)
{
    (addTargets<Check, Register, Tins>(grid, static_cast<PixelTypes*>(nullptr)), ...);
}

/// Check<Register, Tin, Tout>::run at every place: 49 pairs for each form, float to float alone for AVX. Widest is the form above
/// AVX2 that the kernels have.
template <template <class, class, class> class Check, class Widest = simd::fma3_avx2::Register>
std::vector<GridPlace> makeGrid()
{
    std::vector<GridPlace> grid;
    PixelTypes* const types = nullptr;
    addForm<Check, simd::generic::Register>(grid, types);
    addForm<Check, simd::sse2::Register>(grid, types);
    addPlace<Check, simd::avx::Register, float, float>(grid);
    addForm<Check, simd::avx2::Register>(grid, types);
    addForm<Check, Widest>(grid, types);
    return grid;
}

inline std::string placeName(const testing::TestParamInfo<GridPlace>& info)
{
    return std::string(info.param.m_form->m_name) + "_" + info.param.m_inName + "_to_" + info.param.m_outName;
}

/// A test on the grid. A form that the processor lacks is a reported skip.
class KernelGridTest : public testing::TestWithParam<GridPlace>
{
protected:
    void SetUp() override
    {
        if (!canRun(*GetParam().m_form))
        {
            GTEST_SKIP() << "this processor cannot run " << GetParam().m_form->m_name;
        }
    }
};
} // namespace kovis::test
