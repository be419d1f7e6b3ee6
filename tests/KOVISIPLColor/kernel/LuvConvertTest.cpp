#include "KOVISIPLColor/kernel/PixelKernelCheck.h"

namespace kovis::test
{
namespace
{
namespace kernel = imaproc::color::kernel;

struct ToLuv
{
    template <class Register, class Tin, class Tout>
    static constexpr auto s_kernel = &kernel::fromXYZToLuvConvert<Register, Tin, Tout>;
    static constexpr PixelModelFunction s_model = &modelLuvFromXYZ;

    static std::vector<std::vector<float>> edges()
    {
        std::vector<std::vector<float>> values(3, commonEdges());
        appendAround(values[1], 0.008856453F * 0.329024F);
        appendAround(values[1], 0.329024F);
        appendAround(values[1], 0x1p48F);
        // With Y 1 and Z 3 or 0 these make the divisor 0 and nearly 0.
        appendAround(values[0], -15.0F);
        appendAround(values[0], -24.0F);
        return values;
    }
};

struct FromLuv
{
    template <class Register, class Tin, class Tout>
    static constexpr auto s_kernel = &kernel::fromLuvToXYZConvert<Register, Tin, Tout>;
    static constexpr PixelModelFunction s_model = &modelXYZFromLuv;

    static std::vector<std::vector<float>> edges()
    {
        std::vector<std::vector<float>> values(3, commonEdges());
        values[0].insert(values[0].end(), {-16.0F, -20.0F, 8.5F, 100.0F, 763.918F});
        for (float lightness : {1.0F, 8.0F, 100.0F})
        {
            appendAround(values[0], lightness);
            // u' and v' of about 0.
            appendAround(values[1], -0.1978F * 13.0F * lightness);
            appendAround(values[2], -0.4683F * 13.0F * lightness);
        }
        return values;
    }
};
} // namespace

class XYZToLuvGrid : public KernelGridTest
{
};
TEST_P(XYZToLuvGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(Luv, XYZToLuvGrid, testing::ValuesIn(makeGrid<PixelKernelCheck<ToLuv>::Check>()), placeName);

class LuvToXYZGrid : public KernelGridTest
{
};
TEST_P(LuvToXYZGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(Luv, LuvToXYZGrid, testing::ValuesIn(makeGrid<PixelKernelCheck<FromLuv>::Check>()), placeName);
} // namespace kovis::test
