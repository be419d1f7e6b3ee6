#pragma once

#include "KOVISIPLColor/kernel/EdgeValues.h"
#include "KOVISIPLColor/kernel/KernelGrid.h"
#include "KOVISIPLColor/kernel/KernelSamples.h"

#include <random>
#include <type_traits>
#include <vector>

// The checks of a kernel that puts planes through a matrix.

namespace kovis::test
{
/// Rows of inSizeC coefficients and an offset. The second kind has coefficients that lead out of every range.
inline std::vector<float> makeMatrix(unsigned int inSizeC, unsigned int outSizeC, unsigned int kind)
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

/// A family has s_kernel<Register, Tin, Tout>, s_model<Tin, Tout>, and edges(): samples at which its formula turns.
template <class Family>
struct MatrixKernelCheck
{
    /// Samples, every second one an edge where the family has any.
    template <class Tin>
    static void fill(PlaneSet<Tin>& planes, unsigned long count)
    {
        planes.fill(static_cast<unsigned int>(count));
        const std::vector<float> edges = Family::edges();
        if (edges.empty())
        {
            return;
        }
        std::mt19937 random(sampleSeed() + static_cast<unsigned int>(count));
        for (std::size_t c = 0; c < planes.size(); ++c)
        {
            for (std::size_t i = 0; i < planes[c].size(); i += 2)
            {
                planes[c][i] = modelStore<Tin>(g_genericForm, edges[random() % edges.size()]);
            }
        }
    }

    template <class T>
    static void compare(PlaneSet<T>& actual, PlaneSet<T>& expected, unsigned int inSizeC, unsigned long count)
    {
        for (unsigned int r = 0; r < actual.size(); ++r)
        {
            for (unsigned long i = 0; i < actual[r].size(); ++i)
            {
                ASSERT_TRUE(sameValue(actual[r][i], expected[r][i]))
                    << inSizeC << " to " << actual.size() << " channels, count " << count << ", row " << r << ", element " << i
                    << ": " << +actual[r][i] << " for " << +expected[r][i];
            }
        }
    }

    template <class Register, class Tin, class Tout>
    struct Check
    {
        static void runMatrix(const ModelForm& form, unsigned int inSizeC, unsigned int outSizeC,
                              const std::vector<float>& matrix, unsigned long count)
        {
            const unsigned long reach = modelReach(form, count);
            PlaneSet<Tin> in(inSizeC, reach);
            PlaneSet<Tout> out(outSizeC, reach);
            PlaneSet<Tout> expected(outSizeC, reach);
            fill(in, count);
            Family::template s_kernel<Register, Tin, Tout>(inSizeC, outSizeC, matrix.data(), count, in.in(), out.out());
            Family::template s_model<Tin, Tout>(form, inSizeC, outSizeC, matrix.data(), count, in.in(), expected.out());
            compare(out, expected, inSizeC, count);
        }

        static void run(const ModelForm& form)
        {
            for (unsigned long count : g_counts)
            {
                runMatrix(form, 3, 3, makeMatrix(3, 3, 0), count);
                ASSERT_FALSE(testing::Test::HasFatalFailure());
            }
            const unsigned int shapes[][2] = {{0, 2}, {1, 3}, {3, 1}, {4, 3}, {3, 4}, {5, 2}, {1, 1}, {3, 0}};
            for (const auto& shape : shapes)
            {
                runMatrix(form, shape[0], shape[1], makeMatrix(shape[0], shape[1], 0), 97);
                ASSERT_FALSE(testing::Test::HasFatalFailure());
            }
            runMatrix(form, 3, 3, makeMatrix(3, 3, 1), 4096);
            ASSERT_FALSE(testing::Test::HasFatalFailure());
            // What becomes of each sample, with nothing beside it.
            runMatrix(form, 1, 1, {1.0F, 0.0F}, 4096);
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
                    fill(planes, count);
                    expected.copyFrom(planes);
                    const std::vector<float> matrix = makeMatrix(3, 3, 0);
                    Family::template s_kernel<Register, Tin, Tin>(3, 3, matrix.data(), count, planes.in(), planes.out());
                    Family::template s_model<Tin, Tin>(form, 3, 3, matrix.data(), count, expected.in(), expected.out());
                    compare(planes, expected, 3, count);
                    ASSERT_FALSE(testing::Test::HasFatalFailure());
                }
            }
        }
    };

    static std::vector<GridPlace> makeInPlaceGrid()
    {
        std::vector<GridPlace> grid = makeGrid<InPlaceCheck>();
        std::erase_if(grid, [](const GridPlace& place) { return std::string(place.m_inName) != place.m_outName; });
        return grid;
    }

    /// Planes need no alignment beyond their element's: every offset of the first element, with elements beside the plane that
    /// stay.
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
                std::vector<Tout> expected = to;
                const Tin* in[] = {from.data() + offset};
                Tout* out[] = {to.data() + offset};
                Tout* expectedOut[] = {expected.data() + offset};
                Family::template s_kernel<Register, Tin, Tout>(1, 1, matrix, count, in, out);
                Family::template s_model<Tin, Tout>(form, 1, 1, matrix, count, in, expectedOut);
                for (unsigned long i = 0; i < to.size(); ++i)
                {
                    ASSERT_TRUE(sameValue(to[i], expected[i])) << "offset " << offset << ", element " << i;
                }
            }
        }
    };
};
} // namespace kovis::test
