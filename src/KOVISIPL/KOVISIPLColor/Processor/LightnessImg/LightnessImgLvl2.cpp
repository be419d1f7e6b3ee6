#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl2.h"

#include "KOVIS/KOVISImageProcessing/DispatchStep.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, LightnessImgLvl2, BaseAsync1Processor, kovis::imaproc::color::ColorProcessorTraits,
                       "KOVISIPL/KOVISIPLColor/Processor/LightnessImg", 9);

namespace kovis::imaproc::color
{
KOVIS_DEFINE_PROCESSOR(LightnessImgLvl2);
KOVIS_DEFINE_SET(LightnessImgLvl2, m_inSubColorImg2d, m_inLightnessType, m_outLightImg);

KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, LightnessImgLvl2, attr::InSubColorImg2d);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, LightnessImgLvl2, attr::InLightnessType);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, LightnessImgLvl2, attr::OutLightImg);

BoolResult LightnessImgLvl2::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                         processor::ProcessorDispatchPolicy& dispatchPolicy,
                                         boost::shared_ptr<processor::BaseRule>& rule,
                                         const processor::eProcessorRulePolicy& rulePolicy)
{
    processor::makeAttributes(attributes, m_inSubColorImg2d, m_inLightnessType, m_outLightImg);
    outputInitializers.clear(); // the output is a part of an image that level 1 has made
    return processor::finishInit<LightnessImgLvl2>(dispatchPolicy, rule, rulePolicy,
                                                   [this] {
                                                       return matchSize(eMIST_XY, m_inSubColorImg2d, m_outLightImg) &&
                                                              matchBufferType(m_inSubColorImg2d, m_outLightImg);
                                                   });
}

processor::RetrievalResult LightnessImgLvl2::retrieveProvider(const core::BasePriority& priority,
                                                              core::ActionProviderPtr& provider)
{
    StripStep<LightnessImgLvl3> step;
    step.addStrips<attr::OutLightYStrip2d>(m_outLightImg->getStorage());
    step.addValue<attr::InLightnessType>(m_inLightnessType->getValue());
    step.addColorStrips<attr::InColorYStrip2d>(m_inSubColorImg2d->getStorage());
    return step.provide(priority, provider);
}
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::LightnessImgLvl2, makeClassMutexes);
