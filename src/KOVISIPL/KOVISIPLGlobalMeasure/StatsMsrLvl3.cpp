#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl3.h"

#include "KOVIS/KOVISBaseProcessing/FunctionRegistration.h"
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
KOVIS_DEFINE_SET(StatsMsrLvl3, m_inColorYStrip2d, m_outStatsAccumulation);

KOVIS_INSTANTIATE_SET(KOVISIPLGLOBALMEASURE_EXPORT, StatsMsrLvl3, attr::InColorYStrip2d);
KOVIS_INSTANTIATE_SET(KOVISIPLGLOBALMEASURE_EXPORT, StatsMsrLvl3, OutStatsAccumulation);

BoolResult StatsMsrLvl3::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                     processor::ProcessorDispatchPolicy& dispatchPolicy,
                                     boost::shared_ptr<processor::BaseRule>& rule,
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
static bool enterKernels(const SourcePlace& place)
{
    return enterTable<StatsMsrLvl3, 1>([]<class T>() { return &StatsMsrLvl3::genericProcessFunction<T>; }, place);
}
} // namespace details
} // namespace kovis::imaproc::glbmsr

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::glbmsr::StatsMsrLvl3, makeAlgorithmMutexes);
KOVIS_REGISTER_FUNCTIONS(kovis::imaproc::glbmsr, StatsMsrLvl3, enterKernels);
