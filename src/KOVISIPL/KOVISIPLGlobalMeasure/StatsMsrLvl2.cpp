#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl2.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISBaseProcessing/NoSplit.h"
#include "KOVIS/KOVISImageProcessing/ImageSplit.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/MeasureProcessorTraits.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl3.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::glbmsr, StatsMsrLvl2, BaseAsync1Processor, kovis::imaproc::glbmsr::MeasureProcessorTraits,
                       "KOVISIPL/KOVISIPLGlobalMeasure", 1);

namespace kovis::imaproc::glbmsr
{
namespace
{
processor::ProcessorDispatchPolicy& getStatsMsrLvl2StaticDispatchPolicy()
{
    static processor::ProcessorDispatchPolicy g_dispatchPolicy;
    return g_dispatchPolicy;
}
} // namespace

KOVIS_DEFINE_PROCESSOR(StatsMsrLvl2, getStatsMsrLvl2StaticDispatchPolicy);

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
    attributes.clear();
    processor::makeAttribute(m_inSubColorImg2d, attributes);
    processor::makeAttribute(m_outStatsAccumulation, attributes);
    outputInitializers.clear();
    dispatchPolicy = getDefaultDispatchPolicy();
    rule.reset();
    if (rulePolicy != processor::ePRP_NoRules)
    {
        rule = processor::none();
    }
    return BoolResult(true);
}

processor::RetrievalResult StatsMsrLvl2::retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider)
{
    const auto dispatcher = boost::make_shared<processor::DynamicProcessorDispatcher<StatsMsrLvl3>>();

    const auto imageSplit =
        boost::make_shared<ImageYStripColor2dSplit<StatsMsrLvl3, const image::BaseImage, attr::InColorYStrip2d>>();
    BoolResult result = imageSplit->initBase(m_inSubColorImg2d->getStorage(), eSAT_InImage, eSPD_TopToBottom, false);
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }
    const auto accumulationSplit =
        processor::dynamicNoSplit<StatsMsrLvl3, OutStatsAccumulation>(m_outStatsAccumulation->getStorage());

    const std::vector<boost::shared_ptr<processor::BaseDynamicSplit>> splits{imageSplit, accumulationSplit};
    result = dispatcher->initBase(priority, splits);
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }
    provider = dispatcher;
    return processor::eRS_Provided;
}
} // namespace kovis::imaproc::glbmsr

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::glbmsr::StatsMsrLvl2, "kovis::imaproc::glbmsr::StatsMsrLvl2", makeClassMutexes);
