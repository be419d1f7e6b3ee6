#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3.h"

#include "KOVIS/KOVISBaseProcessing/FunctionRegistration.h"
#include "KOVIS/KOVISImageProcessing/StripAlgorithm.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3Rows.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, AppendColorChannelImgLvl3, BaseProcessingAlgorithm,
                       kovis::imaproc::color::ColorProcessorTraits, "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg", 3);

namespace kovis::imaproc::color
{
KOVIS_DEFINE_PROCESSOR(AppendColorChannelImgLvl3);
KOVIS_DEFINE_ALGORITHM(AppendColorChannelImgLvl3);
KOVIS_DEFINE_SET(AppendColorChannelImgLvl3, m_inColorYStrip2d1, m_inColorYStrip2, m_outColorYStrip2d);

KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, AppendColorChannelImgLvl3, attr::InColorYStrip2d1);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, AppendColorChannelImgLvl3, attr::InColorYStrip2);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, AppendColorChannelImgLvl3, attr::OutColorYStrip2d);

BoolResult AppendColorChannelImgLvl3::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                                  processor::ProcessorDispatchPolicy& dispatchPolicy,
                                                  boost::shared_ptr<processor::BaseRule>& rule,
                                                  const processor::eProcessorRulePolicy& rulePolicy)
{
    processor::makeAttributes(attributes, m_inColorYStrip2d1, m_inColorYStrip2, m_outColorYStrip2d);
    outputInitializers.clear();
    return processor::finishInit<AppendColorChannelImgLvl3>(dispatchPolicy, rule, rulePolicy, &processor::none);
}

void AppendColorChannelImgLvl3::getDataTypeIdColl(processor::DataTypeIdentifierColl& types) const
{
    types.init(getTypeIdentifier(*m_inColorYStrip2d1), getTypeIdentifier(*m_inColorYStrip2),
               getTypeIdentifier(*m_outColorYStrip2d));
}

void AppendColorChannelImgLvl3::initDataParserColl(std::vector<boost::shared_ptr<processor::BaseDataParser>>& parsers)
{
    parsers.clear();
    addParser<BaseInputYStripColor2dAttribute>(m_inColorYStrip2d1, m_inputParser1, parsers);
    addParser<BaseInputYStripColor2dAttribute>(m_inColorYStrip2, m_inputParser2, parsers);
    addParser<BaseOutputYStripColor2dAttribute>(m_outColorYStrip2d, m_outputParser, parsers);
}

void AppendColorChannelImgLvl3::clearDataParserColl()
{
    clearParsers({&m_inputParser1, &m_inputParser2, &m_outputParser});
}
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::AppendColorChannelImgLvl3, makeAlgorithmMutexes);
KOVIS_REGISTER_FUNCTIONS(kovis::imaproc::color, AppendColorChannelImgLvl3, enterAppendTable<eInstructionSet::eIS_Generic>);
