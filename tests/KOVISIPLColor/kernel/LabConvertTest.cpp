#include "KOVISIPLColor/kernel/PixelKernelCheck.h"

namespace kovis::test
{
namespace
{
namespace kernel = imaproc::color::kernel;

constexpr float g_threshold = 0.008856452F;
constexpr float g_inverseThreshold = 0.20689656F;

struct ToLab
{
    template <class Register, class Tin, class Tout>
    static constexpr auto s_kernel = &kernel::fromXYZToLabConvert<Register, Tin, Tout>;
    static constexpr PixelModelFunction s_model = &modelLabFromXYZ;

    static std::vector<std::vector<float>> edges()
    {
        std::vector<std::vector<float>> values(3, commonEdges());
        const float whites[] = {95.047F, 100.0F, 108.883F};
        for (unsigned int c = 0; c < 3; ++c)
        {
            for (float ratio : {g_threshold, 1.0F, 0.5F, 0x1p48F})
            {
                appendAround(values[c], ratio * whites[c]);
            }
        }
        return values;
    }
};

struct FromLab
{
    template <class Register, class Tin, class Tout>
    static constexpr auto s_kernel = &kernel::fromLabToXYZConvert<Register, Tin, Tout>;
    static constexpr PixelModelFunction s_model = &modelXYZFromLab;

    static std::vector<std::vector<float>> edges()
    {
        std::vector<std::vector<float>> values(3, commonEdges());
        for (float lightness : {0.0F, 8.0F, 8.1F, 50.0F, 100.0F})
        {
            appendAround(values[0], lightness);
            // a and b that put fx and fz at the threshold.
            const float fy = (lightness + 16.0F) / 116.0F;
            appendAround(values[1], (g_inverseThreshold - fy) * 500.0F);
            appendAround(values[2], (fy - g_inverseThreshold) * 200.0F);
        }
        values[0].push_back(-16.0F);
        return values;
    }
};
} // namespace

class XYZToLabGrid : public KernelGridTest
{
};
TEST_P(XYZToLabGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(Lab, XYZToLabGrid, testing::ValuesIn(makeGrid<PixelKernelCheck<ToLab>::Check>()), placeName);

class LabToXYZGrid : public KernelGridTest
{
};
TEST_P(LabToXYZGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(Lab, LabToXYZGrid, testing::ValuesIn(makeGrid<PixelKernelCheck<FromLab>::Check>()), placeName);
} // namespace kovis::test
