#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsAccumulation.h"

namespace kovis::imaproc::glbmsr
{
void StatsPart::add(const StatsPart& other)
{
    m_nbElements += other.m_nbElements;
    m_sum.add(other.m_sum);
    m_sumOfSquares.add(other.m_sumOfSquares);
    m_minimum = other.m_minimum < m_minimum ? other.m_minimum : m_minimum;
    m_maximum = other.m_maximum > m_maximum ? other.m_maximum : m_maximum;
    m_bNaN = m_bNaN || other.m_bNaN;
}

StatsAccumulation::StatsAccumulation() = default;
StatsAccumulation::~StatsAccumulation() = default;

void StatsAccumulation::add(const StatsPart& part)
{
    const boost::mutex::scoped_lock lock(m_mutex);
    m_total.add(part);
}

StatsPart StatsAccumulation::getTotal() const
{
    const boost::mutex::scoped_lock lock(m_mutex);
    return m_total;
}
} // namespace kovis::imaproc::glbmsr
