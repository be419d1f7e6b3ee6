#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl1.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISBaseProcessing/BaseRule.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVIS/KOVISImageProcessing/ImageSplit.h"
#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl2.h"
#include "KOVISIPL/KOVISIPLUtility/UtilityProcessorTraits.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::util, ConvertImgLvl1, BaseAsync1Processor, kovis::imaproc::util::UtilityProcessorTraits,
                       "KOVISIPL/KOVISIPLUtility", 0);

namespace kovis::imaproc::util
{
namespace
{
processor::ProcessorDispatchPolicy& getConvertImgLvl1StaticDispatchPolicy()
{
    static processor::ProcessorDispatchPolicy g_dispatchPolicy;
    return g_dispatchPolicy;
}

/// That the image is of the buffer type that the attribute asks for.
class RuleMatchConvertBufferType : public processor::BaseAttributeRule
{
public:
    bool testRule() const override { return getImage()->getImage().getBufferType() == getBufferType()->getValue(); }

    std::string createRuleFormalString() const override
    {
        LogMessageFormater formater(getKOVISIPLUtilityLogMessageManager());
        formater[eProcessorMessage::ePM_BufferTypeFormal] % getImage()->getObjectName() % getBufferType()->getObjectName();
        return formater.string();
    }

    std::string createRuleEvaluatedString(unsigned int indentation) const override
    {
        const image::eImageBufferType actual = getImage()->getImage().getBufferType();
        const image::eImageBufferType wanted = getBufferType()->getValue();
        LogMessageFormater formater(getKOVISIPLUtilityLogMessageManager());
        formater << createRuleEvaluatedStartString(indentation);
        formater[eProcessorMessage::ePM_BufferTypeEvaluated] % getImage()->getObjectName() % image::getElementTypeName(actual) %
            static_cast<int>(actual) % getBufferType()->getObjectName() % image::getElementTypeName(wanted) %
            static_cast<int>(wanted);
        return formater.string();
    }

    processor::eAttributeRuleType getAttributeRuleType() const override { return processor::eART_Mixed; }

private:
    boost::shared_ptr<const BaseImageAttribute> getImage() const
    {
        return boost::static_pointer_cast<const BaseImageAttribute>(getAttribute1());
    }
    boost::shared_ptr<const attr::InConvertImageBufferType> getBufferType() const
    {
        return boost::static_pointer_cast<const attr::InConvertImageBufferType>(getAttribute2());
    }
};

boost::shared_ptr<processor::BaseRule>
matchConvertBufferType(const boost::shared_ptr<const BaseImageAttribute>& image,
                       const boost::shared_ptr<const attr::InConvertImageBufferType>& bufferType)
{
    const auto rule = boost::make_shared<RuleMatchConvertBufferType>();
    rule->initBase(image, bufferType);
    return rule;
}
} // namespace

KOVIS_DEFINE_PROCESSOR(ConvertImgLvl1, getConvertImgLvl1StaticDispatchPolicy);

template <class TAttribute>
void ConvertImgLvl1::set(const typename TAttribute::StorageType& value)
{
    processor::ProcessorAnatomy<ConvertImgLvl1>::set(
        *this, processor::selectAttribute<TAttribute>(m_inImg, m_inConvertImageBufferType, m_outImg), value);
}

template KOVISIPLUTILITY_EXPORT void ConvertImgLvl1::set<attr::InImg>(const attr::InImg::StorageType&);
template KOVISIPLUTILITY_EXPORT void
ConvertImgLvl1::set<attr::InConvertImageBufferType>(const attr::InConvertImageBufferType::StorageType&);
template KOVISIPLUTILITY_EXPORT void ConvertImgLvl1::set<attr::OutImg>(const attr::OutImg::StorageType&);

BoolResult
ConvertImgLvl1::initDerived(std::vector<boost::shared_ptr<processor::BaseAttribute>>& attributes,
                            std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>& outputInitializers,
                            processor::ProcessorDispatchPolicy& dispatchPolicy, boost::shared_ptr<processor::BaseRule>& rule,
                            const processor::eProcessorRulePolicy& rulePolicy)
{
    attributes.clear();
    processor::makeAttribute(m_inImg, attributes);
    processor::makeAttribute(m_inConvertImageBufferType, attributes);
    processor::makeAttribute(m_outImg, attributes);
    outputInitializers.clear();
    dispatchPolicy = getDefaultDispatchPolicy();
    rule.reset();
    if (rulePolicy != processor::ePRP_NoRules)
    {
        rule = matchSize(m_inImg, m_outImg) && matchConvertBufferType(m_outImg, m_inConvertImageBufferType);
    }
    return BoolResult(true);
}

processor::RetrievalResult ConvertImgLvl1::retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider)
{
    const auto dispatcher = boost::make_shared<processor::StaticProcessorDispatcher<ConvertImgLvl2>>();

    const auto outputSplit = boost::make_shared<SubImageSplit<ConvertImgLvl2, attr::OutSubColorImg2d>>();
    BoolResult result = outputSplit->initBase(eSIST_Slices, eVPT_Slices, eCPT_AllChannels, eTPT_Steps, m_outImg->getStorage());
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }

    const auto inputSplit = boost::make_shared<SubImageSplit<ConvertImgLvl2, attr::InSubColorImg2d>>();
    result = inputSplit->initBase(eSIST_Slices, eVPT_Slices, eCPT_AllChannels, eTPT_Steps, m_inImg->getStorage());
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }

    const std::vector<boost::shared_ptr<processor::BaseStaticSplit>> splits{inputSplit, outputSplit};
    result = dispatcher->initBase(priority, splits);
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }
    provider = dispatcher;
    return processor::eRS_Provided;
}
} // namespace kovis::imaproc::util

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::util::ConvertImgLvl1, "kovis::imaproc::util::ConvertImgLvl1", makeClassMutexes);
