#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl2.h"

#include "KOVIS/KOVISImageProcessing/DispatchStep.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/MeasureProcessorTraits.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl3.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::glbmsr, StatsMsrLvl2, BaseAsync1Processor, kovis::imaproc::glbmsr::MeasureProcessorTraits,
                       "KOVISIPL/KOVISIPLGlobalMeasure", 1);

namespace kovis::imaproc::glbmsr
{
KOVIS_DEFINE_PROCESSOR(StatsMsrLvl2);
KOVIS_DEFINE_SET(StatsMsrLvl2, m_inSubColorImg2d, m_outStatsAccumulation);

KOVIS_INSTANTIATE_SET(KOVISIPLGLOBALMEASURE_EXPORT, StatsMsrLvl2, attr::InSubColorImg2d);
KOVIS_INSTANTIATE_SET(KOVISIPLGLOBALMEASURE_EXPORT, StatsMsrLvl2, OutStatsAccumulation);

BoolResult StatsMsrLvl2::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                     processor::ProcessorDispatchPolicy& dispatchPolicy,
                                     boost::shared_ptr<processor::BaseRule>& rule,
                                     const processor::eProcessorRulePolicy& rulePolicy)
{
    processor::makeAttributes(attributes, m_inSubColorImg2d, m_outStatsAccumulation);
    outputInitializers.clear();
    return processor::finishInit<StatsMsrLvl2>(dispatchPolicy, rule, rulePolicy, [] { return processor::none(); });
}

processor::RetrievalResult StatsMsrLvl2::retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider)
{
    StripStep<StatsMsrLvl3> step;
    step.addValue<OutStatsAccumulation>(m_outStatsAccumulation->getStorage());
    step.addColorStrips<attr::InColorYStrip2d>(m_inSubColorImg2d->getStorage());
    return step.provide(priority, provider);
}
} // namespace kovis::imaproc::glbmsr

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::glbmsr::StatsMsrLvl2, makeClassMutexes);
