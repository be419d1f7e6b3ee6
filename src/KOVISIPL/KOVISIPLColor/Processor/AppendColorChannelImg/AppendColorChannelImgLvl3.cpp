#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3.h"

#include "KOVIS/KOVISImageProcessing/StripAlgorithm.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3Rows.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, AppendColorChannelImgLvl3, BaseProcessingAlgorithm,
                       kovis::imaproc::color::ColorProcessorTraits, "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg", 3);

namespace kovis::imaproc::color
{
KOVIS_DEFINE_PROCESSOR(AppendColorChannelImgLvl3);
KOVIS_DEFINE_ALGORITHM(AppendColorChannelImgLvl3);

template <class TAttribute>
void AppendColorChannelImgLvl3::set(const typename TAttribute::StorageType& value)
{
    processor::ProcessorAnatomy<AppendColorChannelImgLvl3>::set(
        *this, processor::selectAttribute<TAttribute>(m_inColorYStrip2d1, m_inColorYStrip2, m_outColorYStrip2d), value);
}

template KOVISIPLCOLOR_EXPORT void
AppendColorChannelImgLvl3::set<attr::InColorYStrip2d1>(const attr::InColorYStrip2d1::StorageType&);
template KOVISIPLCOLOR_EXPORT void AppendColorChannelImgLvl3::set<attr::InColorYStrip2>(const attr::InColorYStrip2::StorageType&);
template KOVISIPLCOLOR_EXPORT void
AppendColorChannelImgLvl3::set<attr::OutColorYStrip2d>(const attr::OutColorYStrip2d::StorageType&);

BoolResult AppendColorChannelImgLvl3::initDerived(
    std::vector<boost::shared_ptr<processor::BaseAttribute>>& attributes,
    std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>& outputInitializers,
    processor::ProcessorDispatchPolicy& dispatchPolicy, boost::shared_ptr<processor::BaseRule>& rule,
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

namespace details
{
static bool functionRegistration()
{
    return enterAppendTable<eInstructionSet::eIS_Generic>({"bool kovis::imaproc::color::details::functionRegistration()",
                                                           processor::ProcessorTraits<AppendColorChannelImgLvl3>::g_sourcePath,
                                                           __LINE__});
}
} // namespace details
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::AppendColorChannelImgLvl3, "kovis::imaproc::color::AppendColorChannelImgLvl3",
                         makeAlgorithmMutexes);

namespace kovis::imaproc::color
{
namespace
{
[[maybe_unused]] const bool g_bFunctionsRegistred = details::functionRegistration();
} // namespace
} // namespace kovis::imaproc::color
