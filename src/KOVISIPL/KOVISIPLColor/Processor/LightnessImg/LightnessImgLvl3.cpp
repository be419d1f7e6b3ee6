#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3.h"

#include "KOVIS/KOVISBaseProcessing/FunctionRegistration.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVIS/KOVISImageProcessing/StripAlgorithm.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3Rows.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, LightnessImgLvl3, BaseProcessingAlgorithm,
                       kovis::imaproc::color::ColorProcessorTraits, "KOVISIPL/KOVISIPLColor/Processor/LightnessImg", 10);

namespace kovis::imaproc::color
{
KOVIS_DEFINE_PROCESSOR(LightnessImgLvl3);
KOVIS_DEFINE_ALGORITHM(LightnessImgLvl3);
KOVIS_DEFINE_SET(LightnessImgLvl3, m_inColorYStrip2d, m_inLightnessType, m_outLightYStrip2d);

KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, LightnessImgLvl3, attr::InColorYStrip2d);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, LightnessImgLvl3, attr::InLightnessType);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, LightnessImgLvl3, attr::OutLightYStrip2d);

BoolResult LightnessImgLvl3::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                         processor::ProcessorDispatchPolicy& dispatchPolicy,
                                         boost::shared_ptr<processor::BaseRule>& rule,
                                         const processor::eProcessorRulePolicy& rulePolicy)
{
    processor::makeAttributes(attributes, m_inColorYStrip2d, m_inLightnessType, m_outLightYStrip2d);
    outputInitializers.clear();
    return processor::finishInit<LightnessImgLvl3>(dispatchPolicy, rule, rulePolicy,
                                                   [this]
                                                   {
                                                       return matchPlanarSize(m_inColorYStrip2d, m_outLightYStrip2d) &&
                                                              matchBufferType(StripAttributeWeakPtr(m_inColorYStrip2d),
                                                                              StripAttributeWeakPtr(m_outLightYStrip2d));
                                                   });
}

void LightnessImgLvl3::getDataTypeIdColl(processor::DataTypeIdentifierColl& types) const
{
    types.init(getTypeIdentifier(*m_inColorYStrip2d));
}

void LightnessImgLvl3::initDataParserColl(std::vector<boost::shared_ptr<processor::BaseDataParser>>& parsers)
{
    parsers.clear();
    addParser<BaseInputYStripColor2dAttribute>(m_inColorYStrip2d, m_inputParser, parsers);
    addParser<BaseOutputYStrip2dAttribute>(m_outLightYStrip2d, m_outputParser, parsers);
}

void LightnessImgLvl3::clearDataParserColl()
{
    clearParsers({&m_inputParser, &m_outputParser});
}
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::LightnessImgLvl3, makeAlgorithmMutexes);
KOVIS_REGISTER_FUNCTIONS(kovis::imaproc::color, LightnessImgLvl3, enterLightnessTable<eInstructionSet::eIS_Generic>);
