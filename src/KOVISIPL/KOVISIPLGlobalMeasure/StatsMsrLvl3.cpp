#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl3.h"

#include "KOVIS/KOVISImageProcessing/ImageBufferTypeIdentifier.h"
#include "KOVIS/KOVISImageProcessing/KernelTable.h"
#include "KOVIS/KOVISImageProcessing/StripParserInfo.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/MeasureProcessorTraits.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/measureElements.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::glbmsr, StatsMsrLvl3, BaseProcessingAlgorithm,
                       kovis::imaproc::glbmsr::MeasureProcessorTraits, "KOVISIPL/KOVISIPLGlobalMeasure", 2);

namespace kovis::imaproc::glbmsr
{
namespace
{
processor::ProcessorDispatchPolicy& getStatsMsrLvl3StaticDispatchPolicy()
{
    static processor::ProcessorDispatchPolicy g_dispatchPolicy;
    return g_dispatchPolicy;
}
} // namespace

KOVIS_DEFINE_PROCESSOR(StatsMsrLvl3, getStatsMsrLvl3StaticDispatchPolicy);
KOVIS_DEFINE_ALGORITHM(StatsMsrLvl3);

template <class TAttribute>
void StatsMsrLvl3::set(const typename TAttribute::StorageType& value)
{
    processor::ProcessorAnatomy<StatsMsrLvl3>::set(
        *this, processor::selectAttribute<TAttribute>(m_inColorYStrip2d, m_outStatsAccumulation), value);
}

template KOVISIPLGLOBALMEASURE_EXPORT void StatsMsrLvl3::set<attr::InColorYStrip2d>(const attr::InColorYStrip2d::StorageType&);
template KOVISIPLGLOBALMEASURE_EXPORT void StatsMsrLvl3::set<OutStatsAccumulation>(const OutStatsAccumulation::StorageType&);

BoolResult
StatsMsrLvl3::initDerived(std::vector<boost::shared_ptr<processor::BaseAttribute>>& attributes,
                          std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>& outputInitializers,
                          processor::ProcessorDispatchPolicy& dispatchPolicy, boost::shared_ptr<processor::BaseRule>& rule,
                          const processor::eProcessorRulePolicy& rulePolicy)
{
    attributes.clear();
    processor::makeAttribute(m_inColorYStrip2d, attributes);
    processor::makeAttribute(m_outStatsAccumulation, attributes);
    outputInitializers.clear();
    dispatchPolicy = getDefaultDispatchPolicy();
    rule.reset();
    if (rulePolicy != processor::ePRP_NoRules)
    {
        rule = processor::none();
    }
    return BoolResult(true);
}

void StatsMsrLvl3::getDataTypeIdColl(processor::DataTypeIdentifierColl& types) const
{
    ImageBufferTypeIdentifier input;
    input.init(m_inColorYStrip2d->getImageBufferType());
    types.init(input);
}

void StatsMsrLvl3::initDataParserColl(std::vector<boost::shared_ptr<processor::BaseDataParser>>& parsers)
{
    parsers.clear();
    if (m_inColorYStrip2d)
    {
        using Attribute = BaseInputYStripColor2dAttribute;
        m_inputParser = StripParserInfo<RawStripParserMode, Attribute, Attribute>::createParser(m_inColorYStrip2d);
        parsers.push_back(m_inputParser);
    }
}

void StatsMsrLvl3::clearDataParserColl()
{
    for (boost::shared_ptr<processor::BaseDataParser>* const parser : {&m_inputParser})
    {
        if (*parser)
        {
            (*parser)->clear();
            parser->reset();
        }
    }
}

template <class T>
ProcessingResult<bool> StatsMsrLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    auto* const parser = static_cast<RawYStripUserColor2dParser<T, BaseInputYStripColor2dAttribute>*>(m_inputParser.get());
    const unsigned long sizeC = m_inColorYStrip2d->getBaseImageYStripColor2d().getSizeC();
    StatsPart part;
    for (unsigned long c = 0; c < sizeC; ++c)
    {
        measureElements(parser->accessBuffer(c), info.m_nbExactElements, part);
    }
    m_outStatsAccumulation->getStorage()->add(part);
    return ProcessingResult<bool>(true);
}

namespace details
{
static bool functionRegistration()
{
    KernelTable<StatsMsrLvl3> table({"bool kovis::imaproc::glbmsr::details::functionRegistration()",
                                     processor::ProcessorTraits<StatsMsrLvl3>::g_sourcePath, __LINE__});
    table.registerTable<1>([]<class T>() { return &StatsMsrLvl3::genericProcessFunction<T>; });
    return table.report();
}
} // namespace details
} // namespace kovis::imaproc::glbmsr

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::glbmsr::StatsMsrLvl3, "kovis::imaproc::glbmsr::StatsMsrLvl3", makeAlgorithmMutexes);

namespace kovis::imaproc::glbmsr
{
namespace
{
[[maybe_unused]] const bool g_bFunctionsRegistred = details::functionRegistration();
} // namespace
} // namespace kovis::imaproc::glbmsr
