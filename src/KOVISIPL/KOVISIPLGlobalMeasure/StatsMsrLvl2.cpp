#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl2.h"

#include "KOVIS/KOVISImageProcessing/DispatchStep.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/MeasureProcessorTraits.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl3.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::glbmsr, StatsMsrLvl2, BaseAsync1Processor, kovis::imaproc::glbmsr::MeasureProcessorTraits,
                       "KOVISIPL/KOVISIPLGlobalMeasure", 1);

namespace kovis::imaproc::glbmsr
{
KOVIS_DEFINE_PROCESSOR(StatsMsrLvl2);

template <class TAttribute>
void StatsMsrLvl2::set(const typename TAttribute::StorageType& value)
{
    processor::ProcessorAnatomy<StatsMsrLvl2>::set(
        *this, processor::selectAttribute<TAttribute>(m_inSubColorImg2d, m_outStatsAccumulation), value);
}

template KOVISIPLGLOBALMEASURE_EXPORT void StatsMsrLvl2::set<attr::InSubColorImg2d>(const attr::InSubColorImg2d::StorageType&);
template KOVISIPLGLOBALMEASURE_EXPORT void StatsMsrLvl2::set<OutStatsAccumulation>(const OutStatsAccumulation::StorageType&);

BoolResult
StatsMsrLvl2::initDerived(std::vector<boost::shared_ptr<processor::BaseAttribute>>& attributes,
                          std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>& outputInitializers,
                          processor::ProcessorDispatchPolicy& dispatchPolicy, boost::shared_ptr<processor::BaseRule>& rule,
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

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::glbmsr::StatsMsrLvl2, "kovis::imaproc::glbmsr::StatsMsrLvl2", makeClassMutexes);
