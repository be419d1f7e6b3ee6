#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAsyncProcessor.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVISIPL/KOVISIPLAttributes/InImg.h"
#include "KOVISIPL/KOVISIPLAttributes/OutStatsResult.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/KOVISIPLGlobalMeasureExport.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/OutStatsAccumulation.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::glbmsr
{
/// Measures an image over all channels, slices and time steps: number of elements, sum, mean, minimum, maximum, standard
/// deviation. Attributes: InImg, of any buffer type, and OutStatsResult, which is filled when the run has gone well and is left
/// alone otherwise. A NaN among the elements makes all but their number NaN. The same bits for any number of threads and any cut.
class KOVISIPLGLOBALMEASURE_EXPORT StatsMsrLvl1 : public processor::BaseAsync1Processor
{
    KOVIS_DECLARE_PROCESSOR(StatsMsrLvl1);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();

protected:
    KOVIS_DECLARE_INIT();
    using processor::BaseAsync1Processor::retrieveProvider;
    processor::RetrievalResult retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) override;
    /// Puts the result together.
    BoolResult postProcess() override;

private:
    boost::shared_ptr<attr::InImg> m_inImg;
    boost::shared_ptr<attr::OutStatsResult> m_outStatsResult;
    boost::shared_ptr<StatsAccumulation> m_accumulation;
};
} // namespace kovis::imaproc::glbmsr
