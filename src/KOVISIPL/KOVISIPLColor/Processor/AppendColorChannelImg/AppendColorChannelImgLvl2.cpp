#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl2.h"

#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"
#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISImageProcessing/DispatchStep.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgGpuLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/createAppendRule.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, AppendColorChannelImgLvl2, BaseAsync1Processor,
                       kovis::imaproc::color::ColorProcessorTraits, "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg", 2);

namespace kovis::imaproc::color
{
KOVIS_DEFINE_PROCESSOR(AppendColorChannelImgLvl2);
KOVIS_DEFINE_SET(AppendColorChannelImgLvl2, m_inSubColorImg2d1, m_inSubColorImg2d2, m_outColorImg);

KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, AppendColorChannelImgLvl2, attr::InSubColorImg2d1);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, AppendColorChannelImgLvl2, attr::InSubColorImg2d2);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, AppendColorChannelImgLvl2, attr::OutColorImg);

BoolResult AppendColorChannelImgLvl2::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                                  processor::ProcessorDispatchPolicy& dispatchPolicy,
                                                  boost::shared_ptr<processor::BaseRule>& rule,
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

namespace
{
/// The image that the attribute holds; empty where it is another kind of attribute, or holds none.
boost::shared_ptr<const image::BaseImage> findImage(const processor::BaseAttribute& attribute)
{
    if (!attribute.isInitialised() || attribute.getAttributeType() != processor::eAT_ImageProcessing)
    {
        return nullptr;
    }
    const auto& imageProcessing = static_cast<const BaseImageProcessingAttribute&>(attribute);
    if (imageProcessing.getImageProcessingAttributeType() != eIPAT_Image)
    {
        return nullptr;
    }
    return static_cast<const BaseImageAttribute&>(imageProcessing).getImagePtr();
}
} // namespace

processor::RetrievalResult AppendColorChannelImgLvl2::tryToLaunchGpuProcess(const core::BasePriority& priority,
                                                                            core::ActionProviderPtr& provider)
{
    if (!core::isGpuSupportActivated())
    {
        return processor::eRS_NoWork;
    }
    if (!isInitialised())
    {
        processor::throwProcessingMessage(
            processor::eProcessorMessage::ePM_NotInitialised,
            {"kovis::processor::RetrievalResult kovis::imaproc::color::AppendColorChannelImgLvl2::tryToLaunchGpuProcess(const "
             "kovis::core::BasePriority&, kovis::core::ActionProviderPtr&)",
             processor::ProcessorTraits<AppendColorChannelImgLvl2>::g_sourcePath, __LINE__},
            getObjectName());
    }
    bool bOnGpu = true;
    for (const std::string& name : getAttributeNameColl())
    {
        if (const boost::shared_ptr<const image::BaseImage> image = findImage(*getAttribute(name)); bOnGpu && image)
        {
            bOnGpu = image->isGpuImage();
        }
    }
    if (!bOnGpu)
    {
        return processor::eRS_NoWork;
    }
    CudaImageStep<AppendColorChannelImgGpuLvl3> step;
    step.addImage<attr::OutSubGpuImg>(m_outColorImg->getStorage());
    step.addImage<attr::InSubGpuImg2>(m_inSubColorImg2d2->getStorage());
    step.addImage<attr::InSubGpuImg1>(m_inSubColorImg2d1->getStorage());
    return step.provide(priority, provider);
}
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::AppendColorChannelImgLvl2, makeClassMutexes);
