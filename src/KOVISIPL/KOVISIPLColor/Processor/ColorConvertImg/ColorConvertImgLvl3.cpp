#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"

#include "KOVIS/KOVISBaseProcessing/FunctionRegistration.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVIS/KOVISImageProcessing/StripAlgorithm.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3Rows.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"
#include "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, ColorConvertImgLvl3, BaseProcessingAlgorithm,
                       kovis::imaproc::color::ColorProcessorTraits, "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg", 7);

namespace kovis::imaproc::color
{
KOVIS_DEFINE_PROCESSOR(ColorConvertImgLvl3);
KOVIS_DEFINE_ALGORITHM(ColorConvertImgLvl3);
KOVIS_DEFINE_SET(ColorConvertImgLvl3, m_inColorYStrip2d, m_inColorConversionTransform, m_outColorYStrip2d);

KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, ColorConvertImgLvl3, attr::InColorYStrip2d);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, ColorConvertImgLvl3, attr::InColorConversionTransform);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, ColorConvertImgLvl3, attr::OutColorYStrip2d);

BoolResult ColorConvertImgLvl3::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                            processor::ProcessorDispatchPolicy& dispatchPolicy,
                                            boost::shared_ptr<processor::BaseRule>& rule,
                                            const processor::eProcessorRulePolicy& rulePolicy)
{
    processor::makeAttributes(attributes, m_inColorYStrip2d, m_inColorConversionTransform, m_outColorYStrip2d);
    outputInitializers.clear();
    return processor::finishInit<ColorConvertImgLvl3>(dispatchPolicy, rule, rulePolicy,
                                                      [this]
                                                      {
                                                          return matchPlanarSize(m_inColorYStrip2d, m_outColorYStrip2d) &&
                                                                 matchColorSpace(m_inColorYStrip2d, m_outColorYStrip2d,
                                                                                 m_inColorConversionTransform);
                                                      });
}

void ColorConvertImgLvl3::getDataTypeIdColl(processor::DataTypeIdentifierColl& types) const
{
    types.init(getTypeIdentifier(*m_inColorYStrip2d), getTypeIdentifier(*m_outColorYStrip2d));
}

void ColorConvertImgLvl3::initDataParserColl(std::vector<boost::shared_ptr<processor::BaseDataParser>>& parsers)
{
    parsers.clear();
    addParser<BaseInputYStripColor2dAttribute>(m_inColorYStrip2d, m_inputParser, parsers);
    addParser<BaseOutputYStripColor2dAttribute>(m_outColorYStrip2d, m_outputParser, parsers);
}

void ColorConvertImgLvl3::clearDataParserColl()
{
    clearParsers({&m_inputParser, &m_outputParser});
}
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::ColorConvertImgLvl3, makeAlgorithmMutexes);
KOVIS_REGISTER_FUNCTIONS(kovis::imaproc::color, ColorConvertImgLvl3, enterConversionTable<eInstructionSet::eIS_Generic>);
