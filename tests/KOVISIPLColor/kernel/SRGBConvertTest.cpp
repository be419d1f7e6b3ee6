#include "KOVISIPLColor/kernel/MatrixKernelCheck.h"

namespace kovis::test
{
namespace
{
namespace kernel = imaproc::color::kernel;

struct SRGB
{
    template <class Register, class Tin, class Tout>
    static constexpr auto s_kernel = &kernel::sRGBtoXYZConvert<Register, Tin, Tout>;
    template <class Tin, class Tout>
    static constexpr auto s_model = &modelSRGBToXYZ<Tin, Tout>;

    static std::vector<float> edges()
    {
        std::vector<float> values = commonEdges();
        // The branch point; and the sample below which the base of the power is negative, though its result is dropped.
        appendAround(values, 0.04045F * 255.0F);
        appendAround(values, -0.055F * 255.0F);
        appendAround(values, 255.0F);
        values.insert(values.end(), {-100.0F, -5.0F, 0.5F, 1.0F, 10.0F, 11.0F, 128.0F, 200.0F, 254.0F, 1000.0F, 4.3e13F});
        return values;
    }
};
using SRGBCheck = MatrixKernelCheck<SRGB>;
} // namespace

class SRGBConvertGrid : public KernelGridTest
{
};
TEST_P(SRGBConvertGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(SRGB, SRGBConvertGrid, testing::ValuesIn(makeGrid<SRGBCheck::Check>()), placeName);

class SRGBConvertInPlace : public KernelGridTest
{
};
TEST_P(SRGBConvertInPlace, ReadsBackTheRowsWrittenBefore)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(SRGB, SRGBConvertInPlace, testing::ValuesIn(SRGBCheck::makeInPlaceGrid()), placeName);

class SRGBConvertAlignment : public KernelGridTest
{
};
TEST_P(SRGBConvertAlignment, TakesPlanesAtAnyElement)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(SRGB, SRGBConvertAlignment, testing::ValuesIn(makeGrid<SRGBCheck::AlignmentCheck>()), placeName);
} // namespace kovis::test
