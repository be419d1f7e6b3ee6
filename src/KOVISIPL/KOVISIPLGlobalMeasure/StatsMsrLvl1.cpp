#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl1.h"

#include "KOVIS/KOVISImageProcessing/DispatchStep.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/MeasureProcessorTraits.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl2.h"

#include <cmath>
#include <limits>

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::glbmsr, StatsMsrLvl1, BaseAsync1Processor, kovis::imaproc::glbmsr::MeasureProcessorTraits,
                       "KOVISIPL/KOVISIPLGlobalMeasure", 0);

namespace kovis::imaproc::glbmsr
{
KOVIS_DEFINE_PROCESSOR(StatsMsrLvl1);
KOVIS_DEFINE_SET(StatsMsrLvl1, m_inImg, m_outStatsResult);

KOVIS_INSTANTIATE_SET(KOVISIPLGLOBALMEASURE_EXPORT, StatsMsrLvl1, attr::InImg);
KOVIS_INSTANTIATE_SET(KOVISIPLGLOBALMEASURE_EXPORT, StatsMsrLvl1, attr::OutStatsResult);

BoolResult StatsMsrLvl1::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                     processor::ProcessorDispatchPolicy& dispatchPolicy,
                                     boost::shared_ptr<processor::BaseRule>& rule,
                                     const processor::eProcessorRulePolicy& rulePolicy)
{
    processor::makeAttributes(attributes, m_inImg, m_outStatsResult);
    outputInitializers.clear();
    return processor::finishInit<StatsMsrLvl1>(dispatchPolicy, rule, rulePolicy, [] { return processor::none(); });
}

processor::RetrievalResult StatsMsrLvl1::retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider)
{
    m_accumulation = boost::make_shared<StatsAccumulation>();
    SubImageStep<StatsMsrLvl2> step;
    step.addValue<OutStatsAccumulation>(m_accumulation);
    step.addSlices<attr::InSubColorImg2d>(m_inImg->getStorage());
    return step.provide(priority, provider);
}

BoolResult StatsMsrLvl1::postProcess()
{
    const StatsPart total = m_accumulation->getTotal();
    m_accumulation.reset();
    const auto nbElements = static_cast<long double>(total.m_nbElements);
    const long double sum = total.m_sum.getValue();
    const long double mean = sum / nbElements;
    const long double variance = total.m_sumOfSquares.getValue() / nbElements - mean * mean;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    // adding 0.0 makes a negative zero a plain one, as which of the two came first depends on the cut
    m_outStatsResult->getStorage()->setValues(
        total.m_nbElements, total.m_bNaN ? nan : static_cast<double>(sum), total.m_bNaN ? nan : static_cast<double>(mean),
        total.m_bNaN ? nan : total.m_minimum + 0.0, total.m_bNaN ? nan : total.m_maximum + 0.0,
        total.m_bNaN ? nan : static_cast<double>(std::sqrt(variance < 0.0L ? 0.0L : variance)));
    return BoolResult(true);
}
} // namespace kovis::imaproc::glbmsr

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::glbmsr::StatsMsrLvl1, makeClassMutexes);
