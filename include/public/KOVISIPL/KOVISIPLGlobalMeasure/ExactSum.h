#pragma once

#include "KOVISIPL/KOVISIPLGlobalMeasure/KOVISIPLGlobalMeasureExport.h"

#include <array>
#include <cstdint>

namespace kovis::imaproc::glbmsr
{
/// A sum of doubles in fixed point, without any rounding, so that it does not depend on the order of the terms. Terms are of a
/// magnitude below 2^290, and what they hold below 2^-320 is dropped: sums of floats and of their squares fit whole. Infinities
/// and NaN are kept beside the sum and make it what IEEE 754 makes of them.
class KOVISIPLGLOBALMEASURE_EXPORT ExactSum
{
public:
    void add(double term);
    void add(const ExactSum& other);
    /// The sum, rounded once per digit from the lowest up.
    long double getValue() const;

private:
    void carry();

    static constexpr int g_nbDigits = 22; // of 32 bits; the lowest one counts 2^-320
    static constexpr int g_lowestExponent = -320;
    std::array<std::int64_t, g_nbDigits> m_digits{};
    unsigned int m_nbTerms = 0; ///< since the last carry
    double m_special = 0.0;
};
} // namespace kovis::imaproc::glbmsr
