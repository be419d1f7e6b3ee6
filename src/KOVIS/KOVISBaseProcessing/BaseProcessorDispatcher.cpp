#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"

#include "KOVIS/KOVISBaseProcessing/PieceLength.h"
#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace kovis::processor
{
namespace
{
constexpr unsigned long g_mostPieces = std::numeric_limits<unsigned int>::max();

// What every vector of splits must be.
template <class TSplit>
BoolResult checkSplits(const std::string& processorName, const std::vector<boost::shared_ptr<TSplit>>& splits)
{
    if (splits.empty())
    {
        return BoolResult(false, processingText(eDispatchMessage::eDM_NoSplit, processorName));
    }
    for (std::size_t i = 0; i < splits.size(); ++i)
    {
        if (splits[i] == nullptr)
        {
            return BoolResult(false, processingText(eDispatchMessage::eDM_NullSplit, i, processorName));
        }
        if (!splits[i]->isBaseInitialised())
        {
            return BoolResult(
                false, processingText(eDispatchMessage::eDM_SplitNotInitialised, splits[i]->getAttributeName(), processorName));
        }
    }
    return BoolResult(true);
}

template <class TSplit>
std::vector<const BaseDataSplit*> getPointers(const std::vector<boost::shared_ptr<TSplit>>& splits)
{
    std::vector<const BaseDataSplit*> pointers;
    pointers.reserve(splits.size());
    for (const auto& split : splits)
    {
        pointers.push_back(split.get());
    }
    return pointers;
}

BoolResult withReason(const BoolResult& result, const std::string& processorName)
{
    return result.getMessage().empty() ? BoolResult(false, processingText(eDispatchMessage::eDM_NoReason, processorName))
                                       : result;
}
} // namespace

BaseProcessorDispatcher::BaseProcessorDispatcher() = default;
BaseProcessorDispatcher::~BaseProcessorDispatcher() = default;

void BaseProcessorDispatcher::initPieces(const core::BasePriority& priority, unsigned long nbElements, unsigned long pieceLength,
                                         std::vector<const BaseDataSplit*> splits)
{
    m_priority = priority;
    m_checkedSplits = std::move(splits);
    m_nbElements = nbElements;
    m_pieceLength = std::max(pieceLength, 1UL);
    m_nbPieces = nbElements / m_pieceLength + (nbElements % m_pieceLength != 0 ? 1 : 0);
    m_nextPiece = 0;
    m_nbNotified = 0;
    m_nbPendingActions = m_nbPieces;
}

BoolResult BaseProcessorDispatcher::queryNextAction(const core::BaseRequestOrigin& origin,
                                                    boost::shared_ptr<core::BaseActionRequest>& request, bool& bGiven,
                                                    boost::shared_ptr<BaseSerializationObject>& data)
{
    bGiven = false;
    request.reset();
    data.reset();
    if (!hasPendingAction())
    {
        return BoolResult(true);
    }
    const unsigned long piece = m_nextPiece.fetch_add(1);
    if (piece >= m_nbPieces)
    {
        return BoolResult(true);
    }
    m_nbPendingActions.fetch_sub(1, std::memory_order_relaxed);

    const unsigned long begin = piece * m_pieceLength;
    const ElementsRange range(begin, begin + std::min(m_pieceLength, m_nbElements - begin));
    boost::shared_ptr<BaseProcessor> processor;
    const BoolResult result = makeProcessor(range, origin, processor);
    if (!result)
    {
        return withReason(result, getProcessorName());
    }
    request = boost::make_shared<core::BaseActionRequest>(
        processor, range, static_cast<double>(range.getSize()) / static_cast<double>(m_nbElements));
    bGiven = true;
    return result;
}

BoolResult BaseProcessorDispatcher::makeProcessor(const ElementsRange& range, const core::BaseRequestOrigin& origin,
                                                  boost::shared_ptr<BaseProcessor>& processor)
{
    processor = createProcessor();
    if (processor == nullptr)
    {
        return BoolResult(false, processingText(eDispatchMessage::eDM_NoProcessor, getProcessorName()));
    }
    for (const BaseDataSplit* pSplit : m_checkedSplits)
    {
        if (!pSplit->checkProcessorType(*processor))
        {
            return BoolResult(
                false, processingText(eDispatchMessage::eDM_WrongProcessor, pSplit->getAttributeName(), getProcessorName()));
        }
    }
    const BoolResult result = processor->init(ePRP_Rules);
    if (!result)
    {
        return result;
    }
    processor->setActionPriority(m_priority);
    return initAttributes(range, origin, processor);
}

bool BaseProcessorDispatcher::hasPendingAction() const
{
    return !isCancellationRequested() && m_nextPiece.load() < m_nbPieces;
}

BoolResult BaseProcessorDispatcher::notifyDerived(const boost::shared_ptr<core::BaseActionRequest>& request,
                                                  const boost::shared_ptr<const BaseSerializationObject>&, bool& bFinished)
{
    bFinished = false;
    if (request == nullptr)
    {
        return BoolResult(false, processingText(eDispatchMessage::eDM_NullRequest, getProcessorName()));
    }
    bFinished = m_nbNotified.fetch_add(1) + 1 == m_nbPieces;
    return BoolResult(true);
}

void BaseProcessorDispatcher::clearDerived()
{
    m_nextPiece = m_nbPieces;
    m_nbPendingActions = 0;
    m_checkedSplits.clear();
}

BaseStaticProcessorDispatcher::BaseStaticProcessorDispatcher() = default;
BaseStaticProcessorDispatcher::~BaseStaticProcessorDispatcher() = default;

BoolResult BaseStaticProcessorDispatcher::initBase(const core::BasePriority& priority,
                                                   const std::vector<boost::shared_ptr<BaseStaticSplit>>& splits)
{
    BoolResult result = checkSplits(getProcessorName(), splits);
    if (!result)
    {
        return result;
    }
    const BaseStaticSplit* pCut = nullptr;
    for (const auto& split : splits)
    {
        if (split->isUnSplitted())
        {
            continue;
        }
        if (pCut == nullptr)
        {
            pCut = split.get();
        }
        else if (split->getNbElements() != pCut->getNbElements())
        {
            return BoolResult(false,
                              processingText(eDispatchMessage::eDM_PiecesDiffer, getProcessorName(), pCut->getAttributeName(),
                                             pCut->getNbElements(), split->getAttributeName(), split->getNbElements()));
        }
    }
    const unsigned long nbPieces = pCut != nullptr ? pCut->getNbElements() : 1;
    if (nbPieces > g_mostPieces)
    {
        return BoolResult(false, processingText(eDispatchMessage::eDM_TooManyPieces, nbPieces, getProcessorName(), g_mostPieces));
    }
    m_splits = splits;
    initPieces(priority, nbPieces, 1, getPointers(m_splits));
    return result;
}

void BaseStaticProcessorDispatcher::clearDerived()
{
    BaseProcessorDispatcher::clearDerived();
    m_splits.clear();
}

BoolResult BaseStaticProcessorDispatcher::initAttributes(const ElementsRange& range, const core::BaseRequestOrigin& origin,
                                                         const boost::shared_ptr<BaseProcessor>& processor)
{
    for (const auto& split : m_splits)
    {
        const BoolResult result = split->processAttribute(*processor, static_cast<unsigned int>(range.getBegin()), origin);
        if (!result)
        {
            return result;
        }
    }
    return BoolResult(true);
}

BaseDynamicProcessorDispatcher::BaseDynamicProcessorDispatcher() = default;
BaseDynamicProcessorDispatcher::~BaseDynamicProcessorDispatcher() = default;

BoolResult BaseDynamicProcessorDispatcher::initBase(const core::BasePriority& priority,
                                                    const std::vector<boost::shared_ptr<BaseDynamicSplit>>& splits)
{
    BoolResult result = checkSplits(getProcessorName(), splits);
    if (!result)
    {
        return result;
    }
    const BaseDynamicSplit* pCut = nullptr;
    std::size_t elementBytes = 0;
    for (const auto& split : splits)
    {
        if (split->isUnSplitted())
        {
            continue;
        }
        elementBytes += split->getElementBytes();
        if (pCut == nullptr)
        {
            pCut = split.get();
        }
        else if (split->getNbElements() != pCut->getNbElements())
        {
            return BoolResult(false,
                              processingText(eDispatchMessage::eDM_ElementsDiffer, getProcessorName(), pCut->getAttributeName(),
                                             pCut->getNbElements(), split->getAttributeName(), split->getNbElements()));
        }
        else if (split->getRowLength() != pCut->getRowLength())
        {
            return BoolResult(false,
                              processingText(eDispatchMessage::eDM_RowsDiffer, getProcessorName(), pCut->getAttributeName(),
                                             pCut->getRowLength(), split->getAttributeName(), split->getRowLength()));
        }
    }
    m_splits = splits;
    const unsigned long nbElements = pCut != nullptr ? pCut->getNbElements() : 1;
    const unsigned long pieceLength =
        pCut != nullptr ? detail::getPieceLength(nbElements, pCut->getRowLength(), elementBytes) : 1;
    initPieces(priority, nbElements, pieceLength, getPointers(m_splits));
    return result;
}

void BaseDynamicProcessorDispatcher::clearDerived()
{
    BaseProcessorDispatcher::clearDerived();
    m_splits.clear();
}

BoolResult BaseDynamicProcessorDispatcher::initAttributes(const ElementsRange& range, const core::BaseRequestOrigin& origin,
                                                          const boost::shared_ptr<BaseProcessor>& processor)
{
    for (const auto& split : m_splits)
    {
        const BoolResult result = split->processAttribute(*processor, range.getBegin(), range.getEnd(), origin);
        if (!result)
        {
            return result;
        }
    }
    return BoolResult(true);
}
} // namespace kovis::processor
