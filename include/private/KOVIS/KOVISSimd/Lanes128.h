#pragma once

// Included inside a target region. Integer work of the table power on four lanes, for forms without wider integers.

namespace kovis::simd::lanes128
{
/// A positive float as m * 2^e, the mantissa in the range of the table search.
KOVIS_SIMD_INLINE void splitMantissa(__m128i bits, __m128i& m, __m128i& e)
{
    const __m128i first = _mm_set1_epi32(detail::g_powFirstMantissa);
    const __m128i above = _mm_sub_epi32(bits, first);
    e = _mm_srai_epi32(above, 23);
    m = _mm_add_epi32(_mm_and_si128(above, _mm_set1_epi32(0x007FFFFF)), first);
}

/// 16 * (j + 127), where j is the whole part of k / 16: upward for a negative k, one more than downward otherwise.
KOVIS_SIMD_INLINE __m128i wholePart(__m128i k)
{
    const __m128i raised = _mm_add_epi32(_mm_add_epi32(k, _mm_srai_epi32(k, 31)), _mm_set1_epi32(16 * 128));
    return _mm_and_si128(raised, _mm_set1_epi32(-16));
}

/// A[16 * j - k], by scalar loads; 16 * j - k is 0 to 16.
KOVIS_SIMD_INLINE __m128 tablePart(__m128i whole, __m128i k)
{
    const __m128i index = _mm_sub_epi32(whole, k);
    const float* const table = detail::A;
    const __m128 entry0 = _mm_load_ss(table + (_mm_extract_epi16(index, 0) - 16 * 127));
    const __m128 entry1 = _mm_load_ss(table + (_mm_extract_epi16(index, 2) - 16 * 127));
    const __m128 entry2 = _mm_load_ss(table + (_mm_extract_epi16(index, 4) - 16 * 127));
    const __m128 entry3 = _mm_load_ss(table + (_mm_extract_epi16(index, 6) - 16 * 127));
    return _mm_movelh_ps(_mm_unpacklo_ps(entry0, entry1), _mm_unpacklo_ps(entry2, entry3));
}
} // namespace kovis::simd::lanes128
