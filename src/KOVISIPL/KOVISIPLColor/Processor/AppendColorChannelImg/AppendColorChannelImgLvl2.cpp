#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl2.h"

#include "KOVIS/KOVISImageProcessing/DispatchStep.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/createAppendRule.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, AppendColorChannelImgLvl2, BaseAsync1Processor,
                       kovis::imaproc::color::ColorProcessorTraits, "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg", 2);

namespace kovis::imaproc::color
{
KOVIS_DEFINE_PROCESSOR(AppendColorChannelImgLvl2);

template <class TAttribute>
void AppendColorChannelImgLvl2::set(const typename TAttribute::StorageType& value)
{
    processor::ProcessorAnatomy<AppendColorChannelImgLvl2>::set(
        *this, processor::selectAttribute<TAttribute>(m_inSubColorImg2d1, m_inSubColorImg2d2, m_outColorImg), value);
}

template KOVISIPLCOLOR_EXPORT void
AppendColorChannelImgLvl2::set<attr::InSubColorImg2d1>(const attr::InSubColorImg2d1::StorageType&);
template KOVISIPLCOLOR_EXPORT void
AppendColorChannelImgLvl2::set<attr::InSubColorImg2d2>(const attr::InSubColorImg2d2::StorageType&);
template KOVISIPLCOLOR_EXPORT void AppendColorChannelImgLvl2::set<attr::OutColorImg>(const attr::OutColorImg::StorageType&);

BoolResult AppendColorChannelImgLvl2::initDerived(
    std::vector<boost::shared_ptr<processor::BaseAttribute>>& attributes,
    std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>& outputInitializers,
    processor::ProcessorDispatchPolicy& dispatchPolicy, boost::shared_ptr<processor::BaseRule>& rule,
    const processor::eProcessorRulePolicy& rulePolicy)
{
    processor::makeAttributes(attributes, m_inSubColorImg2d1, m_inSubColorImg2d2, m_outColorImg);
    outputInitializers.clear(); // the output is a part of an image that level 1 has made
    return processor::finishInit<AppendColorChannelImgLvl2>(dispatchPolicy, rule, rulePolicy, [this] { return createRule(); });
}

boost::shared_ptr<processor::BaseRule> AppendColorChannelImgLvl2::createRule() const
{
    return details::createAppendRule(m_inSubColorImg2d1, m_inSubColorImg2d2, m_outColorImg);
}

processor::RetrievalResult AppendColorChannelImgLvl2::retrieveProvider(const core::BasePriority& priority,
                                                                       core::ActionProviderPtr& provider)
{
    StripStep<AppendColorChannelImgLvl3> step;
    step.addColorStrips<attr::OutColorYStrip2d>(m_outColorImg->getStorage());
    step.addColorStrips<attr::InColorYStrip2>(m_inSubColorImg2d2->getStorage());
    step.addColorStrips<attr::InColorYStrip2d1>(m_inSubColorImg2d1->getStorage());
    return step.provide(priority, provider);
}
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::AppendColorChannelImgLvl2, "kovis::imaproc::color::AppendColorChannelImgLvl2",
                         makeClassMutexes);
