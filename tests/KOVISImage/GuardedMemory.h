#pragma once

#include <cstddef>
#include <stdexcept>

#include <sys/mman.h>
#include <unistd.h>

namespace kovis::test
{
/// Bytes between two pages that cannot be touched: any access outside the pages ends the test. The bytes end at the guard page
/// behind them, or begin at the one before them; the rest of their pages holds a mark, to find writes that a guard page does not
/// see.
class GuardedMemory
{
public:
    enum class ePlace
    {
        beforeGuard, ///< the bytes end where the guard page begins
        afterGuard   ///< the bytes begin where the guard page ends
    };

    static constexpr unsigned char g_mark = 0xA5;

    explicit GuardedMemory(std::size_t nbBytes, ePlace place = ePlace::beforeGuard) : m_nbBytes(nbBytes)
    {
        const auto pageSize = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
        m_nbInner = (nbBytes + pageSize - 1) / pageSize * pageSize;
        m_nbMapped = m_nbInner + 2 * pageSize;
        void* const pMapped = ::mmap(nullptr, m_nbMapped, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (pMapped == MAP_FAILED)
        {
            throw std::runtime_error("no memory for guard pages");
        }
        m_pMapped = static_cast<unsigned char*>(pMapped);
        m_pInner = m_pMapped + pageSize;
        if (m_nbInner != 0 && ::mprotect(m_pInner, m_nbInner, PROT_READ | PROT_WRITE) != 0)
        {
            ::munmap(m_pMapped, m_nbMapped);
            throw std::runtime_error("guard pages cannot be set");
        }
        for (std::size_t i = 0; i < m_nbInner; ++i)
        {
            m_pInner[i] = g_mark;
        }
        m_pData = place == ePlace::afterGuard ? m_pInner : m_pInner + (m_nbInner - nbBytes);
    }
    ~GuardedMemory() { ::munmap(m_pMapped, m_nbMapped); }
    GuardedMemory(const GuardedMemory&) = delete;
    GuardedMemory& operator=(const GuardedMemory&) = delete;

    unsigned char* getData() const { return m_pData; }
    std::size_t getSize() const { return m_nbBytes; }

    /// Whether every byte of the pages outside the memory still holds the mark.
    bool isOutsideUntouched() const
    {
        for (const unsigned char* p = m_pInner; p != m_pInner + m_nbInner; ++p)
        {
            if ((p < m_pData || p >= m_pData + m_nbBytes) && *p != g_mark)
            {
                return false;
            }
        }
        return true;
    }

private:
    std::size_t m_nbBytes;
    std::size_t m_nbInner = 0;
    std::size_t m_nbMapped = 0;
    unsigned char* m_pMapped = nullptr;
    unsigned char* m_pInner = nullptr;
    unsigned char* m_pData = nullptr;
};
} // namespace kovis::test
