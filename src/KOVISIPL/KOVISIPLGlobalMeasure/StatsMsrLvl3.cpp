#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl3.h"

#include "KOVIS/KOVISImageProcessing/KernelTable.h"
#include "KOVIS/KOVISImageProcessing/StripAlgorithm.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/MeasureProcessorTraits.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/measureElements.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::glbmsr, StatsMsrLvl3, BaseProcessingAlgorithm,
                       kovis::imaproc::glbmsr::MeasureProcessorTraits, "KOVISIPL/KOVISIPLGlobalMeasure", 2);

namespace kovis::imaproc::glbmsr
{
KOVIS_DEFINE_PROCESSOR(StatsMsrLvl3);
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
    processor::makeAttributes(attributes, m_inColorYStrip2d, m_outStatsAccumulation);
    outputInitializers.clear();
    return processor::finishInit<StatsMsrLvl3>(dispatchPolicy, rule, rulePolicy, [] { return processor::none(); });
}

void StatsMsrLvl3::getDataTypeIdColl(processor::DataTypeIdentifierColl& types) const
{
    types.init(getTypeIdentifier(*m_inColorYStrip2d));
}

void StatsMsrLvl3::initDataParserColl(std::vector<boost::shared_ptr<processor::BaseDataParser>>& parsers)
{
    parsers.clear();
    addParser<BaseInputYStripColor2dAttribute>(m_inColorYStrip2d, m_inputParser, parsers);
}

void StatsMsrLvl3::clearDataParserColl()
{
    clearParsers({&m_inputParser});
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
