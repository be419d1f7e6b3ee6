#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>
#include <new>

namespace kovis::test
{
/// A plane of nbElements elements that ends where readable memory ends: one element read or written past it is a fault.
/// The memory before it is readable for less than a page.
template <class T>
class GuardedPlane
{
public:
    explicit GuardedPlane(std::size_t nbElements) : m_nbElements(nbElements)
    {
        const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        const std::size_t nbBytes = nbElements * sizeof(T);
        m_nbUsable = (nbBytes + page - 1) / page * page;
        m_nbMapped = m_nbUsable + page;
        void* const mapped = mmap(nullptr, m_nbMapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (mapped == MAP_FAILED)
        {
            throw std::bad_alloc();
        }
        m_mapped = static_cast<unsigned char*>(mapped);
        if (mprotect(m_mapped + m_nbUsable, page, PROT_NONE) != 0)
        {
            munmap(m_mapped, m_nbMapped);
            throw std::bad_alloc();
        }
        m_data = reinterpret_cast<T*>(m_mapped + m_nbUsable - nbBytes);
        std::memset(m_mapped, 0xA5, m_nbUsable);
    }
    ~GuardedPlane() { munmap(m_mapped, m_nbMapped); }
    GuardedPlane(const GuardedPlane&) = delete;
    GuardedPlane& operator=(const GuardedPlane&) = delete;

    T* data() { return m_data; }
    const T* data() const { return m_data; }
    std::size_t size() const { return m_nbElements; }
    T& operator[](std::size_t i) { return m_data[i]; }
    const T& operator[](std::size_t i) const { return m_data[i]; }

private:
    std::size_t m_nbElements;
    std::size_t m_nbUsable = 0;
    std::size_t m_nbMapped = 0;
    unsigned char* m_mapped = nullptr;
    T* m_data = nullptr;
};
} // namespace kovis::test
