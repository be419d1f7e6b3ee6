#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"

#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"
#include "KOVIS/KOVISCore/isAvailable.h"

#include <bit>

namespace kovis::processor
{
namespace
{
constexpr int g_nbSetBits = 31;
/// Stands for every number that is no instruction set; it is never available.
constexpr unsigned int g_unknownSetBit = 1U << g_nbSetBits;
constexpr unsigned int g_genericBit = 1U << eInstructionSet::eIS_Generic;
constexpr unsigned int g_knownBits = g_genericBit | 1U << eInstructionSet::eIS_SSE2 | 1U << eInstructionSet::eIS_AVX |
                                     1U << eInstructionSet::eIS_FMA3 | 1U << eInstructionSet::eIS_AVX2 |
                                     1U << eInstructionSet::eIS_AVX512;

unsigned int toBit(const eInstructionSet& set)
{
    const int number = static_cast<eInstructionSet::domain>(set);
    return number >= 0 && number < g_nbSetBits ? 1U << number : g_unknownSetBit;
}

const char* getSetName(int number)
{
    switch (number)
    {
    case eInstructionSet::eIS_Generic:
        return "generic";
    case eInstructionSet::eIS_SSE2:
        return "SSE2";
    case eInstructionSet::eIS_AVX:
        return "AVX";
    case eInstructionSet::eIS_FMA3:
        return "FMA3";
    case eInstructionSet::eIS_AVX2:
        return "AVX2";
    case eInstructionSet::eIS_AVX512:
        return "AVX512";
    default:
        return "unknown";
    }
}
} // namespace

BaseDataTypeIdentifier::~BaseDataTypeIdentifier() = default;

void DataTypeIdentifierColl::init(const BaseDataTypeIdentifier& first)
{
    m_ids = {first.getId()};
    m_names = {first.getName()};
    m_size = 1;
}

void DataTypeIdentifierColl::init(const BaseDataTypeIdentifier& first, const BaseDataTypeIdentifier& second)
{
    m_ids = {first.getId(), second.getId()};
    m_names = {first.getName(), second.getName()};
    m_size = 2;
}

void DataTypeIdentifierColl::init(const BaseDataTypeIdentifier& first, const BaseDataTypeIdentifier& second,
                                  const BaseDataTypeIdentifier& third)
{
    m_ids = {first.getId(), second.getId(), third.getId()};
    m_names = {first.getName(), second.getName(), third.getName()};
    m_size = 3;
}

std::string DataTypeIdentifierColl::getName() const
{
    std::string name;
    for (unsigned int i = 0; i < m_size; ++i)
    {
        // Types of one storage share their name, so the number goes with it.
        name += (i == 0 ? "" : ", ") + std::string(m_names[i]) + " (" + std::to_string(m_ids[i]) + ")";
    }
    return name.empty() ? "none" : name;
}

void InstructionSetsIdentifier::init(const eInstructionSet& set)
{
    m_bits = toBit(set);
}

void InstructionSetsIdentifier::init(const eInstructionSet& first, const eInstructionSet& second)
{
    m_bits = toBit(first) | toBit(second);
    if (m_bits != g_genericBit)
    {
        m_bits &= ~g_genericBit;
    }
}

void InstructionSetsIdentifier::clear()
{
    m_bits = 0;
}

bool InstructionSetsIdentifier::contains(const eInstructionSet& set) const
{
    return (m_bits & toBit(set)) != 0;
}

bool InstructionSetsIdentifier::hasUnknownSet() const
{
    return (m_bits & ~g_knownBits) != 0;
}

std::string InstructionSetsIdentifier::getName() const
{
    std::string name;
    for (unsigned int bits = m_bits; bits != 0; bits &= bits - 1)
    {
        name += (name.empty() ? "" : " with ") + std::string(getSetName(std::countr_zero(bits)));
    }
    return name.empty() ? "none" : name;
}

void AlgorithmFunctionIdentifier::init(const DataTypeIdentifierColl& types, const InstructionSetsIdentifier& instructionSets,
                                       unsigned int efficiency, Function function)
{
    m_types = types;
    m_instructionSets = instructionSets;
    m_efficiency = efficiency;
    m_function = function;
}

std::size_t AlgorithmFunctionSelector::KeyHash::operator()(const DataTypeIdentifierColl& key) const
{
    std::size_t hash = key.getSize();
    for (unsigned int i = 0; i < key.getSize(); ++i)
    {
        hash = hash * 31U + static_cast<std::size_t>(key.getId(i));
    }
    return hash;
}

AlgorithmFunctionSelector::AlgorithmFunctionSelector() = default;
AlgorithmFunctionSelector::~AlgorithmFunctionSelector() = default;

BoolResult AlgorithmFunctionSelector::registerFunction(const AlgorithmFunctionIdentifier& identifier)
{
    const DataTypeIdentifierColl& types = identifier.getDataTypes();
    const InstructionSetsIdentifier& sets = identifier.getInstructionSets();
    if (types.getSize() == 0)
    {
        return BoolResult(false, processingText(eAlgorithmFunctionMessage::eAFM_EmptyKey, sets.getName()));
    }
    if (identifier.getFunction() == nullptr)
    {
        return BoolResult(false, processingText(eAlgorithmFunctionMessage::eAFM_NoFunction, types.getName(), sets.getName()));
    }
    if (sets.isEmpty())
    {
        return BoolResult(false, processingText(eAlgorithmFunctionMessage::eAFM_NoSets, types.getName()));
    }
    if (!isSupported(sets))
    {
        return BoolResult(false, processingText(eAlgorithmFunctionMessage::eAFM_NotSupported, types.getName(), sets.getName()));
    }

    const std::size_t row = m_functions.size();
    const auto [found, bNew] = m_rowsByKey.try_emplace(types, Rows{row, row});
    if (!bNew)
    {
        for (std::size_t other = found->second.m_first;; other = m_nextRow[other])
        {
            if (m_functions[other].getInstructionSets() == sets)
            {
                return BoolResult(false,
                                  processingText(eAlgorithmFunctionMessage::eAFM_DoubledRow, types.getName(), sets.getName()));
            }
            if (other == m_nextRow[other])
            {
                break;
            }
        }
        m_nextRow[found->second.m_last] = row;
        found->second.m_last = row;
    }
    m_functions.push_back(identifier);
    m_nextRow.push_back(row);
    return BoolResult(true);
}

bool AlgorithmFunctionSelector::isSupported(const InstructionSetsIdentifier& instructionSets) const
{
    if (instructionSets.isEmpty() || instructionSets.hasUnknownSet())
    {
        return false;
    }
    for (const auto set : {eInstructionSet::eIS_SSE2, eInstructionSet::eIS_AVX, eInstructionSet::eIS_FMA3,
                           eInstructionSet::eIS_AVX2, eInstructionSet::eIS_AVX512})
    {
        if (instructionSets.contains(set) && !core::isAvailable(set))
        {
            return false;
        }
    }
    return true;
}

BoolResult AlgorithmFunctionSelector::select(const DataTypeIdentifierColl& types, const InstructionSetsIdentifier& forced,
                                             AlgorithmFunctionIdentifier& identifier) const
{
    const auto found = m_rowsByKey.find(types);
    if (found == m_rowsByKey.end())
    {
        return BoolResult(false, processingText(eAlgorithmFunctionMessage::eAFM_NoRow, types.getName()));
    }
    const AlgorithmFunctionIdentifier* pBest = nullptr;
    for (std::size_t row = found->second.m_first;; row = m_nextRow[row])
    {
        const AlgorithmFunctionIdentifier& candidate = m_functions[row];
        const bool bFits = forced.isEmpty() ? pBest == nullptr || candidate.getEfficiency() > pBest->getEfficiency()
                                            : candidate.getInstructionSets() == forced;
        if (bFits)
        {
            pBest = &candidate;
        }
        if (row == m_nextRow[row])
        {
            break;
        }
    }
    if (pBest == nullptr)
    {
        return BoolResult(false,
                          processingText(eAlgorithmFunctionMessage::eAFM_NoRowOfForcedSets, types.getName(), forced.getName()));
    }
    identifier = *pBest;
    return BoolResult(true);
}
} // namespace kovis::processor
