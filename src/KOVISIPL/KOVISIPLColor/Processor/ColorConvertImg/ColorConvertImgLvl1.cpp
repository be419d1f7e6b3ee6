#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl1.h"

#include "KOVIS/KOVISImageProcessing/DispatchStep.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVIS/KOVISImageProcessing/OutputInitializer.h"
#include "KOVISIPL/KOVISIPLColor/OutputInitializer/ColorInitializerUtils.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl2.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"
#include "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl1.h"
#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl1.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, ColorConvertImgLvl1, BaseAsync3Processor,
                       kovis::imaproc::color::ColorProcessorTraits, "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg", 5);

namespace kovis::imaproc::color
{
KOVIS_DEFINE_PROCESSOR(ColorConvertImgLvl1);
KOVIS_DEFINE_SET(ColorConvertImgLvl1, m_inColorImg, m_inColorConversionTransform, m_outColorImg);
KOVIS_DEFINE_GET_STORAGE(ColorConvertImgLvl1, m_outColorImg);

KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, ColorConvertImgLvl1, attr::InColorImg);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, ColorConvertImgLvl1, attr::InColorConversionTransform);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, ColorConvertImgLvl1, attr::OutColorImg);
KOVIS_INSTANTIATE_GET_STORAGE(KOVISIPLCOLOR_EXPORT, ColorConvertImgLvl1, attr::OutColorImg);

BoolResult ColorConvertImgLvl1::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                            processor::ProcessorDispatchPolicy& dispatchPolicy,
                                            boost::shared_ptr<processor::BaseRule>& rule,
                                            const processor::eProcessorRulePolicy& rulePolicy)
{
    initAttributeColl(attributes, outputInitializers);
    return processor::finishInit<ColorConvertImgLvl1>(dispatchPolicy, rule, rulePolicy, [this] { return createRule(); });
}

void ColorConvertImgLvl1::initAttributeColl(AttributeColl& attributes, OutputInitializerMap& outputInitializers)
{
    processor::makeAttributes(attributes, m_inColorImg, m_inColorConversionTransform, m_outOptWk1RealImg, m_outColorImg);

    outputInitializers.clear();
    outputInitializers[m_outColorImg->getObjectName()] =
        customOutput<attr::OutColorImg>(m_outColorImg, outputTargetColorSpace(m_inColorImg, m_inColorConversionTransform));
}

boost::shared_ptr<processor::BaseRule> ColorConvertImgLvl1::createRule() const
{
    const auto workingImageIsSet = boost::make_shared<processor::RuleOptionalIsSet>();
    workingImageIsSet->init(boost::weak_ptr<const processor::BaseAttribute>(m_outOptWk1RealImg));
    return matchSize(eMIST_XYZT, m_inColorImg, m_outColorImg) &&
           processor::If(workingImageIsSet, matchSize(m_inColorImg, m_outOptWk1RealImg), processor::none()) &&
           matchColorSpace(m_inColorImg, m_outColorImg, m_inColorConversionTransform);
}

bool ColorConvertImgLvl1::isRangeTestNeeded() const
{
    // A set during the run may have taken an image away: then the split of callLvl2 tells what is missing.
    const boost::shared_ptr<const image::BaseImage> input = m_inColorImg->getStorage();
    const boost::shared_ptr<const image::BaseImage> output = m_outColorImg->getStorage();
    if (!input || !output || input->getColorGeometryType() != image::eCGT_Rgb)
    {
        return false;
    }
    // Luv runs the same curve, unmeasured
    return output->getColorGeometryType() == image::eCGT_CieLab || output->getColorGeometryType() == image::eCGT_XYZ;
}

processor::RetrievalResult ColorConvertImgLvl1::retrieveFirstProvider(const core::BasePriority& priority,
                                                                      core::ActionProviderPtr& provider)
{
    m_currentSource = m_inColorImg->getStorage();
    m_statsResult.reset();
    const bool bMeasured = isRangeTestNeeded();
    setNbWorkingSteps(bMeasured ? 3 : 1);
    if (bMeasured)
    {
        m_statsResult = boost::make_shared<attr::StatsResult>();
        return stats(priority, provider);
    }
    return callLvl2(priority, provider);
}

processor::RetrievalResult ColorConvertImgLvl1::retrieveSecondProvider(const core::BasePriority& priority,
                                                                       core::ActionProviderPtr& provider)
{
    if (!isRangeTestNeeded())
    {
        return processor::eRS_NoWork;
    }
    const boost::shared_ptr<const image::BaseImage> input = m_inColorImg->getStorage();
    if (!m_statsResult || !input)
    {
        return processor::RetrievalResult(
            processor::eRS_Failed, "an image of ColorConvertImgLvl1 was replaced while its run was under way, and has not been "
                                   "measured: set images between runs");
    }
    // written so that a NaN fails
    if (!(m_statsResult->getMinimum() >= 0.0) || !(m_statsResult->getMaximum() <= 255.0))
    {
        throwMessage<KOVISIPLColorException>(
            getKOVISIPLColorLogMessageManager(), getKOVISIPLColorLogger(), eProcessorMessage::ePM_ImageOutOfRange,
            SourcePlace{"virtual kovis::processor::RetrievalResult "
                        "kovis::imaproc::color::ColorConvertImgLvl1::retrieveSecondProvider(const "
                        "kovis::core::BasePriority&, kovis::core::ActionProviderPtr&)",
                        processor::ProcessorTraits<ColorConvertImgLvl1>::g_sourcePath, __LINE__},
            0, 255);
    }
    m_outOptWk1RealImg->clear();
    const auto initializer = duplicateInOut<attr::InColorImg, attr::OutOptWk1RealImg>(
        boost::weak_ptr<attr::OutOptWk1RealImg>(m_outOptWk1RealImg), boost::weak_ptr<attr::InColorImg>(m_inColorImg),
        image::eIBT_Real, eIIDP_AsInput);
    const BoolResult result = initializer->initOutputAttribute();
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }
    // a run that fails must not leave it behind, where it would stand in the way of an input of another size
    noteMadeOutput(m_outOptWk1RealImg);
    if (input->getBufferType() == image::eIBT_Real)
    {
        return callLvl2(priority, provider);
    }
    return convert(priority, provider);
}

processor::RetrievalResult ColorConvertImgLvl1::retrieveThirdProvider(const core::BasePriority& priority,
                                                                      core::ActionProviderPtr& provider)
{
    if (!isRangeTestNeeded())
    {
        return processor::eRS_NoWork;
    }
    // for a float input too, whose working image nobody has filled
    m_currentSource = m_outOptWk1RealImg->getStorage();
    return callLvl2(priority, provider);
}

processor::RetrievalResult ColorConvertImgLvl1::stats(const core::BasePriority& priority, core::ActionProviderPtr& provider)
{
    const auto measure = boost::make_shared<glbmsr::StatsMsrLvl1>();
    measure->init(processor::ePRP_Rules);
    measure->set<attr::InImg>(m_inColorImg->getStorage());
    measure->set<attr::OutStatsResult>(m_statsResult);
    return provideProcessor(measure, priority, provider);
}

processor::RetrievalResult ColorConvertImgLvl1::convert(const core::BasePriority& priority, core::ActionProviderPtr& provider)
{
    const auto conversion = boost::make_shared<util::ConvertImgLvl1>();
    conversion->init(processor::ePRP_Rules);
    conversion->set<attr::InImg>(m_inColorImg->getStorage());
    conversion->set<attr::InConvertImageBufferType>(image::eIBT_Real);
    conversion->set<attr::OutImg>(m_outOptWk1RealImg->getStorage());
    return provideProcessor(conversion, priority, provider);
}

processor::RetrievalResult ColorConvertImgLvl1::callLvl2(const core::BasePriority& priority, core::ActionProviderPtr& provider)
{
    SubImageStep<ColorConvertImgLvl2> step;
    step.addSlices<attr::OutSubColorImg2d>(m_outColorImg->getStorage());
    step.addValue<attr::InColorConversionTransform>(
        boost::static_pointer_cast<const attr::ColorConversionTransform>(m_inColorConversionTransform->accessDataItemNodePtr()));
    step.addSlices<attr::InSubColorImg2d>(m_currentSource);
    return step.provide(priority, provider);
}

processor::RetrievalResult ColorConvertImgLvl1::provideProcessor(const boost::shared_ptr<core::BaseAction>& action,
                                                                 const core::BasePriority& priority,
                                                                 core::ActionProviderPtr& provider)
{
    if (action) // init tells of one that is missing
    {
        action->setActionPriority(priority);
    }
    const auto single = boost::make_shared<core::SingleActionProvider>();
    const BoolResult result = single->init(action);
    if (!result)
    {
        return processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }
    provider = single;
    return processor::eRS_Provided;
}
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::ColorConvertImgLvl1, makeClassMutexes);
