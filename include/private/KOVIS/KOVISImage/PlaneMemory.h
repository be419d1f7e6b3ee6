#pragma once

#include "KOVIS/KOVISImage/MemoryReserve.h"

#include <atomic>
#include <cstddef>
#include <memory>

namespace kovis::image::detail
{
/// The memory of one plane: 64-byte aligned, zeros on first sight. Memory that an earlier image used is zeroed piece by piece,
/// when a piece is first asked for, by the thread that asks for it, so that it lies in that thread's cache when it is written.
class PlaneMemory
{
public:
    /// Throws std::bad_alloc for memory that cannot be had.
    explicit PlaneMemory(std::size_t nbBytes);
    ~PlaneMemory();
    PlaneMemory(const PlaneMemory&) = delete;
    PlaneMemory& operator=(const PlaneMemory&) = delete;

    void* getData() const { return m_pData; }

    /// Makes sure that the bytes [begin, end) hold what was written to them or else zeros. Bytes past the memory's end are
    /// ignored. Safe from several threads at once.
    void prepare(std::size_t begin, std::size_t end)
    {
        // Pairs with the last decrement: whoever sees 0 sees every zero too.
        if (m_nbDirty.load(std::memory_order_acquire) != 0)
        {
            prepareChunks(begin, end);
        }
    }

    void prepareAll() { prepare(0, m_nbBytes); }

private:
    enum eChunkState : unsigned char
    {
        eCS_Dirty = 0,
        eCS_BeingZeroed = 1,
        eCS_Ready = 2
    };

    void allocateSmall();
    void allocateLarge();
    void prepareChunks(std::size_t begin, std::size_t end);
    void zeroChunk(std::size_t chunk);

    const std::size_t m_nbBytes;
    unsigned char* m_pData = nullptr;
    MemoryBlock m_block; ///< empty for small memory, which comes from the heap
    std::atomic<std::size_t> m_nbDirty{0};
    std::unique_ptr<std::atomic<unsigned char>[]> m_states; ///< by chunk; null for memory that was zeros from the start
};
} // namespace kovis::image::detail
