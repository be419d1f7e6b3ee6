"""The test for leaking vector code sees a leak: a shared template, a standard function and an initialiser, each compiled in a
target region. Arguments: the compiler, a scratch folder."""

import os
import subprocess
import sys

from checkVectorLeak import leaks, vector_functions

SOURCE = r"""
#include <immintrin.h>
#if defined(__clang__)
#pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#else
#pragma GCC push_options
#pragma GCC target("avx2")
#endif
template <class T> __attribute__((noinline)) void shared(T* out, const T* in)
{
    _mm256_storeu_ps(out, _mm256_add_ps(_mm256_loadu_ps(in), _mm256_loadu_ps(in + 8)));
}
template void shared<float>(float*, const float*);
template <class T> __attribute__((noinline)) T scaled(T value) { return value * T(1.5); }
template float scaled<float>(float);
namespace simd::avx2 { void kernel(float* out, const float* in); }
void simd::avx2::kernel(float* out, const float* in) { _mm256_storeu_ps(out, _mm256_loadu_ps(in)); }
volatile float g_in = 2.0F;
float g_out = g_in * g_in;
#if defined(__clang__)
#pragma clang attribute pop
#else
#pragma GCC pop_options
#endif
void plain(float* out, const float* in) { for (int i = 0; i < 64; ++i) out[i] = in[i] * 3.0F; }
"""


def expect(condition, text):
    if not condition:
        print("FAILED:", text)
        sys.exit(1)
    print("ok:", text)


def main(compiler, folder):
    source = os.path.join(folder, "leak_avx2.cpp")
    with open(source, "w", encoding="utf-8") as file:
        file.write(SOURCE)
    subprocess.run([compiler, "-std=c++20", "-O2", "-c", source, "-o", source + ".o"], check=True)
    functions, count = vector_functions(source + ".o")
    problems = leaks(source, functions)
    expect(count >= 4, "all functions are looked at")
    expect(any("shared<float>" in problem for problem in problems), "a template without a form in its name is seen")
    expect(any("scaled<float>" in problem for problem in problems), "scalar code in the set's encoding is seen")
    expect(not any("simd::avx2::kernel" in problem for problem in problems), "a form's own kernel passes")
    expect(not any("plain" in name for name in functions), "plain code passes")
    expect(any("simd::avx2::kernel" in problem for problem in leaks("other_avx.cpp", functions)),
           "a kernel in another form's unit is seen")
    expect(leaks(source, {"_GLOBAL__sub_I_simd::avx2::g_table": "vmovss"}), "an initialiser is seen, whatever its name")
    expect(len(leaks(source, functions, False)) == len(functions), "a library without vector code may have none")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
