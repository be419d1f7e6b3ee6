#include "KOVIS/KOVISImage/MemoryReserve.h"

#include <cstdint>
#include <iterator>
#include <new>

#include <sys/mman.h>

namespace kovis::image::detail
{
namespace
{
constexpr std::size_t g_pageSize = 4096;
constexpr std::size_t g_hugePageSize = std::size_t(2) << 20;

void unmap(void* pBase, std::size_t size) noexcept
{
    if (size != 0)
    {
        ::munmap(pBase, size);
    }
}

void unmapAll(const std::list<MemoryBlock>& blocks) noexcept
{
    for (const MemoryBlock& block : blocks)
    {
        unmap(block.m_pBase, block.m_size);
    }
}

void* map(std::size_t size) noexcept
{
    void* const pBase = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return pBase == MAP_FAILED ? nullptr : pBase;
}

// Large blocks begin at a huge page, so that all of it can be made of huge pages but the end, which stays in small ones.
void* mapHuge(std::size_t size) noexcept
{
    auto* const pMapped = static_cast<unsigned char*>(map(size + g_hugePageSize));
    if (pMapped == nullptr)
    {
        return nullptr;
    }
    const std::size_t head = (g_hugePageSize - reinterpret_cast<std::uintptr_t>(pMapped) % g_hugePageSize) % g_hugePageSize;
    unmap(pMapped, head);
    unmap(pMapped + head + size, g_hugePageSize - head);
    (void)::madvise(pMapped + head, size, MADV_HUGEPAGE); // a wish: kernels without huge pages refuse it
    return pMapped + head;
}

MemoryBlock mapBlock(std::size_t size) noexcept
{
    if (size > SIZE_MAX / 2)
    {
        return MemoryBlock();
    }
    const std::size_t rounded = (size + g_pageSize - 1) / g_pageSize * g_pageSize;
    void* const pBase = rounded < g_hugePageSize ? map(rounded) : mapHuge(rounded);
    return pBase == nullptr ? MemoryBlock() : MemoryBlock{pBase, rounded};
}
} // namespace

MemoryReserve& MemoryReserve::getInstance()
{
    // Never destroyed, as images may be dropped after the static objects of this library; but nothing is kept from then on, so
    // that unloading the library loses no memory.
    alignas(MemoryReserve) static unsigned char g_storage[sizeof(MemoryReserve)];
    static MemoryReserve* const g_reserve = new (g_storage) MemoryReserve();
    struct Closer
    {
        ~Closer() { g_reserve->setLimit(0); }
    };
    static const Closer g_closer;
    return *g_reserve;
}

MemoryBlock MemoryReserve::take(std::size_t size, bool& bFresh) noexcept
{
    bFresh = false;
    MemoryBlock block = takeKept(size);
    if (block.m_pBase == nullptr)
    {
        bFresh = true;
        block = mapBlock(size);
    }
    if (block.m_pBase == nullptr)
    {
        // What is kept may be what the system lacks.
        Blocks dropped;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            shrink(0, dropped);
        }
        unmapAll(dropped);
        block = mapBlock(size);
    }
    return block;
}

MemoryBlock MemoryReserve::takeKept(std::size_t size) noexcept
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto smallest = m_bySize.lower_bound(size);
    if (smallest == m_bySize.end() || smallest->first - size > size / 4)
    {
        return MemoryBlock();
    }
    // Of blocks of one size the youngest, which is most likely in a cache.
    const auto chosen = std::prev(m_bySize.upper_bound(smallest->first));
    const MemoryBlock block = *chosen->second;
    m_nbKept -= block.m_size;
    m_blocks.erase(chosen->second);
    m_bySize.erase(chosen);
    return block;
}

void MemoryReserve::give(const MemoryBlock& block) noexcept
{
    Blocks dropped;
    try
    {
        Blocks node(1, block);
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (block.m_size > m_limit)
        {
            dropped.splice(dropped.end(), node);
        }
        else
        {
            m_bySize.emplace(block.m_size, node.begin());
            m_blocks.splice(m_blocks.end(), node);
            m_nbKept += block.m_size;
            shrink(m_limit, dropped);
        }
    }
    catch (const std::bad_alloc&)
    {
        // No memory for the entry: then it is time to give some back.
        unmap(block.m_pBase, block.m_size);
    }
    unmapAll(dropped);
}

void MemoryReserve::shrink(std::size_t bytes, Blocks& dropped) noexcept
{
    while (m_nbKept > bytes)
    {
        const auto oldest = m_blocks.begin();
        auto entry = m_bySize.lower_bound(oldest->m_size);
        while (entry->second != oldest)
        {
            ++entry;
        }
        m_bySize.erase(entry);
        m_nbKept -= oldest->m_size;
        dropped.splice(dropped.end(), m_blocks, oldest);
    }
}

void MemoryReserve::setLimit(std::size_t bytes) noexcept
{
    Blocks dropped;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_limit = bytes;
        shrink(bytes, dropped);
    }
    unmapAll(dropped);
}

std::size_t MemoryReserve::getLimit() const noexcept
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_limit;
}

std::size_t MemoryReserve::getNbKept() const noexcept
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_nbKept;
}
} // namespace kovis::image::detail
