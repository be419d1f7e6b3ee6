#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"

#include "KOVIS/KOVISImageProcessing/ImageBufferTypeIdentifier.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVIS/KOVISImageProcessing/StripParserInfo.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3Rows.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"
#include "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, ColorConvertImgLvl3, BaseProcessingAlgorithm,
                       kovis::imaproc::color::ColorProcessorTraits, "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg", 7);

namespace kovis::imaproc::color
{
namespace
{
processor::ProcessorDispatchPolicy& getColorConvertImgLvl3StaticDispatchPolicy()
{
    static processor::ProcessorDispatchPolicy g_dispatchPolicy;
    return g_dispatchPolicy;
}
} // namespace

KOVIS_DEFINE_PROCESSOR(ColorConvertImgLvl3, getColorConvertImgLvl3StaticDispatchPolicy);
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
    attributes.clear();
    processor::makeAttribute(m_inColorYStrip2d, attributes);
    processor::makeAttribute(m_inColorConversionTransform, attributes);
    processor::makeAttribute(m_outColorYStrip2d, attributes);
    outputInitializers.clear();
    dispatchPolicy = getDefaultDispatchPolicy();
    rule.reset();
    if (rulePolicy != processor::ePRP_NoRules)
    {
        rule = matchPlanarSize(m_inColorYStrip2d, m_outColorYStrip2d) &&
               matchColorSpace(m_inColorYStrip2d, m_outColorYStrip2d, m_inColorConversionTransform);
    }
    return BoolResult(true);
}

void ColorConvertImgLvl3::getDataTypeIdColl(processor::DataTypeIdentifierColl& types) const
{
    ImageBufferTypeIdentifier input;
    input.init(m_inColorYStrip2d->getImageBufferType());
    ImageBufferTypeIdentifier output;
    output.init(m_outColorYStrip2d->getImageBufferType());
    types.init(input, output);
}

void ColorConvertImgLvl3::initDataParserColl(std::vector<boost::shared_ptr<processor::BaseDataParser>>& parsers)
{
    parsers.clear();
    if (m_inColorYStrip2d)
    {
        using Attribute = BaseInputYStripColor2dAttribute;
        m_inputParser = StripParserInfo<RawStripParserMode, Attribute, Attribute>::createParser(m_inColorYStrip2d);
        parsers.push_back(m_inputParser);
    }
    if (m_outColorYStrip2d)
    {
        using Attribute = BaseOutputYStripColor2dAttribute;
        m_outputParser = StripParserInfo<RawStripParserMode, Attribute, Attribute>::createParser(m_outColorYStrip2d);
        parsers.push_back(m_outputParser);
    }
}

void ColorConvertImgLvl3::clearDataParserColl()
{
    for (boost::shared_ptr<processor::BaseDataParser>* const parser : {&m_inputParser, &m_outputParser})
    {
        if (*parser)
        {
            (*parser)->clear();
            parser->reset();
        }
    }
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
