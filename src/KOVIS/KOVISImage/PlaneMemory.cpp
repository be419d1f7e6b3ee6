#include "KOVIS/KOVISImage/PlaneMemory.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <thread>

namespace kovis::image::detail
{
namespace
{
constexpr std::size_t g_alignment = 64;
// Below this the heap is quicker than pages, and zeroing at once costs next to nothing.
constexpr std::size_t g_largeSize = std::size_t(32) << 10;
constexpr std::size_t g_chunkSize = std::size_t(16) << 10;

// Planes that all begin at the same place in their pages disturb each other: a load waits for a store to the same place of
// another page. So their starts are spread over a page, one after the other.
constexpr std::size_t g_spreadStep = 512;
constexpr std::size_t g_spreadSize = 4096;

std::size_t getNextSpread()
{
    static std::atomic<std::size_t> g_next{0};
    return g_next.fetch_add(g_spreadStep, std::memory_order_relaxed) % g_spreadSize;
}
} // namespace

PlaneMemory::PlaneMemory(std::size_t nbBytes) : m_nbBytes(nbBytes)
{
    if (nbBytes < g_largeSize)
    {
        allocateSmall();
    }
    else
    {
        allocateLarge();
    }
}

PlaneMemory::~PlaneMemory()
{
    if (m_block.m_pBase == nullptr)
    {
        std::free(m_pData);
    }
    else
    {
        MemoryReserve::getInstance().give(m_block);
    }
}

void PlaneMemory::allocateSmall()
{
    const std::size_t size = (std::max<std::size_t>(m_nbBytes, 1) + g_alignment - 1) / g_alignment * g_alignment;
    m_pData = static_cast<unsigned char*>(std::aligned_alloc(g_alignment, size));
    if (m_pData == nullptr)
    {
        throw std::bad_alloc();
    }
    std::memset(m_pData, 0, size);
}

void PlaneMemory::allocateLarge()
{
    if (m_nbBytes > SIZE_MAX - g_spreadSize)
    {
        throw std::bad_alloc();
    }
    bool bFresh = false;
    MemoryReserve& reserve = MemoryReserve::getInstance();
    const MemoryBlock block = reserve.take(m_nbBytes + g_spreadSize, bFresh);
    if (block.m_pBase == nullptr)
    {
        throw std::bad_alloc();
    }
    if (!bFresh)
    {
        const std::size_t nbChunks = (m_nbBytes + g_chunkSize - 1) / g_chunkSize;
        try
        {
            m_states = std::make_unique<std::atomic<unsigned char>[]>(nbChunks);
        }
        catch (...)
        {
            reserve.give(block);
            throw;
        }
        m_nbDirty.store(nbChunks, std::memory_order_relaxed);
    }
    m_block = block;
    m_pData = static_cast<unsigned char*>(block.m_pBase) + getNextSpread();
}

void PlaneMemory::prepareChunks(std::size_t begin, std::size_t end)
{
    end = std::min(end, m_nbBytes);
    if (begin >= end)
    {
        return;
    }
    const std::size_t first = begin / g_chunkSize;
    const std::size_t last = (end - 1) / g_chunkSize;

    // First what nobody has begun, and only then wait for the others.
    for (std::size_t chunk = first; chunk <= last; ++chunk)
    {
        unsigned char expected = eCS_Dirty;
        if (m_states[chunk].compare_exchange_strong(expected, eCS_BeingZeroed, std::memory_order_relaxed))
        {
            zeroChunk(chunk);
        }
    }
    for (std::size_t chunk = first; chunk <= last; ++chunk)
    {
        while (m_states[chunk].load(std::memory_order_acquire) != eCS_Ready)
        {
            std::this_thread::yield();
        }
    }
}

void PlaneMemory::zeroChunk(std::size_t chunk)
{
    const std::size_t begin = chunk * g_chunkSize;
    std::memset(m_pData + begin, 0, std::min(g_chunkSize, m_nbBytes - begin));
    m_states[chunk].store(eCS_Ready, std::memory_order_release);
    m_nbDirty.fetch_sub(1, std::memory_order_acq_rel);
}
} // namespace kovis::image::detail
