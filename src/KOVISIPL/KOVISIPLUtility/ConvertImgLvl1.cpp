#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl1.h"

#include "KOVIS/KOVISBaseProcessing/BaseRule.h"
#include "KOVIS/KOVISImageProcessing/DispatchStep.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl2.h"
#include "KOVISIPL/KOVISIPLUtility/UtilityProcessorTraits.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::util, ConvertImgLvl1, BaseAsync1Processor, kovis::imaproc::util::UtilityProcessorTraits,
                       "KOVISIPL/KOVISIPLUtility", 0);

namespace kovis::imaproc::util
{
namespace
{
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

KOVIS_DEFINE_PROCESSOR(ConvertImgLvl1);
KOVIS_DEFINE_SET(ConvertImgLvl1, m_inImg, m_inConvertImageBufferType, m_outImg);

KOVIS_INSTANTIATE_SET(KOVISIPLUTILITY_EXPORT, ConvertImgLvl1, attr::InImg);
KOVIS_INSTANTIATE_SET(KOVISIPLUTILITY_EXPORT, ConvertImgLvl1, attr::InConvertImageBufferType);
KOVIS_INSTANTIATE_SET(KOVISIPLUTILITY_EXPORT, ConvertImgLvl1, attr::OutImg);

BoolResult ConvertImgLvl1::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                       processor::ProcessorDispatchPolicy& dispatchPolicy,
                                       boost::shared_ptr<processor::BaseRule>& rule,
                                       const processor::eProcessorRulePolicy& rulePolicy)
{
    processor::makeAttributes(attributes, m_inImg, m_inConvertImageBufferType, m_outImg);
    outputInitializers.clear();
    return processor::finishInit<ConvertImgLvl1>(
        dispatchPolicy, rule, rulePolicy,
        [this] { return matchSize(m_inImg, m_outImg) && matchConvertBufferType(m_outImg, m_inConvertImageBufferType); });
}

processor::RetrievalResult ConvertImgLvl1::retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider)
{
    SubImageStep<ConvertImgLvl2> step;
    step.addSlices<attr::OutSubColorImg2d>(m_outImg->getStorage());
    step.addSlices<attr::InSubColorImg2d>(m_inImg->getStorage());
    return step.provide(priority, provider);
}
} // namespace kovis::imaproc::util

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::util::ConvertImgLvl1, makeClassMutexes);
