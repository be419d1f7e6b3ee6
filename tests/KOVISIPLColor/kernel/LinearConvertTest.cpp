#include "KOVISIPLColor/kernel/MatrixKernelCheck.h"

namespace kovis::test
{
namespace
{
namespace kernel = imaproc::color::kernel;

struct Linear
{
    template <class Register, class Tin, class Tout>
    static constexpr auto s_kernel = &kernel::linearConvert<Register, Tin, Tout>;
    template <class Tin, class Tout>
    static constexpr auto s_model = &modelLinear<Tin, Tout>;

    static std::vector<float> edges() { return {}; }
};
using LinearCheck = MatrixKernelCheck<Linear>;
} // namespace

class LinearConvertGrid : public KernelGridTest
{
};
TEST_P(LinearConvertGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(Linear, LinearConvertGrid, testing::ValuesIn(makeGrid<LinearCheck::Check>()), placeName);

class LinearConvertInPlace : public KernelGridTest
{
};
TEST_P(LinearConvertInPlace, ReadsBackTheRowsWrittenBefore)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(Linear, LinearConvertInPlace, testing::ValuesIn(LinearCheck::makeInPlaceGrid()), placeName);

class LinearConvertAlignment : public KernelGridTest
{
};
TEST_P(LinearConvertAlignment, TakesPlanesAtAnyElement)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(Linear, LinearConvertAlignment, testing::ValuesIn(makeGrid<LinearCheck::AlignmentCheck>()), placeName);
} // namespace kovis::test
