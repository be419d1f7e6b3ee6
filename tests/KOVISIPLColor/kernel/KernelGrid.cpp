#include "KOVISIPLColor/kernel/KernelGrid.h"

#include "KOVISIPLColor/kernel/KernelSamples.h"

#include <cstdlib>

namespace kovis::test
{
bool canRun(const ModelForm& form)
{
    if (&form == &g_avxForm)
    {
        return __builtin_cpu_supports("avx") != 0;
    }
    if (&form == &g_avx2Form)
    {
        return __builtin_cpu_supports("avx2") != 0;
    }
    if (&form == &g_fma3Form)
    {
        return __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0;
    }
    if (&form == &g_avx512Form)
    {
        return __builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512bw") != 0 &&
               __builtin_cpu_supports("avx512dq") != 0 && __builtin_cpu_supports("avx512vl") != 0;
    }
    return true;
}

const ModelForm& strongestForm()
{
    for (const ModelForm* form : {&g_fma3Form, &g_avx2Form, &g_avxForm})
    {
        if (canRun(*form))
        {
            return *form;
        }
    }
    return g_sse2Form;
}

unsigned int sampleSeed()
{
    static const unsigned int g_seed = []
    {
        const char* const text = std::getenv("KOVIS_TEST_SEED");
        return text == nullptr ? 20261U : static_cast<unsigned int>(std::strtoul(text, nullptr, 10));
    }();
    return g_seed;
}

const std::vector<float>& awkwardFloats()
{
    static const std::vector<float> g_values = []
    {
        std::vector<float> values{
            0.0F,   -0.0F, 0.5F,    -0.5F,  0.49F,  -0.49F, 0.49999997F, -0.49999997F, 1.0F,       -1.0F,         1.5F,
            -1.5F,  2.5F,  254.49F, 254.5F, 255.7F, 255.9F, 256.2F,      -0.3F,        -7.0F,      -128.7F,       127.4F,
            300.0F, 60.0F, 120.0F,  180.0F, 240.0F, 360.0F, 720.0F,      -30.0F,       -0.000001F, 3000000000.0F, -3000000000.0F};
        for (float edge : {127.0F, 128.0F, 255.0F, 256.0F, 32767.0F, 32768.0F, 65535.0F, 65536.0F, 8388608.0F, 16777216.0F,
                           2147483648.0F, 4294967296.0F, 3019898880.0F})
        {
            for (float sign : {1.0F, -1.0F})
            {
                const float value = sign * edge;
                values.insert(values.end(), {value, value + 0.5F, value - 0.5F, value + 0.25F, value - 0.75F,
                                             std::nextafterf(value, 0.0F), std::nextafterf(value, sign * 1e30F)});
            }
        }
        using Limits = std::numeric_limits<float>;
        for (float value : {Limits::min(), Limits::denorm_min(), Limits::max(), Limits::infinity(), 1e-40F, 8388609.0F,
                            8388611.0F, 16777215.0F, 1e20F, 3e38F})
        {
            values.insert(values.end(), {value, -value});
        }
        values.insert(values.end(), {Limits::quiet_NaN(), -Limits::quiet_NaN()});
        return values;
    }();
    return g_values;
}

TEST(KernelForms, TheFormThatThisRunIsForIsTheStrongestHere)
{
    const char* const expected = std::getenv("KOVIS_EXPECTED_FORM");
    if (expected == nullptr)
    {
        GTEST_SKIP() << "KOVIS_EXPECTED_FORM is not set; the strongest form here is " << strongestForm().m_name;
    }
    EXPECT_STREQ(expected, strongestForm().m_name);
}
} // namespace kovis::test
