#pragma once

#include <cstddef>
#include <list>
#include <map>
#include <mutex>

namespace kovis::image::detail
{
/// Pages of their own from the operating system; null where there are none.
struct MemoryBlock
{
    void* m_pBase = nullptr;
    std::size_t m_size = 0; ///< bytes, whole pages
};

/// The memory of dropped images, kept for the next ones: asking the system for fresh pages costs more than a conversion does.
/// Safe from any thread.
class MemoryReserve
{
public:
    /// Lives as long as the library; once the library's static objects are gone it keeps nothing more.
    static MemoryReserve& getInstance();

    /// At least `size` bytes: a kept block whose waste is a quarter at most, or else fresh pages. `bFresh` tells which: fresh
    /// pages hold zeros, a kept block what its last user left. Null where the system has no more.
    MemoryBlock take(std::size_t size, bool& bFresh) noexcept;

    /// Keeps the block as far as the limit allows, else gives it back to the system. The oldest blocks make room for it.
    void give(const MemoryBlock& block) noexcept;

    void setLimit(std::size_t bytes) noexcept;
    std::size_t getLimit() const noexcept;
    /// Bytes that are kept at present.
    std::size_t getNbKept() const noexcept;

private:
    using Blocks = std::list<MemoryBlock>;

    MemoryBlock takeKept(std::size_t size) noexcept;
    /// Moves the oldest blocks to `dropped` until no more than `bytes` are kept.
    void shrink(std::size_t bytes, Blocks& dropped) noexcept;

    mutable std::mutex m_mutex;
    std::size_t m_limit = std::size_t(256) << 20;
    std::size_t m_nbKept = 0;
    Blocks m_blocks; ///< the oldest first
    std::multimap<std::size_t, Blocks::iterator> m_bySize;
};
} // namespace kovis::image::detail
