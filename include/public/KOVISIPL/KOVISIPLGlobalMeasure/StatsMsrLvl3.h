#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/BaseProcessingAlgorithm.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorYStrip2d.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/KOVISIPLGlobalMeasureExport.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/OutStatsAccumulation.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::glbmsr
{
/// Measures the exact elements of one Y strip of a colour image. Attributes: InColorYStrip2d, OutStatsAccumulation.
class KOVISIPLGLOBALMEASURE_EXPORT StatsMsrLvl3 : public processor::BaseProcessingAlgorithm
{
    KOVIS_DECLARE_PROCESSOR(StatsMsrLvl3);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();
    KOVIS_DECLARE_ALGORITHM();

    /// The kernel of one element type: adds the strip's elements, without what lies past the image's end, to the accumulation.
    template <class T>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    KOVIS_DECLARE_INIT();
    KOVIS_DECLARE_ALGORITHM_STEPS();

private:
    boost::shared_ptr<attr::InColorYStrip2d> m_inColorYStrip2d;
    boost::shared_ptr<OutStatsAccumulation> m_outStatsAccumulation;
    boost::shared_ptr<processor::BaseDataParser> m_inputParser;
};
} // namespace kovis::imaproc::glbmsr
