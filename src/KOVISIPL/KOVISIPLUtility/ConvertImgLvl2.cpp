#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl2.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVIS/KOVISImageProcessing/ImageSplit.h"
#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl3.h"
#include "KOVISIPL/KOVISIPLUtility/UtilityProcessorTraits.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::util, ConvertImgLvl2, BaseAsync1Processor, kovis::imaproc::util::UtilityProcessorTraits,
                       "KOVISIPL/KOVISIPLUtility", 1);

namespace kovis::imaproc::util
{
namespace
{
processor::ProcessorDispatchPolicy& getConvertImgLvl2StaticDispatchPolicy()
{
    static processor::ProcessorDispatchPolicy g_dispatchPolicy;
    return g_dispatchPolicy;
}
} // namespace

KOVIS_DEFINE_PROCESSOR(ConvertImgLvl2, getConvertImgLvl2StaticDispatchPolicy);

template <class TAttribute>
void ConvertImgLvl2::set(const typename TAttribute::StorageType& value)
{
    processor::ProcessorAnatomy<ConvertImgLvl2>::set(
        *this, processor::selectAttribute<TAttribute>(m_inSubColorImg2d, m_outSubColorImg2d), value);
}

template KOVISIPLUTILITY_EXPORT void ConvertImgLvl2::set<attr::InSubColorImg2d>(const attr::InSubColorImg2d::StorageType&);
template KOVISIPLUTILITY_EXPORT void ConvertImgLvl2::set<attr::OutSubColorImg2d>(const attr::OutSubColorImg2d::StorageType&);

BoolResult
ConvertImgLvl2::initDerived(std::vector<boost::shared_ptr<processor::BaseAttribute>>& attributes,
                            std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>& outputInitializers,
                            processor::ProcessorDispatchPolicy& dispatchPolicy, boost::shared_ptr<processor::BaseRule>& rule,
                            const processor::eProcessorRulePolicy& rulePolicy)
{
    attributes.clear();
    processor::makeAttribute(m_inSubColorImg2d, attributes);
    processor::makeAttribute(m_outSubColorImg2d, attributes);
    outputInitializers.clear();
    dispatchPolicy = getDefaultDispatchPolicy();
    rule.reset();
    if (rulePolicy != processor::ePRP_NoRules)
    {
        rule = matchSize(m_inSubColorImg2d, m_outSubColorImg2d);
    }
    return BoolResult(true);
}

processor::RetrievalResult ConvertImgLvl2::retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider)
{
    const auto dispatcher = boost::make_shared<processor::DynamicProcessorDispatcher<ConvertImgLvl3>>();

    const auto outputSplit =
        boost::make_shared<ImageYStripColor2dSplit<ConvertImgLvl3, image::BaseImage, attr::OutColorYStrip2d>>();
    BoolResult result = outputSplit->initBase(m_outSubColorImg2d->getStorage(), eSAT_InImage, eSPD_TopToBottom, false);
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }

    const auto inputSplit =
        boost::make_shared<ImageYStripColor2dSplit<ConvertImgLvl3, const image::BaseImage, attr::InColorYStrip2d>>();
    result = inputSplit->initBase(m_inSubColorImg2d->getStorage(), eSAT_InImage, eSPD_TopToBottom, false);
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }

    const std::vector<boost::shared_ptr<processor::BaseDynamicSplit>> splits{inputSplit, outputSplit};
    result = dispatcher->initBase(priority, splits);
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }
    provider = dispatcher;
    return processor::eRS_Provided;
}
} // namespace kovis::imaproc::util

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::util::ConvertImgLvl2, "kovis::imaproc::util::ConvertImgLvl2", makeClassMutexes);
