#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl2.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISBaseProcessing/NoSplit.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVIS/KOVISImageProcessing/ImageSplit.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"
#include "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, ColorConvertImgLvl2, BaseAsync1Processor,
                       kovis::imaproc::color::ColorProcessorTraits, "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg", 6);

namespace kovis::imaproc::color
{
namespace
{
processor::ProcessorDispatchPolicy& getColorConvertImgLvl2StaticDispatchPolicy()
{
    static processor::ProcessorDispatchPolicy g_dispatchPolicy;
    return g_dispatchPolicy;
}
} // namespace

KOVIS_DEFINE_PROCESSOR(ColorConvertImgLvl2, getColorConvertImgLvl2StaticDispatchPolicy);

template <class TAttribute>
void ColorConvertImgLvl2::set(const typename TAttribute::StorageType& value)
{
    processor::ProcessorAnatomy<ColorConvertImgLvl2>::set(
        *this, processor::selectAttribute<TAttribute>(m_inSubColorImg2d, m_inColorConversionTransform, m_outSubColorImg2d),
        value);
}

template KOVISIPLCOLOR_EXPORT void ColorConvertImgLvl2::set<attr::InSubColorImg2d>(const attr::InSubColorImg2d::StorageType&);
template KOVISIPLCOLOR_EXPORT void
ColorConvertImgLvl2::set<attr::InColorConversionTransform>(const attr::InColorConversionTransform::StorageType&);
template KOVISIPLCOLOR_EXPORT void ColorConvertImgLvl2::set<attr::OutSubColorImg2d>(const attr::OutSubColorImg2d::StorageType&);

BoolResult
ColorConvertImgLvl2::initDerived(std::vector<boost::shared_ptr<processor::BaseAttribute>>& attributes,
                                 std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>& outputInitializers,
                                 processor::ProcessorDispatchPolicy& dispatchPolicy, boost::shared_ptr<processor::BaseRule>& rule,
                                 const processor::eProcessorRulePolicy& rulePolicy)
{
    attributes.clear();
    processor::makeAttribute(m_inSubColorImg2d, attributes);
    processor::makeAttribute(m_inColorConversionTransform, attributes);
    processor::makeAttribute(m_outSubColorImg2d, attributes);
    outputInitializers.clear(); // the output is a part of an image that level 1 has made
    dispatchPolicy = getDefaultDispatchPolicy();
    rule.reset();
    if (rulePolicy != processor::ePRP_NoRules)
    {
        rule = match2dSize(m_inSubColorImg2d, m_outSubColorImg2d) &&
               matchColorSpace(m_inSubColorImg2d, m_outSubColorImg2d, m_inColorConversionTransform);
    }
    return BoolResult(true);
}

processor::RetrievalResult ColorConvertImgLvl2::retrieveProvider(const core::BasePriority& priority,
                                                                 core::ActionProviderPtr& provider)
{
    const auto dispatcher = boost::make_shared<processor::DynamicProcessorDispatcher<ColorConvertImgLvl3>>();

    const auto outputSplit =
        boost::make_shared<ImageYStripColor2dSplit<ColorConvertImgLvl3, image::BaseImage, attr::OutColorYStrip2d>>();
    BoolResult result = outputSplit->initBase(m_outSubColorImg2d->getStorage(), eSAT_InImage, eSPD_TopToBottom, false);
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }
    const auto transformSplit = processor::dynamicNoSplit<ColorConvertImgLvl3, attr::InColorConversionTransform>(
        boost::static_pointer_cast<const attr::ColorConversionTransform>(m_inColorConversionTransform->accessDataItemNodePtr()));
    const auto inputSplit =
        boost::make_shared<ImageYStripColor2dSplit<ColorConvertImgLvl3, const image::BaseImage, attr::InColorYStrip2d>>();
    result = inputSplit->initBase(m_inSubColorImg2d->getStorage(), eSAT_InImage, eSPD_TopToBottom, false);
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }

    const std::vector<boost::shared_ptr<processor::BaseDynamicSplit>> splits{inputSplit, transformSplit, outputSplit};
    result = dispatcher->initBase(priority, splits);
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }
    provider = dispatcher;
    return processor::eRS_Provided;
}
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::ColorConvertImgLvl2, "kovis::imaproc::color::ColorConvertImgLvl2",
                         makeClassMutexes);
