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
KOVIS_DEFINE_SET(ColorConvertImgLvl2, m_inSubColorImg2d, m_inColorConversionTransform, m_outSubColorImg2d);

KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, ColorConvertImgLvl2, attr::InSubColorImg2d);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, ColorConvertImgLvl2, attr::InColorConversionTransform);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, ColorConvertImgLvl2, attr::OutSubColorImg2d);

BoolResult ColorConvertImgLvl2::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                            processor::ProcessorDispatchPolicy& dispatchPolicy,
                                            boost::shared_ptr<processor::BaseRule>& rule,
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

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::ColorConvertImgLvl2, makeClassMutexes);
