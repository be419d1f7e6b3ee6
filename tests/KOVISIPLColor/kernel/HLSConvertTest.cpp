#include "KOVISIPLColor/kernel/PixelKernelCheck.h"

namespace kovis::test
{
namespace
{
namespace kernel = imaproc::color::kernel;

struct ToHLS
{
    template <class Register, class Tin, class Tout>
    static constexpr auto s_kernel = &kernel::fromRGBToHLSConvert<Register, Tin, Tout>;
    static constexpr PixelModelFunction s_model = &modelHLSFromRGB;

    static std::vector<std::vector<float>> edges()
    {
        // Lightness of exactly 0 and 1 and beside them, where the saturation's divisor is or nears 0.
        std::vector<float> values = commonEdges();
        values.insert(values.end(), {0.25F, 0.75F, 1.5F, -0.5F, 10.0F, 20.0F, 30.0F});
        appendAround(values, 1.0F);
        appendAround(values, 2.0F);
        return {3, values};
    }
};

struct FromHLS
{
    template <class Register, class Tin, class Tout>
    static constexpr auto s_kernel = &kernel::fromHLSToRGBConvert<Register, Tin, Tout>;
    static constexpr PixelModelFunction s_model = &modelRGBFromHLS;

    static std::vector<std::vector<float>> edges()
    {
        std::vector<float> lightness = commonEdges();
        appendAround(lightness, 0.5F);
        appendAround(lightness, 1.0F);
        return {hueEdges(), lightness, commonEdges()};
    }
};
} // namespace

class RGBToHLSGrid : public KernelGridTest
{
};
TEST_P(RGBToHLSGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(HLS, RGBToHLSGrid, testing::ValuesIn(makeGrid<PixelKernelCheck<ToHLS>::Check>()), placeName);

class HLSToRGBGrid : public KernelGridTest
{
};
TEST_P(HLSToRGBGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(HLS, HLSToRGBGrid, testing::ValuesIn(makeGrid<PixelKernelCheck<FromHLS>::Check>()), placeName);
} // namespace kovis::test
