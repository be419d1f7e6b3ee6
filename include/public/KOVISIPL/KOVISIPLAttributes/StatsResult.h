#pragma once

#include "KOVIS/KOVISBaseData/BaseDataItemNode.h"
#include "KOVIS/KOVISBaseData/DataItemLeaf.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// Statistics of an image over all its channels, slices and time steps. All zeros until a measure has filled it; filled as a
/// whole, by one thread.
class KOVISIPLATTRIBUTES_EXPORT StatsResult : public BaseDataItemNode
{
public:
    StatsResult();
    ~StatsResult() override;

    /// Number of elements measured.
    unsigned long getNbElements() const { return m_nbElements.getValue(); }
    double getSum() const { return m_sum.getValue(); }
    double getMean() const { return m_mean.getValue(); }
    /// NaN if there is a NaN among the elements; so for the maximum.
    double getMinimum() const { return m_minimum.getValue(); }
    double getMaximum() const { return m_maximum.getValue(); }
    /// Of the whole population: the root of the mean square distance from the mean.
    double getStandardDeviation() const { return m_standardDeviation.getValue(); }

    void setValues(unsigned long nbElements, double sum, double mean, double minimum, double maximum, double standardDeviation);

private:
    DataItemLeaf<unsigned long> m_nbElements;
    DataItemLeaf<double> m_sum;
    DataItemLeaf<double> m_mean;
    DataItemLeaf<double> m_minimum;
    DataItemLeaf<double> m_maximum;
    DataItemLeaf<double> m_standardDeviation;
};
} // namespace kovis::imaproc::attr
