#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl1.h"

#include "KOVIS/KOVISImageProcessing/DispatchStep.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVIS/KOVISImageProcessing/OutputInitializer.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl2.h"

#include <boost/format.hpp>

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, LightnessImgLvl1, BaseAsync1Processor, kovis::imaproc::color::ColorProcessorTraits,
                       "KOVISIPL/KOVISIPLColor/Processor/LightnessImg", 8);

namespace kovis::imaproc::color
{
KOVIS_DEFINE_PROCESSOR(LightnessImgLvl1);
KOVIS_DEFINE_SET(LightnessImgLvl1, m_inColorImg, m_inLightnessType, m_outLightImg);
KOVIS_DEFINE_GET_STORAGE(LightnessImgLvl1, m_outLightImg);

KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, LightnessImgLvl1, attr::InColorImg);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, LightnessImgLvl1, attr::InLightnessType);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, LightnessImgLvl1, attr::OutLightImg);
KOVIS_INSTANTIATE_GET_STORAGE(KOVISIPLCOLOR_EXPORT, LightnessImgLvl1, attr::OutLightImg);

BoolResult LightnessImgLvl1::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                         processor::ProcessorDispatchPolicy& dispatchPolicy,
                                         boost::shared_ptr<processor::BaseRule>& rule,
                                         const processor::eProcessorRulePolicy& rulePolicy)
{
    initAttributeColl(attributes, outputInitializers);
    return processor::finishInit<LightnessImgLvl1>(
        dispatchPolicy, rule, rulePolicy,
        [this] { return matchSize(eMIST_XYZT, m_inColorImg, m_outLightImg) && matchBufferType(m_inColorImg, m_outLightImg); });
}

void LightnessImgLvl1::initAttributeColl(AttributeColl& attributes, OutputInitializerMap& outputInitializers)
{
    processor::makeAttributes(attributes, m_inColorImg, m_inLightnessType, m_outLightImg);
    outputInitializers.clear();
    m_outputInitializer = duplicateGreyInOut<attr::InColorImg, attr::OutLightImg>(m_outLightImg, m_inColorImg, eIISP_HostMemory);
    outputInitializers[m_outLightImg->getObjectName()] = m_outputInitializer;
}

processor::RetrievalResult LightnessImgLvl1::retrieveProvider(const core::BasePriority& priority,
                                                              core::ActionProviderPtr& provider)
{
    const boost::shared_ptr<const image::BaseImage> input = m_inColorImg->getStorage();
    // a set during the run may have taken the image away: then its split tells what is missing
    if (input && m_inLightnessType->getValue() == attr::eLT_Luminosity && input->getSizeC() != 3)
    {
        boost::format message("The input image must have 3 channels to compute the luminosity but contains %d %s");
        message % input->getSizeC() % (input->getSizeC() == 1 ? "channel" : "channels");
        return processor::RetrievalResult(processor::eRS_Failed, message.str());
    }

    SubImageStep<LightnessImgLvl2> step;
    step.addPlanes<attr::OutLightImg>(m_outLightImg->getStorage());
    step.addValue<attr::InLightnessType>(m_inLightnessType->getValue());
    step.addSlices<attr::InSubColorImg2d>(input);
    return step.provide(priority, provider);
}
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::LightnessImgLvl1, makeClassMutexes);
