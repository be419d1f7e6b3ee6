#include "KOVIS/KOVISBaseProcessing/BaseProcessingAlgorithm.h"

#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"

namespace kovis::processor
{
namespace
{
using ParserColl = std::vector<boost::shared_ptr<BaseDataParser>>;

// Fills `info` with what all parsers agree on.
BoolResult getParsedCounts(const std::string& processorName, const ParserColl& parsers, ProcessingInfo& info)
{
    for (std::size_t i = 0; i < parsers.size(); ++i)
    {
        if (parsers[i] == nullptr)
        {
            return BoolResult(false, processingText(eProcessorMessage::ePM_NullParser, i, processorName));
        }
        const unsigned long nbElements = parsers[i]->getNbElements();
        const unsigned long nbExactElements = parsers[i]->getNbExactElements();
        if (i == 0)
        {
            info.m_nbElements = nbElements;
            info.m_nbExactElements = nbExactElements;
        }
        else if (nbElements != info.m_nbElements || nbExactElements != info.m_nbExactElements)
        {
            return BoolResult(false, processingText(eProcessorMessage::ePM_ParserCountsDiffer, processorName, info.m_nbElements,
                                                    info.m_nbExactElements, i, nbElements, nbExactElements));
        }
    }
    return BoolResult(true);
}
} // namespace

BaseProcessingAlgorithm::BaseProcessingAlgorithm() = default;
BaseProcessingAlgorithm::~BaseProcessingAlgorithm() = default;

BoolResult BaseProcessingAlgorithm::mainProcess()
{
    DataTypeIdentifierColl types;
    getDataTypeIdColl(types);
    AlgorithmFunctionIdentifier identifier;
    BoolResult result = getFunctionSelector().select(types, getForcedInstructionSets(), identifier);
    if (!result || !(result = preProcess()))
    {
        return result;
    }
    try
    {
        result = runFunction(identifier);
    }
    catch (...)
    {
        clearDataParserColl();
        throw;
    }
    clearDataParserColl();
    return result ? postProcess() : result;
}

BoolResult BaseProcessingAlgorithm::runFunction(const AlgorithmFunctionIdentifier& identifier)
{
    ParserColl parsers;
    initDataParserColl(parsers);
    ProcessingInfo info;
    if (parsers.empty())
    {
        unsigned long firstElement = 0;
        getNoParseInfo(info.m_nbElements, info.m_nbExactElements, firstElement);
    }
    BoolResult result = getParsedCounts(getObjectName(), parsers, info);
    // A strip in whose rows no block begins has nothing to do.
    if (!result || (!parsers.empty() && info.m_nbElements == 0))
    {
        return result;
    }
    result = (this->*identifier.getFunction())(info);
    if (result)
    {
        for (const auto& parser : parsers)
        {
            parser->commit();
        }
    }
    return result;
}

BoolResult BaseProcessingAlgorithm::preProcess()
{
    return BoolResult(true);
}

BoolResult BaseProcessingAlgorithm::postProcess()
{
    return BoolResult(true);
}

void BaseProcessingAlgorithm::getNoParseInfo(unsigned long& nbElements, unsigned long& nbExactElements,
                                             unsigned long& firstElement) const
{
    nbElements = 0;
    nbExactElements = 0;
    firstElement = 0;
}
} // namespace kovis::processor
