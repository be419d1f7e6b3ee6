#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl2.h"

#include "KOVIS/KOVISImageProcessing/DispatchStep.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"
#include "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, ColorConvertImgLvl2, BaseAsync1Processor,
                       kovis::imaproc::color::ColorProcessorTraits, "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg", 6);

namespace kovis::imaproc::color
{
KOVIS_DEFINE_PROCESSOR(ColorConvertImgLvl2);

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
    processor::makeAttributes(attributes, m_inSubColorImg2d, m_inColorConversionTransform, m_outSubColorImg2d);
    outputInitializers.clear(); // the output is a part of an image that level 1 has made
    return processor::finishInit<ColorConvertImgLvl2>(dispatchPolicy, rule, rulePolicy,
                                                      [this]
                                                      {
                                                          return match2dSize(m_inSubColorImg2d, m_outSubColorImg2d) &&
                                                                 matchColorSpace(m_inSubColorImg2d, m_outSubColorImg2d,
                                                                                 m_inColorConversionTransform);
                                                      });
}

processor::RetrievalResult ColorConvertImgLvl2::retrieveProvider(const core::BasePriority& priority,
                                                                 core::ActionProviderPtr& provider)
{
    StripStep<ColorConvertImgLvl3> step;
    step.addColorStrips<attr::OutColorYStrip2d>(m_outSubColorImg2d->getStorage());
    step.addValue<attr::InColorConversionTransform>(
        boost::static_pointer_cast<const attr::ColorConversionTransform>(m_inColorConversionTransform->accessDataItemNodePtr()));
    step.addColorStrips<attr::InColorYStrip2d>(m_inSubColorImg2d->getStorage());
    return step.provide(priority, provider);
}
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::ColorConvertImgLvl2, "kovis::imaproc::color::ColorConvertImgLvl2",
                         makeClassMutexes);
