#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3.h"

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

template <class TAttribute>
void LightnessImgLvl3::set(const typename TAttribute::StorageType& value)
{
    processor::ProcessorAnatomy<LightnessImgLvl3>::set(
        *this, processor::selectAttribute<TAttribute>(m_inColorYStrip2d, m_inLightnessType, m_outLightYStrip2d), value);
}

template KOVISIPLCOLOR_EXPORT void LightnessImgLvl3::set<attr::InColorYStrip2d>(const attr::InColorYStrip2d::StorageType&);
template KOVISIPLCOLOR_EXPORT void LightnessImgLvl3::set<attr::InLightnessType>(const attr::InLightnessType::StorageType&);
template KOVISIPLCOLOR_EXPORT void LightnessImgLvl3::set<attr::OutLightYStrip2d>(const attr::OutLightYStrip2d::StorageType&);

BoolResult
LightnessImgLvl3::initDerived(std::vector<boost::shared_ptr<processor::BaseAttribute>>& attributes,
                              std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>& outputInitializers,
                              processor::ProcessorDispatchPolicy& dispatchPolicy, boost::shared_ptr<processor::BaseRule>& rule,
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

namespace details
{
static bool functionRegistration()
{
    return enterLightnessTable<eInstructionSet::eIS_Generic>({"bool kovis::imaproc::color::details::functionRegistration()",
                                                              processor::ProcessorTraits<LightnessImgLvl3>::g_sourcePath,
                                                              __LINE__});
}
} // namespace details
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::LightnessImgLvl3, "kovis::imaproc::color::LightnessImgLvl3",
                         makeAlgorithmMutexes);

namespace kovis::imaproc::color
{
namespace
{
[[maybe_unused]] const bool g_bFunctionsRegistred = details::functionRegistration();
} // namespace
} // namespace kovis::imaproc::color
