#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl3.h"

#include "KOVIS/KOVISBaseProcessing/FunctionRegistration.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVIS/KOVISImageProcessing/KernelTable.h"
#include "KOVIS/KOVISImageProcessing/StripAlgorithm.h"
#include "KOVISIPL/KOVISIPLUtility/UtilityProcessorTraits.h"
#include "KOVISIPL/KOVISIPLUtility/convertElements.h"

#include <algorithm>

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::util, ConvertImgLvl3, BaseProcessingAlgorithm,
                       kovis::imaproc::util::UtilityProcessorTraits, "KOVISIPL/KOVISIPLUtility", 2);

namespace kovis::imaproc::util
{
KOVIS_DEFINE_PROCESSOR(ConvertImgLvl3);
KOVIS_DEFINE_ALGORITHM(ConvertImgLvl3);
KOVIS_DEFINE_SET(ConvertImgLvl3, m_inColorYStrip2d, m_outColorYStrip2d);

KOVIS_INSTANTIATE_SET(KOVISIPLUTILITY_EXPORT, ConvertImgLvl3, attr::InColorYStrip2d);
KOVIS_INSTANTIATE_SET(KOVISIPLUTILITY_EXPORT, ConvertImgLvl3, attr::OutColorYStrip2d);

BoolResult ConvertImgLvl3::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                       processor::ProcessorDispatchPolicy& dispatchPolicy,
                                       boost::shared_ptr<processor::BaseRule>& rule,
                                       const processor::eProcessorRulePolicy& rulePolicy)
{
    processor::makeAttributes(attributes, m_inColorYStrip2d, m_outColorYStrip2d);
    outputInitializers.clear();
    return processor::finishInit<ConvertImgLvl3>(dispatchPolicy, rule, rulePolicy,
                                                 [this] { return matchPlanarSize(m_inColorYStrip2d, m_outColorYStrip2d); });
}

void ConvertImgLvl3::getDataTypeIdColl(processor::DataTypeIdentifierColl& types) const
{
    types.init(getTypeIdentifier(*m_inColorYStrip2d), getTypeIdentifier(*m_outColorYStrip2d));
}

void ConvertImgLvl3::initDataParserColl(std::vector<boost::shared_ptr<processor::BaseDataParser>>& parsers)
{
    parsers.clear();
    addParser<BaseInputYStripColor2dAttribute>(m_inColorYStrip2d, m_inputParser, parsers);
    addParser<BaseOutputYStripColor2dAttribute>(m_outColorYStrip2d, m_outputParser, parsers);
}

void ConvertImgLvl3::clearDataParserColl()
{
    clearParsers({&m_inputParser, &m_outputParser});
}

template <class Tin, class Tout>
ProcessingResult<bool> ConvertImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    auto* const input = static_cast<RawYStripUserColor2dParser<Tin, BaseInputYStripColor2dAttribute>*>(m_inputParser.get());
    auto* const output = static_cast<RawYStripUserColor2dParser<Tout, BaseOutputYStripColor2dAttribute>*>(m_outputParser.get());
    const unsigned long inSizeC = m_inColorYStrip2d->getBaseImageYStripColor2d().getSizeC();
    const unsigned long outSizeC = m_outColorYStrip2d->getBaseImageYStripColor2d().getSizeC();
    for (unsigned long c = 0; c < std::min(inSizeC, outSizeC); ++c)
    {
        convertElements(input->accessBuffer(c), output->accessBuffer(c), info.m_nbElements);
    }
    return ProcessingResult<bool>(true);
}

namespace details
{
static bool enterKernels(const SourcePlace& place)
{
    return enterTable<ConvertImgLvl3, 2>(
        []<class Tin, class Tout>() { return &ConvertImgLvl3::genericProcessFunction<Tin, Tout>; }, place);
}
} // namespace details
} // namespace kovis::imaproc::util

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::util::ConvertImgLvl3, makeAlgorithmMutexes);
KOVIS_REGISTER_FUNCTIONS(kovis::imaproc::util, ConvertImgLvl3, enterKernels);
