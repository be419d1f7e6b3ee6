#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl2.h"

#include "KOVIS/KOVISImageProcessing/DispatchStep.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl3.h"
#include "KOVISIPL/KOVISIPLUtility/UtilityProcessorTraits.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::util, ConvertImgLvl2, BaseAsync1Processor, kovis::imaproc::util::UtilityProcessorTraits,
                       "KOVISIPL/KOVISIPLUtility", 1);

namespace kovis::imaproc::util
{
KOVIS_DEFINE_PROCESSOR(ConvertImgLvl2);
KOVIS_DEFINE_SET(ConvertImgLvl2, m_inSubColorImg2d, m_outSubColorImg2d);

KOVIS_INSTANTIATE_SET(KOVISIPLUTILITY_EXPORT, ConvertImgLvl2, attr::InSubColorImg2d);
KOVIS_INSTANTIATE_SET(KOVISIPLUTILITY_EXPORT, ConvertImgLvl2, attr::OutSubColorImg2d);

BoolResult ConvertImgLvl2::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                       processor::ProcessorDispatchPolicy& dispatchPolicy,
                                       boost::shared_ptr<processor::BaseRule>& rule,
                                       const processor::eProcessorRulePolicy& rulePolicy)
{
    processor::makeAttributes(attributes, m_inSubColorImg2d, m_outSubColorImg2d);
    outputInitializers.clear();
    return processor::finishInit<ConvertImgLvl2>(dispatchPolicy, rule, rulePolicy,
                                                 [this] { return matchSize(m_inSubColorImg2d, m_outSubColorImg2d); });
}

processor::RetrievalResult ConvertImgLvl2::retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider)
{
    StripStep<ConvertImgLvl3> step;
    step.addColorStrips<attr::OutColorYStrip2d>(m_outSubColorImg2d->getStorage());
    step.addColorStrips<attr::InColorYStrip2d>(m_inSubColorImg2d->getStorage());
    return step.provide(priority, provider);
}
} // namespace kovis::imaproc::util

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::util::ConvertImgLvl2, makeClassMutexes);
