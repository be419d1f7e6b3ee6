#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"

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

template <class TAttribute>
void ColorConvertImgLvl3::set(const typename TAttribute::StorageType& value)
{
    processor::ProcessorAnatomy<ColorConvertImgLvl3>::set(
        *this, processor::selectAttribute<TAttribute>(m_inColorYStrip2d, m_inColorConversionTransform, m_outColorYStrip2d),
        value);
}

template KOVISIPLCOLOR_EXPORT void ColorConvertImgLvl3::set<attr::InColorYStrip2d>(const attr::InColorYStrip2d::StorageType&);
template KOVISIPLCOLOR_EXPORT void
ColorConvertImgLvl3::set<attr::InColorConversionTransform>(const attr::InColorConversionTransform::StorageType&);
template KOVISIPLCOLOR_EXPORT void ColorConvertImgLvl3::set<attr::OutColorYStrip2d>(const attr::OutColorYStrip2d::StorageType&);

BoolResult
ColorConvertImgLvl3::initDerived(std::vector<boost::shared_ptr<processor::BaseAttribute>>& attributes,
                                 std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>& outputInitializers,
                                 processor::ProcessorDispatchPolicy& dispatchPolicy, boost::shared_ptr<processor::BaseRule>& rule,
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

namespace details
{
static bool functionRegistration()
{
    ColorConvertImgLvl3Rows<eInstructionSet::eIS_Generic, eInstructionSet::eIS_Generic> rows(
        {"bool kovis::imaproc::color::details::functionRegistration()",
         processor::ProcessorTraits<ColorConvertImgLvl3>::g_sourcePath, __LINE__});
    rows.registerTable<2>(ColorConvertImgLvl3Kernels<eInstructionSet::eIS_Generic, eInstructionSet::eIS_Generic>());
    return rows.report();
}
} // namespace details
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::ColorConvertImgLvl3, "kovis::imaproc::color::ColorConvertImgLvl3",
                         makeAlgorithmMutexes);

namespace kovis::imaproc::color
{
namespace
{
[[maybe_unused]] const bool g_bFunctionsRegistred = details::functionRegistration();
} // namespace
} // namespace kovis::imaproc::color
