#pragma once

#include "KOVIS/KOVISBaseData/BaseDataItemNode.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/ExactSum.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/KOVISIPLGlobalMeasureExport.h"

#include <boost/thread/mutex.hpp>

#include <limits>

namespace kovis::imaproc::glbmsr
{
/// What a measure gathers from its elements. Whatever the order in which parts are added, the totals are the same to the bit.
struct KOVISIPLGLOBALMEASURE_EXPORT StatsPart
{
    unsigned long m_nbElements = 0;
    ExactSum m_sum;
    ExactSum m_sumOfSquares;
    double m_minimum = std::numeric_limits<double>::infinity();
    double m_maximum = -std::numeric_limits<double>::infinity();
    bool m_bNaN = false;

    void add(const StatsPart& other);
};

/// The totals of a measure under way, shared by its pieces on all threads.
class KOVISIPLGLOBALMEASURE_EXPORT StatsAccumulation : public BaseDataItemNode
{
public:
    StatsAccumulation();
    ~StatsAccumulation() override;

    void add(const StatsPart& part);
    StatsPart getTotal() const;

private:
    mutable boost::mutex m_mutex;
    StatsPart m_total;
};
} // namespace kovis::imaproc::glbmsr
