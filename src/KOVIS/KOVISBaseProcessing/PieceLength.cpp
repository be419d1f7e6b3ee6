#include "KOVIS/KOVISBaseProcessing/PieceLength.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISCore/ComputerInfoPool.h"
#include "KOVIS/KOVISCore/Scheduler.h"

#include <algorithm>
#include <atomic>

namespace kovis::processor
{
namespace
{
constexpr unsigned long g_blockLength = 64;
// A kernel may keep three float planes of a piece for what it has in between.
constexpr std::size_t g_workingBytes = 3 * sizeof(float);
constexpr unsigned long g_piecesPerThread = 4;

std::atomic<unsigned long> g_stripHeight{0};
} // namespace

namespace detail
{
unsigned long choosePieceLength(const PieceConditions& conditions)
{
    const unsigned long rowLength = std::max(conditions.m_rowLength, 1UL);
    // Making a piece ready costs a few microseconds, so it takes all that the cache holds: shorter pieces cost more than they
    // save.
    const unsigned long cached = conditions.m_level2CacheSize / (conditions.m_elementBytes + g_workingBytes);
    const unsigned long longest = std::clamp(cached, g_smallestPiece, g_greatestPiece);
    const unsigned long share = conditions.m_nbElements / (g_piecesPerThread * std::max(conditions.m_nbThreads, 1U)) + 1;
    const unsigned long wanted = std::clamp(share, g_smallestPiece, longest);

    if (conditions.m_nbElements < 2 * g_smallestPiece && conditions.m_nbElements <= longest)
    {
        return std::max(conditions.m_nbElements, 1UL);
    }
    if (rowLength > longest)
    {
        return wanted / g_blockLength * g_blockLength;
    }
    return std::max(wanted / rowLength, 1UL) * rowLength;
}

unsigned long getPieceLength(unsigned long nbElements, unsigned long rowLength, std::size_t elementBytes)
{
    const unsigned long stripHeight = g_stripHeight.load(std::memory_order_relaxed);
    if (stripHeight != 0)
    {
        const unsigned long nbRows = rowLength == 0 ? 0 : nbElements / rowLength;
        return stripHeight >= nbRows ? std::max(nbElements, 1UL) : stripHeight * rowLength;
    }
    PieceConditions conditions;
    conditions.m_nbElements = nbElements;
    conditions.m_rowLength = rowLength;
    conditions.m_elementBytes = elementBytes;
    conditions.m_level2CacheSize = core::ComputerInfoPool::getInstance()
                                       .getLocalComputerInfo()
                                       .getComputerDescription()
                                       .getProcessorDescription()
                                       .getLevel2CacheSize();
    conditions.m_nbThreads = core::getMaxConcurrency();
    return choosePieceLength(conditions);
}
} // namespace detail

void setStripHeight(unsigned long nbRows)
{
    g_stripHeight.store(nbRows, std::memory_order_relaxed);
}
} // namespace kovis::processor
