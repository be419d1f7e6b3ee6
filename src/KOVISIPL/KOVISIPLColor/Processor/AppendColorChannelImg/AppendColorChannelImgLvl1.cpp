#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl1.h"

#include "KOVIS/KOVISImage/SubImageExtractor.h"
#include "KOVIS/KOVISImageProcessing/DispatchStep.h"
#include "KOVIS/KOVISImageProcessing/OutputInitializer.h"
#include "KOVISIPL/KOVISIPLColor/OutputInitializer/ColorInitializerUtils.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl2.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/createAppendRule.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, AppendColorChannelImgLvl1, BaseAsync1Processor,
                       kovis::imaproc::color::ColorProcessorTraits, "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg", 1);

namespace kovis::imaproc::color
{
namespace
{
/// The same size, number of channels and elements, in eCGT_User.
boost::shared_ptr<image::HomogeneousImageGeometry> getReinterpretedUserGeometry(const image::BaseImageGeometry& geometry)
{
    image::ColorGeometry color;
    color.initUser(geometry.getSizeC());
    const auto reinterpreted = boost::make_shared<image::HomogeneousImageGeometry>();
    reinterpreted->init(geometry.getVolumeGeometry(), color, geometry.getTemporalGeometry(), geometry.getSizeX(),
                        geometry.getSizeY(), geometry.getBufferType());
    return reinterpreted;
}

/// A view of the image by its number of channels alone, so that inputs of all spaces go the same way.
BoolResult viewAsUser(const boost::shared_ptr<const image::BaseImage>& image, boost::shared_ptr<const image::BaseImage>& view)
{
    if (!image) // a set during the run took it away: its split tells what is missing
    {
        return BoolResult(true);
    }
    return image::SubImageExtractor::reInterpretImageData<const image::BaseImage>(
        *image, *getReinterpretedUserGeometry(image->getGeometry()), view);
}
} // namespace

KOVIS_DEFINE_PROCESSOR(AppendColorChannelImgLvl1);
KOVIS_DEFINE_SET(AppendColorChannelImgLvl1, m_inImg1, m_inImg2, m_outColorImg);
KOVIS_DEFINE_GET_STORAGE(AppendColorChannelImgLvl1, m_outColorImg);

KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, AppendColorChannelImgLvl1, attr::InImg1);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, AppendColorChannelImgLvl1, attr::InImg2);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, AppendColorChannelImgLvl1, attr::OutColorImg);
KOVIS_INSTANTIATE_GET_STORAGE(KOVISIPLCOLOR_EXPORT, AppendColorChannelImgLvl1, attr::OutColorImg);

BoolResult AppendColorChannelImgLvl1::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                                  processor::ProcessorDispatchPolicy& dispatchPolicy,
                                                  boost::shared_ptr<processor::BaseRule>& rule,
                                                  const processor::eProcessorRulePolicy& rulePolicy)
{
    initAttributeColl(attributes, outputInitializers);
    return processor::finishInit<AppendColorChannelImgLvl1>(dispatchPolicy, rule, rulePolicy, [this] { return createRule(); });
}

void AppendColorChannelImgLvl1::initAttributeColl(AttributeColl& attributes, OutputInitializerMap& outputInitializers)
{
    processor::makeAttributes(attributes, m_inImg1, m_inImg2, m_outColorImg);

    outputInitializers.clear();
    m_outputInitializer = customOutput<attr::OutColorImg>(m_outColorImg, outputAppendColor(m_inImg1, m_inImg2));
    outputInitializers[m_outColorImg->getObjectName()] = m_outputInitializer;
}

boost::shared_ptr<processor::BaseRule> AppendColorChannelImgLvl1::createRule() const
{
    return details::createAppendRule(m_inImg1, m_inImg2, m_outColorImg);
}

processor::RetrievalResult AppendColorChannelImgLvl1::retrieveProvider(const core::BasePriority& priority,
                                                                       core::ActionProviderPtr& provider)
{
    boost::shared_ptr<const image::BaseImage> view1;
    boost::shared_ptr<const image::BaseImage> view2;
    BoolResult result = viewAsUser(m_inImg1->getStorage(), view1);
    if (result)
    {
        result = viewAsUser(m_inImg2->getStorage(), view2);
    }
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }
    SubImageStep<AppendColorChannelImgLvl2> step;
    step.addSlices<attr::OutColorImg>(m_outColorImg->getStorage());
    step.addSlices<attr::InSubColorImg2d2>(view2);
    step.addSlices<attr::InSubColorImg2d1>(view1);
    return step.provide(priority, provider);
}
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::AppendColorChannelImgLvl1, makeClassMutexes);
