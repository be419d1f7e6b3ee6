#include "KOVIS/KOVISCore/isAvailable.h"

#include "KOVIS/KOVISCore/ComputerInfoPool.h"
#include "KOVIS/KOVISCore/CoreMessages.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <string>

namespace kovis::core
{
namespace
{
struct NamedSet
{
    const char* m_name;
    eInstructionSet::domain m_set;
};

// From the weakest to the strongest; the numbers of the sets are in another order.
constexpr NamedSet g_sets[] = {
    {"generic", eInstructionSet::eIS_Generic}, {"sse2", eInstructionSet::eIS_SSE2}, {"avx", eInstructionSet::eIS_AVX},
    {"avx2", eInstructionSet::eIS_AVX2},       {"fma3", eInstructionSet::eIS_FMA3}, {"avx512", eInstructionSet::eIS_AVX512},
};

const char* const g_names = "generic, sse2, avx, avx2, fma3, avx512";

std::atomic<bool> g_bGpuActivated{true};

const hard::ComputerDescription& getComputer()
{
    return ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription();
}

const NamedSet* findName(const std::string& name)
{
    const auto* const found =
        std::find_if(std::begin(g_sets), std::end(g_sets), [&](const NamedSet& set) { return name == set.m_name; });
    return found == std::end(g_sets) ? nullptr : found;
}

const NamedSet* readStrongest()
{
    const NamedSet* const strongest = std::end(g_sets) - 1;
    const char* const value = std::getenv("KOVIS_MAX_INSTRUCTION_SET");
    if (value == nullptr || *value == '\0')
    {
        return strongest;
    }
    if (const NamedSet* const named = findName(value))
    {
        return named;
    }
    detail::logError(
        detail::coreText(eCoreMessage::eCM_UnknownInstructionSet, value, g_names),
        SourcePlace{"bool kovis::core::isAvailable(const eInstructionSet&)", "KOVIS/KOVISCore/isAvailable.cpp", __LINE__});
    return strongest;
}
} // namespace

bool isAvailable(const eInstructionSet& set)
{
    static const NamedSet* const g_strongest = readStrongest();
    const eInstructionSet::domain asked = set;
    if (asked == eInstructionSet::eIS_Generic)
    {
        return true;
    }
    const auto* const found =
        std::find_if(std::begin(g_sets), std::end(g_sets), [&](const NamedSet& known) { return asked == known.m_set; });
    return found != std::end(g_sets) && found <= g_strongest && getComputer().getProcessorDescription().hasInstructionSet(set);
}

const char* getInstructionSetNames()
{
    return g_names;
}

bool isInstructionSetName(const std::string& name)
{
    return findName(name) != nullptr;
}

bool isGpuSupportActivated()
{
    return g_bGpuActivated.load(std::memory_order_relaxed) && getComputer().getGpuDescription().getNbDevices() > 0;
}

void setGpuSupportActivated(bool bActivated)
{
    g_bGpuActivated.store(bActivated, std::memory_order_relaxed);
}
} // namespace kovis::core
