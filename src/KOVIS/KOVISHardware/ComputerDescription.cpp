#include "KOVIS/KOVISHardware/ComputerDescription.h"

#include "KOVIS/KOVISHardware/ProcessorFeatures.h"

#include <cpuid.h>
#include <pthread.h>
#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace kovis::hard
{
namespace
{
struct Registers
{
    unsigned int m_eax = 0;
    unsigned int m_ebx = 0;
    unsigned int m_ecx = 0;
    unsigned int m_edx = 0;
};

/// All zeros for a leaf that the processor does not have.
Registers readLeaf(unsigned int leaf, unsigned int subLeaf = 0)
{
    Registers registers;
    __get_cpuid_count(leaf, subLeaf, &registers.m_eax, &registers.m_ebx, &registers.m_ecx, &registers.m_edx);
    return registers;
}

unsigned int readXcr0()
{
    unsigned int low = 0;
    unsigned int high = 0;
    __asm__ volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    return low;
}

ProcessorFeatures readFeatures()
{
    const Registers leaf1 = readLeaf(1);
    ProcessorFeatures features;
    features.m_leaf1Ecx = leaf1.m_ecx;
    features.m_leaf1Edx = leaf1.m_edx;
    features.m_leaf7Ebx = readLeaf(7).m_ebx;
    // xgetbv itself is there only if the operating system has switched it on.
    constexpr unsigned int osXsave = 1u << 27;
    features.m_xcr0 = hasAllBits(leaf1.m_ecx, osXsave) ? readXcr0() : 0u;
    return features;
}

std::string readName()
{
    if (readLeaf(0x80000000u).m_eax < 0x80000004u)
    {
        return "x86-64";
    }
    char text[49] = {};
    for (unsigned int i = 0; i < 3; ++i)
    {
        const Registers part = readLeaf(0x80000002u + i);
        std::memcpy(text + 16 * i, &part, 16);
    }
    std::string name(text);
    name.erase(0, name.find_first_not_of(' '));
    name.erase(name.find_last_not_of(' ') + 1);
    return name.empty() ? std::string("x86-64") : name;
}

unsigned int countProcessors()
{
    // The mask must be as long as the kernel's, which is told only by trying.
    for (std::size_t nbBits = 1024; nbBits <= (std::size_t(1) << 20); nbBits *= 4)
    {
        std::vector<cpu_set_t> mask(nbBits / CPU_SETSIZE);
        const std::size_t nbBytes = mask.size() * sizeof(cpu_set_t);
        if (pthread_getaffinity_np(pthread_self(), nbBytes, mask.data()) == 0)
        {
            return static_cast<unsigned int>(std::max(1, CPU_COUNT_S(nbBytes, mask.data())));
        }
    }
    const long nbOnline = sysconf(_SC_NPROCESSORS_ONLN);
    return nbOnline > 0 ? static_cast<unsigned int>(nbOnline) : 1u;
}

std::size_t readLevel2CacheSize()
{
    const long told = sysconf(_SC_LEVEL2_CACHE_SIZE);
    if (told > 0)
    {
        return static_cast<std::size_t>(told);
    }
    // Bits 16 to 31 of ecx: KiB.
    const std::size_t kibiBytes = readLeaf(0x80000006u).m_ecx >> 16;
    return (kibiBytes != 0 ? kibiBytes : 256) * 1024;
}
} // namespace

ProcessorDescription::ProcessorDescription()
    : m_name(readName()),
      m_nbProcessors(countProcessors()),
      m_level2CacheSize(readLevel2CacheSize()),
      m_instructionSets(toInstructionSets(readFeatures()))
{
}

bool ProcessorDescription::hasInstructionSet(const eInstructionSet& set) const
{
    const int number = static_cast<int>(static_cast<eInstructionSet::domain>(set));
    return number >= 0 && number <= eInstructionSet::eIS_AVX512 && ((m_instructionSets >> number) & 1u) != 0;
}
} // namespace kovis::hard
