#include "KOVISIPLColor/kernel/KernelGrid.h"
#include "KOVISIPLColor/kernel/KernelSamples.h"

#include <vector>

namespace kovis::test
{
namespace
{
namespace kernel = imaproc::color::kernel;

/// Rows of inSizeC coefficients and an offset. The second kind has coefficients that lead out of every range.
std::vector<float> makeMatrix(unsigned int inSizeC, unsigned int outSizeC, unsigned int kind)
{
    std::mt19937 random(sampleSeed() + 31U * inSizeC + 17U * outSizeC + kind);
    std::vector<float> matrix;
    for (unsigned int i = 0; i < outSizeC * (inSizeC + 1); ++i)
    {
        const float ordinary = static_cast<float>(random() % 4000U) / 1000.0F - 2.0F;
        matrix.push_back(kind == 1 && i % 3 == 1 ? awkwardFloats()[random() % awkwardFloats().size()] : ordinary);
    }
    return matrix;
}

template <class Register, class Tin, class Tout>
struct LinearCheck
{
    static void compare(const ModelForm& form, unsigned int inSizeC, unsigned int outSizeC, const std::vector<float>& matrix,
                        unsigned long count)
    {
        const unsigned long reach = modelReach(form, count);
        PlaneSet<Tin> in(inSizeC, reach);
        PlaneSet<Tout> out(outSizeC, reach);
        PlaneSet<Tout> expected(outSizeC, reach);
        in.fill(static_cast<unsigned int>(count));
        kernel::linearConvert<Register, Tin, Tout>(inSizeC, outSizeC, matrix.data(), count, in.in(), out.out());
        modelLinear<Tin, Tout>(form, inSizeC, outSizeC, matrix.data(), count, in.in(), expected.out());
        for (unsigned int r = 0; r < outSizeC; ++r)
        {
            for (unsigned long i = 0; i < reach; ++i)
            {
                ASSERT_TRUE(sameValue(out[r][i], expected[r][i]))
                    << inSizeC << " to " << outSizeC << " channels, count " << count << ", row " << r << ", element " << i << ": "
                    << +out[r][i] << " for " << +expected[r][i];
            }
        }
    }

    static void run(const ModelForm& form)
    {
        for (unsigned long count : g_counts)
        {
            compare(form, 3, 3, makeMatrix(3, 3, 0), count);
            ASSERT_FALSE(testing::Test::HasFatalFailure());
        }
        const unsigned int shapes[][2] = {{0, 2}, {1, 3}, {3, 1}, {4, 3}, {3, 4}, {5, 2}, {1, 1}, {3, 0}};
        for (const auto& shape : shapes)
        {
            compare(form, shape[0], shape[1], makeMatrix(shape[0], shape[1], 0), 97);
            ASSERT_FALSE(testing::Test::HasFatalFailure());
        }
        compare(form, 3, 3, makeMatrix(3, 3, 1), 4096);
        ASSERT_FALSE(testing::Test::HasFatalFailure());
        // The samples themselves: load and store with nothing between.
        compare(form, 1, 1, {1.0F, 0.0F}, 4096);
    }
};

/// The same planes on both sides: a row reads what the rows before it wrote.
template <class Register, class Tin, class Tout>
struct InPlaceCheck
{
    static void run(const ModelForm& form)
    {
        if constexpr (std::is_same_v<Tin, Tout>)
        {
            for (unsigned long count : g_counts)
            {
                const unsigned long reach = modelReach(form, count);
                PlaneSet<Tin> planes(3, reach);
                PlaneSet<Tin> expected(3, reach);
                planes.fill(static_cast<unsigned int>(count));
                expected.copyFrom(planes);
                const std::vector<float> matrix = makeMatrix(3, 3, 0);
                kernel::linearConvert<Register, Tin, Tin>(3, 3, matrix.data(), count, planes.in(), planes.out());
                modelLinear<Tin, Tin>(form, 3, 3, matrix.data(), count, expected.in(), expected.out());
                for (unsigned int r = 0; r < 3; ++r)
                {
                    for (unsigned long i = 0; i < reach; ++i)
                    {
                        ASSERT_TRUE(sameValue(planes[r][i], expected[r][i]))
                            << "count " << count << ", row " << r << ", element " << i;
                    }
                }
            }
        }
    }
};

/// Planes need no alignment beyond their element's: every offset of the first element, with bytes beside the plane that stay.
template <class Register, class Tin, class Tout>
struct AlignmentCheck
{
    static void run(const ModelForm& form)
    {
        constexpr unsigned long count = 32;
        const float matrix[] = {1.0F, 2.0F};
        for (unsigned long offset = 0; offset < 16; ++offset)
        {
            const std::vector<Tin> from = makeSamples<Tin>(offset + count, 3);
            std::vector<Tout> to(offset + count + 8, static_cast<Tout>(77));
            const Tin* in[] = {from.data() + offset};
            Tout* out[] = {to.data() + offset};
            kernel::linearConvert<Register, Tin, Tout>(1, 1, matrix, count, in, out);
            for (unsigned long i = 0; i < to.size(); ++i)
            {
                const Tout expected = i < offset || i >= offset + count
                                          ? static_cast<Tout>(77)
                                          : modelStore<Tout>(form, modelMulAdd(form, modelLoad(from[i]), 1.0F, 2.0F));
                ASSERT_TRUE(sameValue(to[i], expected)) << "offset " << offset << ", element " << i;
            }
        }
    }
};
} // namespace

class LinearConvertGrid : public KernelGridTest
{
};
TEST_P(LinearConvertGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(Linear, LinearConvertGrid, testing::ValuesIn(makeGrid<LinearCheck>()), placeName);

class LinearConvertInPlace : public KernelGridTest
{
};
TEST_P(LinearConvertInPlace, ReadsBackTheRowsWrittenBefore)
{
    GetParam().m_check(*GetParam().m_form);
}
std::vector<GridPlace> inPlaceGrid()
{
    std::vector<GridPlace> grid = makeGrid<InPlaceCheck>();
    std::erase_if(grid, [](const GridPlace& place) { return std::string(place.m_inName) != place.m_outName; });
    return grid;
}
INSTANTIATE_TEST_SUITE_P(Linear, LinearConvertInPlace, testing::ValuesIn(inPlaceGrid()), placeName);

class LinearConvertAlignment : public KernelGridTest
{
};
TEST_P(LinearConvertAlignment, TakesPlanesAtAnyElement)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(Linear, LinearConvertAlignment, testing::ValuesIn(makeGrid<AlignmentCheck>()), placeName);
} // namespace kovis::test
