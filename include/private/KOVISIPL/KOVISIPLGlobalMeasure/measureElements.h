#pragma once

#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsAccumulation.h"

#include <emmintrin.h>

#include <algorithm>
#include <type_traits>

// The loops of StatsMsrLvl3. Sums of a block are exact or, for 32-bit types, are taken over fixed blocks of 64 elements in a
// fixed order, and blocks are added exactly: so the totals do not depend on how an image is cut, as strips begin at multiples
// of 64.

namespace kovis::imaproc::glbmsr
{
/// A block of at most 1024 elements of an 8 or 16-bit type.
template <class T>
void measureShortBlock(const T* elements, unsigned long count, T& minimum, T& maximum, StatsPart& part)
{
    using Sum = std::conditional_t<std::is_signed_v<T>, int, unsigned int>;
    using Squares = std::conditional_t<sizeof(T) == 1, unsigned int, unsigned long>;
    T least = minimum;
    T greatest = maximum;
    Sum sum = 0;
    Squares squares = 0;
    for (unsigned long i = 0; i < count; ++i)
    {
        const Sum value = elements[i];
        least = std::min(least, elements[i]);
        greatest = std::max(greatest, elements[i]);
        sum += value;
        squares += static_cast<unsigned int>(value * value);
    }
    minimum = least;
    maximum = greatest;
    part.m_sum.add(static_cast<double>(sum));
    part.m_sumOfSquares.add(static_cast<double>(squares));
}

/// A block of at most 64 elements of a 32-bit integer type. Element i goes to lane i modulo 4, whatever the block's length.
template <class T>
void measureWideBlock(const T* elements, unsigned long count, T& minimum, T& maximum, StatsPart& part)
{
    T least = minimum;
    T greatest = maximum;
    long sum = 0;
    for (unsigned long i = 0; i < count; ++i)
    {
        least = std::min(least, elements[i]);
        greatest = std::max(greatest, elements[i]);
        sum += static_cast<long>(elements[i]);
    }
    double lanes[4] = {0.0, 0.0, 0.0, 0.0};
    unsigned long i = 0;
    for (; i + 4 <= count; i += 4)
    {
        for (unsigned long lane = 0; lane < 4; ++lane)
        {
            const auto value = static_cast<double>(elements[i + lane]);
            lanes[lane] += value * value;
        }
    }
    for (unsigned long lane = 0; i < count; ++i, ++lane)
    {
        const auto value = static_cast<double>(elements[i]);
        lanes[lane] += value * value;
    }
    minimum = least;
    maximum = greatest;
    part.m_sum.add(static_cast<double>(sum));
    part.m_sumOfSquares.add((lanes[0] + lanes[2]) + (lanes[1] + lanes[3]));
}

template <class T>
void measureElements(const T* elements, unsigned long count, StatsPart& part)
{
    if (count == 0)
    {
        return;
    }
    constexpr unsigned long blockLength = sizeof(T) < 4 ? 1024 : 64;
    T minimum = elements[0];
    T maximum = elements[0];
    for (unsigned long begin = 0; begin < count; begin += blockLength)
    {
        const unsigned long length = std::min(blockLength, count - begin);
        if constexpr (sizeof(T) < 4)
        {
            measureShortBlock(elements + begin, length, minimum, maximum, part);
        }
        else
        {
            measureWideBlock(elements + begin, length, minimum, maximum, part);
        }
    }
    part.m_nbElements += count;
    part.m_minimum = std::min(part.m_minimum, static_cast<double>(minimum));
    part.m_maximum = std::max(part.m_maximum, static_cast<double>(maximum));
}

/// Four floats at a time; the sums of a block are always taken in the same four lanes.
inline void measureElements(const float* elements, unsigned long count, StatsPart& part)
{
    if (count == 0)
    {
        return;
    }
    __m128 minimum = _mm_set1_ps(elements[0]);
    __m128 maximum = minimum;
    __m128 unordered = _mm_setzero_ps();
    for (unsigned long begin = 0; begin < count; begin += 64)
    {
        const unsigned long length = std::min(64UL, count - begin);
        const float* block = elements + begin;
        float staged[64]; // a short block, filled up with zeros for the sums and with its first element for the bounds
        __m128d sums[2] = {_mm_setzero_pd(), _mm_setzero_pd()};
        __m128d squares[2] = {_mm_setzero_pd(), _mm_setzero_pd()};
        if (length < 64)
        {
            std::copy_n(block, length, staged);
            std::fill(staged + length, staged + 64, 0.0F);
            block = staged;
        }
        for (unsigned long i = 0; i < 64; i += 4)
        {
            const __m128 value = _mm_loadu_ps(block + i);
            const __m128d low = _mm_cvtps_pd(value);
            const __m128d high = _mm_cvtps_pd(_mm_movehl_ps(value, value));
            sums[0] = _mm_add_pd(sums[0], low);
            sums[1] = _mm_add_pd(sums[1], high);
            squares[0] = _mm_add_pd(squares[0], _mm_mul_pd(low, low));
            squares[1] = _mm_add_pd(squares[1], _mm_mul_pd(high, high));
        }
        if (length < 64)
        {
            std::fill(staged + length, staged + 64, staged[0]);
        }
        for (unsigned long i = 0; i < 64; i += 4)
        {
            const __m128 value = _mm_loadu_ps(block + i);
            minimum = _mm_min_ps(value, minimum);
            maximum = _mm_max_ps(value, maximum);
            unordered = _mm_or_ps(unordered, _mm_cmpunord_ps(value, value));
        }
        const __m128d sum = _mm_add_pd(sums[0], sums[1]);
        const __m128d square = _mm_add_pd(squares[0], squares[1]);
        part.m_sum.add(_mm_cvtsd_f64(sum) + _mm_cvtsd_f64(_mm_unpackhi_pd(sum, sum)));
        part.m_sumOfSquares.add(_mm_cvtsd_f64(square) + _mm_cvtsd_f64(_mm_unpackhi_pd(square, square)));
    }
    alignas(16) float lanes[4];
    _mm_store_ps(lanes, minimum);
    part.m_minimum = std::min(part.m_minimum, static_cast<double>(*std::min_element(lanes, lanes + 4)));
    _mm_store_ps(lanes, maximum);
    part.m_maximum = std::max(part.m_maximum, static_cast<double>(*std::max_element(lanes, lanes + 4)));
    part.m_bNaN = part.m_bNaN || _mm_movemask_ps(unordered) != 0;
    part.m_nbElements += count;
}
} // namespace kovis::imaproc::glbmsr
