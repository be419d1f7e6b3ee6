#pragma once

#include "KOVISIPLColor/kernel/EdgeValues.h"
#include "KOVISIPLColor/kernel/KernelGrid.h"
#include "KOVISIPLColor/kernel/KernelSamples.h"

#include <random>
#include <vector>

// The check of a kernel that makes three planes of three, pixel by pixel.

namespace kovis::test
{
using PixelModelFunction = ModelPixel (*)(const ModelForm&, const ModelPixel&);

/// A kernel on planes that hold samples, over whole blocks, against the model.
template <class Tin, class Tout>
void comparePixels(const ModelForm& form, void (*convert)(unsigned long, const Tin**, Tout**), PixelModelFunction model,
                   unsigned long count, PlaneSet<Tin>& in)
{
    const unsigned long reach = modelReach(form, count);
    PlaneSet<Tout> out(3, reach);
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

/// A family has s_kernel<Register, Tin, Tout>, s_model, and edges(): for each channel the values at which its formulas turn.
template <class Family>
struct PixelKernelCheck
{
    template <class Register, class Tin, class Tout>
    struct Check
    {
        static void compare(const ModelForm& form, unsigned long count, PlaneSet<Tin>& in)
        {
            comparePixels<Tin, Tout>(form, Family::template s_kernel<Register, Tin, Tout>, Family::s_model, count, in);
        }

        static void compareSamples(const ModelForm& form, unsigned long count)
        {
            const unsigned long reach = modelReach(form, count);
            PlaneSet<Tin> in(3, reach);
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
            compare(form, count, in);
        }

        /// The values of one channel meet those of the others at random.
        static void compareEdges(const ModelForm& form)
        {
            constexpr unsigned long count = 4096;
            const std::vector<std::vector<float>> edges = Family::edges();
            std::mt19937 random(sampleSeed());
            PlaneSet<Tin> in(3, count);
            for (unsigned int c = 0; c < 3; ++c)
            {
                for (unsigned long i = 0; i < count; ++i)
                {
                    const float value = edges[c][random() % edges[c].size()];
                    in[c][i] = modelStore<Tin>(g_genericForm, value);
                }
            }
            compare(form, count, in);
        }

        static void run(const ModelForm& form)
        {
            for (unsigned long count : g_counts)
            {
                compareSamples(form, count);
                ASSERT_FALSE(testing::Test::HasFatalFailure());
            }
            compareEdges(form);
        }
    };
};
} // namespace kovis::test
