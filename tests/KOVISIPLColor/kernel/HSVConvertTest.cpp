#include "KOVISIPLColor/kernel/PixelKernelCheck.h"

namespace kovis::test
{
namespace
{
namespace kernel = imaproc::color::kernel;

struct ToHSV
{
    template <class Register, class Tin, class Tout>
    static constexpr auto s_kernel = &kernel::fromRGBToHSVConvert<Register, Tin, Tout>;
    static constexpr PixelModelFunction s_model = &modelHSVFromRGB;

    static std::vector<std::vector<float>> edges() { return {3, commonEdges()}; }
};

struct FromHSV
{
    template <class Register, class Tin, class Tout>
    static constexpr auto s_kernel = &kernel::fromHSVToRGBConvert<Register, Tin, Tout>;
    static constexpr PixelModelFunction s_model = &modelRGBFromHSV;

    static std::vector<std::vector<float>> edges() { return {hueEdges(), commonEdges(), commonEdges()}; }
};
} // namespace

class RGBToHSVGrid : public KernelGridTest
{
};
TEST_P(RGBToHSVGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(HSV, RGBToHSVGrid, testing::ValuesIn(makeGrid<PixelKernelCheck<ToHSV>::Check>()), placeName);

class HSVToRGBGrid : public KernelGridTest
{
};
TEST_P(HSVToRGBGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(HSV, HSVToRGBGrid, testing::ValuesIn(makeGrid<PixelKernelCheck<FromHSV>::Check>()), placeName);
} // namespace kovis::test
