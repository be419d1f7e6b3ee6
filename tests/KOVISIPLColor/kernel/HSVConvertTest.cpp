#include "KOVISIPLColor/kernel/KernelGrid.h"
#include "KOVISIPLColor/kernel/KernelSamples.h"

namespace kovis::test
{
namespace
{
namespace kernel = imaproc::color::kernel;

using Model = ModelPixel (*)(const ModelForm&, const ModelPixel&);

template <class Tin, class Tout>
void compare(const ModelForm& form, void (*convert)(unsigned long, const Tin**, Tout**), Model model, unsigned long count)
{
    const unsigned long reach = modelReach(form, count);
    PlaneSet<Tin> in(3, reach);
    PlaneSet<Tout> out(3, reach);
    in.fill(static_cast<unsigned int>(count));
    // Ties, greys and exact hues, which random samples seldom meet.
    for (unsigned long i = 3; i < reach; i += 8)
    {
        in[1][i] = in[0][i];
        in[2][i - 1] = in[1][i - 1];
        in[2][i - 2] = in[0][i - 2];
        in[1][i - 3] = in[0][i - 3];
        in[2][i - 3] = in[0][i - 3];
    }
    convert(count, in.in(), out.out());
    for (unsigned long i = 0; i < reach; ++i)
    {
        const ModelPixel pixel{modelLoad(in[0][i]), modelLoad(in[1][i]), modelLoad(in[2][i])};
        const ModelPixel result = model(form, pixel);
        for (unsigned int c = 0; c < 3; ++c)
        {
            const Tout expected = modelStore<Tout>(form, result[c]);
            ASSERT_TRUE(sameValue(out[c][i], expected))
                << "count " << count << ", channel " << c << ", element " << i << " (" << pixel[0] << ", " << pixel[1] << ", "
                << pixel[2] << "): " << +out[c][i] << " for " << +expected;
        }
    }
}

template <class Register, class Tin, class Tout>
struct ToHSVCheck
{
    static void run(const ModelForm& form)
    {
        for (unsigned long count : g_counts)
        {
            compare<Tin, Tout>(form, &kernel::fromRGBToHSVConvert<Register, Tin, Tout>, &modelHSVFromRGB, count);
            ASSERT_FALSE(testing::Test::HasFatalFailure());
        }
    }
};

template <class Register, class Tin, class Tout>
struct FromHSVCheck
{
    static void run(const ModelForm& form)
    {
        for (unsigned long count : g_counts)
        {
            compare<Tin, Tout>(form, &kernel::fromHSVToRGBConvert<Register, Tin, Tout>, &modelRGBFromHSV, count);
            ASSERT_FALSE(testing::Test::HasFatalFailure());
        }
    }
};
} // namespace

class RGBToHSVGrid : public KernelGridTest
{
};
TEST_P(RGBToHSVGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(HSV, RGBToHSVGrid, testing::ValuesIn(makeGrid<ToHSVCheck>()), placeName);

class HSVToRGBGrid : public KernelGridTest
{
};
TEST_P(HSVToRGBGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(HSV, HSVToRGBGrid, testing::ValuesIn(makeGrid<FromHSVCheck>()), placeName);
} // namespace kovis::test
