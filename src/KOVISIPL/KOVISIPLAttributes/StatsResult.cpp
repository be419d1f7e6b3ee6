#include "KOVISIPL/KOVISIPLAttributes/StatsResult.h"

namespace kovis::imaproc::attr
{
StatsResult::StatsResult()
    : m_nbElements("number of elements", 0),
      m_sum("sum", 0.0),
      m_mean("mean", 0.0),
      m_minimum("minimum", 0.0),
      m_maximum("maximum", 0.0),
      m_standardDeviation("standard deviation", 0.0)
{
}
StatsResult::~StatsResult() = default;

void StatsResult::setValues(unsigned long nbElements, double sum, double mean, double minimum, double maximum,
                            double standardDeviation)
{
    m_nbElements.setValue(nbElements);
    m_sum.setValue(sum);
    m_mean.setValue(mean);
    m_minimum.setValue(minimum);
    m_maximum.setValue(maximum);
    m_standardDeviation.setValue(standardDeviation);
}
} // namespace kovis::imaproc::attr
