#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISImageProcessing/AlgorithmFunctionEfficiency.h"
#include "KOVIS/KOVISImageProcessing/BufferTypeKeys.h"

#include <string>

namespace kovis::imaproc
{
/// Enters the kernels of a processor class that need the sets A and B into the class's table, while its library loads. Kernels
/// come from a function object whose call operator takes the element types of a row's key as template arguments and returns the
/// member function of TProcessor. A row that is refused is left out and told in the log; sets that are not supported here have no
/// rows.
template <class TProcessor, eInstructionSet::domain A = eInstructionSet::eIS_Generic,
          eInstructionSet::domain B = eInstructionSet::eIS_Generic>
class KernelTable
{
public:
    /// The place is what the report of refused rows names.
    explicit KernelTable(const SourcePlace& place) : m_place(place), m_selector(TProcessor::retrieveFunctionSelector()) {}
    ~KernelTable() = default;
    KernelTable(const KernelTable&) = delete;
    KernelTable& operator=(const KernelTable&) = delete;

    /// One row for each way to fill the positions of the key with buffer types, the last position running fastest.
    template <unsigned int nbPositions, class TKernelOf>
    void registerTable(const TKernelOf& kernelOf)
    {
        forEachKey<nbPositions>([&]<int... key>() { registerRow<key...>(kernelOf); });
    }

    /// The row of one key.
    template <int... key, class TKernelOf>
    void registerRow(const TKernelOf& kernelOf)
    {
        m_sets.init(A, B);
        if (m_selector.isSupported(m_sets))
        {
            m_types.init(getTypeIdentifier(static_cast<image::eImageBufferType>(key))...);
            enterRow(static_cast<Function>(kernelOf.template operator()<BufferElement<key>...>()));
        }
    }

    /// Tells the refused rows; always true.
    bool report() const { return reportRefusals(m_errors, m_place); }

private:
    using Function = processor::AlgorithmFunctionIdentifier::Function;

    void enterRow(Function function)
    {
        m_row.init(m_types, m_sets, AlgorithmFunctionEfficiency<A, B, eInstructionSet::eIS_Generic>::getEfficiency(), function);
        addRefusal(m_selector.registerFunction(m_row), m_errors);
    }

    SourcePlace m_place;
    processor::AlgorithmFunctionSelector& m_selector;
    processor::DataTypeIdentifierColl m_types;
    processor::InstructionSetsIdentifier m_sets;
    processor::AlgorithmFunctionIdentifier m_row;
    std::string m_errors;
};
} // namespace kovis::imaproc
