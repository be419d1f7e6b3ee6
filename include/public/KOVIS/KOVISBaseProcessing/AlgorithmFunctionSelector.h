#pragma once

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"
#include "KOVIS/KOVISBaseProcessing/ProcessingInfo.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"
#include "KOVIS/KOVISUtil/eInstructionSet.h"

#include <array>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace kovis::processor
{
class BaseProcessingAlgorithm;

/// A data type in the key of a kernel, by a number and a name.
class KOVISBASEPROCESSING_EXPORT BaseDataTypeIdentifier
{
public:
    virtual ~BaseDataTypeIdentifier();

    virtual int getId() const = 0;
    /// A text that lives as long as the process.
    virtual const char* getName() const = 0;

protected:
    BaseDataTypeIdentifier() = default;
};

/// The data types of a kernel's attributes, in their order: the key of a kernel table.
class KOVISBASEPROCESSING_EXPORT DataTypeIdentifierColl
{
public:
    void init(const BaseDataTypeIdentifier& first);
    void init(const BaseDataTypeIdentifier& first, const BaseDataTypeIdentifier& second);
    void init(const BaseDataTypeIdentifier& first, const BaseDataTypeIdentifier& second, const BaseDataTypeIdentifier& third);

    unsigned int getSize() const { return m_size; }
    /// Throws std::out_of_range for an index above 2.
    int getId(unsigned int index) const { return m_ids.at(index); }
    /// The types' names in their order, as "u8 (2), f32 (7)".
    std::string getName() const;

    bool operator==(const DataTypeIdentifierColl& other) const { return m_size == other.m_size && m_ids == other.m_ids; }
    bool operator<(const DataTypeIdentifierColl& other) const
    {
        return m_size != other.m_size ? m_size < other.m_size : m_ids < other.m_ids;
    }

private:
    std::array<int, 3> m_ids{};
    std::array<const char*, 3> m_names{};
    unsigned int m_size = 0;
};

/// The instruction sets that a kernel needs, or that are forced. {7} equals {7, 7}; {6, 7} is another set; {0, 0} is generic
/// code; a cleared one is empty and means that nothing is forced. Beside another set generic code adds no need, and is left out.
class KOVISBASEPROCESSING_EXPORT InstructionSetsIdentifier
{
public:
    void init(const eInstructionSet& set);
    void init(const eInstructionSet& first, const eInstructionSet& second);
    void clear();

    bool isEmpty() const { return m_bits == 0; }
    bool contains(const eInstructionSet& set) const;
    /// Whether a number is among them that no kernel is written for.
    bool hasUnknownSet() const;
    /// As "generic", "SSE2", "FMA3 with AVX2"; "none" if empty.
    std::string getName() const;
    bool operator==(const InstructionSetsIdentifier&) const = default;

private:
    unsigned int m_bits = 0; ///< bit n is set n
};

/// A row of a kernel table.
class KOVISBASEPROCESSING_EXPORT AlgorithmFunctionIdentifier
{
public:
    using Function = ProcessingResult<bool> (BaseProcessingAlgorithm::*)(const ProcessingInfo&);

    void init(const DataTypeIdentifierColl& types, const InstructionSetsIdentifier& instructionSets, unsigned int efficiency,
              Function function);

    const DataTypeIdentifierColl& getDataTypes() const { return m_types; }
    const InstructionSetsIdentifier& getInstructionSets() const { return m_instructionSets; }
    unsigned int getEfficiency() const { return m_efficiency; }
    Function getFunction() const { return m_function; }

private:
    DataTypeIdentifierColl m_types;
    InstructionSetsIdentifier m_instructionSets;
    unsigned int m_efficiency = 0;
    Function m_function = nullptr;
};

/// The kernels of one processor class. Filled while the library loads, by one thread; read without a lock afterwards.
class KOVISBASEPROCESSING_EXPORT AlgorithmFunctionSelector
{
public:
    AlgorithmFunctionSelector();
    ~AlgorithmFunctionSelector();
    AlgorithmFunctionSelector(const AlgorithmFunctionSelector&) = delete;
    AlgorithmFunctionSelector& operator=(const AlgorithmFunctionSelector&) = delete;

    /// False, with a message: no function, an empty key, no sets, sets that are not supported here, or a row of the same key and
    /// sets.
    BoolResult registerFunction(const AlgorithmFunctionIdentifier& identifier);
    /// Whether there are sets, and every one is available on this computer.
    bool isSupported(const InstructionSetsIdentifier& instructionSets) const;

    /// The row that a run with this key takes: that of the forced sets if any are forced, else the one of best efficiency among
    /// those that are supported (the first registered of equals). False, with a message that names the key and the sets, if there
    /// is none.
    BoolResult select(const DataTypeIdentifierColl& types, const InstructionSetsIdentifier& forced,
                      AlgorithmFunctionIdentifier& identifier) const;

    /// All rows, in the order of registration.
    const std::vector<AlgorithmFunctionIdentifier>& getFunctions() const { return m_functions; }

private:
    // Rows of one key are chained by their places, so that thousands of rows are entered at the cost of one table.
    struct KeyHash
    {
        std::size_t operator()(const DataTypeIdentifierColl& key) const;
    };
    struct Rows
    {
        std::size_t m_first;
        std::size_t m_last;
    };

    std::vector<AlgorithmFunctionIdentifier> m_functions;
    std::vector<std::size_t> m_nextRow; ///< of the same key; its own place if it is the last
    std::unordered_map<DataTypeIdentifierColl, Rows, KeyHash> m_rowsByKey;
};
} // namespace kovis::processor
