#include "KOVISIPLColor/kernel/KernelGrid.h"
#include "KOVISIPLColor/kernel/KernelSamples.h"

namespace kovis::test
{
namespace
{
template <class Register, class Tin, class Tout>
struct CopyCheck
{
    static void run(const ModelForm& form)
    {
        for (unsigned long count : g_counts)
        {
            const unsigned long reach = modelReach(form, count);
            PlaneSet<Tin> in(4, reach);
            PlaneSet<Tout> out(4, reach);
            in.fill(static_cast<unsigned int>(count));
            imaproc::color::kernel::copyConvert<Register, Tin, Tout>(4, count, in.in(), out.out());
            for (unsigned int c = 0; c < 4; ++c)
            {
                for (unsigned long i = 0; i < reach; ++i)
                {
                    const Tout expected = modelCopy<Tin, Tout>(form, in[c][i]);
                    const Tout stored = out[c][i];
                    // Equal types keep every bit, those of a NaN too.
                    ASSERT_EQ(std::memcmp(&stored, &expected, sizeof(Tout)), 0)
                        << "count " << count << ", channel " << c << ", element " << i << ": " << +stored << " for " << +expected;
                }
            }
        }
    }
};
} // namespace

class CopyConvertGrid : public KernelGridTest
{
};
TEST_P(CopyConvertGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(Copy, CopyConvertGrid, testing::ValuesIn(makeGrid<CopyCheck>()), placeName);
} // namespace kovis::test
