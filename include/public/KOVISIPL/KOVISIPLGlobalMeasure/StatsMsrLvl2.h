#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAsyncProcessor.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVISIPL/KOVISIPLAttributes/InSubColorImg2d.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/KOVISIPLGlobalMeasureExport.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/OutStatsAccumulation.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::glbmsr
{
/// Measures one 2D image with all its channels, strip by strip. Attributes: InSubColorImg2d, OutStatsAccumulation.
class KOVISIPLGLOBALMEASURE_EXPORT StatsMsrLvl2 : public processor::BaseAsync1Processor
{
    KOVIS_DECLARE_PROCESSOR(StatsMsrLvl2);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();

protected:
    KOVIS_DECLARE_INIT();
    using processor::BaseAsync1Processor::retrieveProvider;
    processor::RetrievalResult retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) override;

private:
    boost::shared_ptr<attr::InSubColorImg2d> m_inSubColorImg2d;
    boost::shared_ptr<OutStatsAccumulation> m_outStatsAccumulation;
};
} // namespace kovis::imaproc::glbmsr
