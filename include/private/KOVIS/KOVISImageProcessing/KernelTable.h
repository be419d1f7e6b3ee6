#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISImageProcessing/AlgorithmFunctionEfficiency.h"
#include "KOVIS/KOVISImageProcessing/BufferTypeKeys.h"

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

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
        m_sets.init(A, B);
        if (m_selector.isSupported(m_sets))
        {
            enterRows<nbPositions>(getKernels<nbPositions>(kernelOf, std::make_index_sequence<getNbKernels(nbPositions)>()), 0);
        }
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
    static constexpr std::size_t g_nbElementTypes = 7;

    template <int... type>
    static constexpr std::array<int, sizeof...(type)> getBufferTypes(std::integer_sequence<int, type...>)
    {
        return {type...};
    }

    static constexpr std::size_t getNbKernels(std::size_t nbPositions)
    {
        return nbPositions == 0 ? 1 : g_nbElementTypes * getNbKernels(nbPositions - 1);
    }

    /// The kernels of all element types, the last position running fastest. There are fewer of them than rows, so that the rows
    /// are entered by a loop and have no code of their own.
    template <unsigned int nbPositions, class TKernelOf, std::size_t... number>
    static std::vector<Function> getKernels(const TKernelOf& kernelOf, std::index_sequence<number...>)
    {
        return {getKernel<number>(kernelOf, std::make_index_sequence<nbPositions>())...};
    }

    template <std::size_t number, class TKernelOf, std::size_t... place>
    static Function getKernel(const TKernelOf& kernelOf, std::index_sequence<place...>)
    {
        return static_cast<Function>(
            kernelOf.template operator()<BufferElement<1 + static_cast<int>(number / getNbKernels(sizeof...(place) - 1 - place) %
                                                                            g_nbElementTypes)>...>());
    }

    /// Fills the positions that are left of the key; `kernel` is the number of the kernel by the element types of those before.
    template <unsigned int nbLeft, class... TIdentifiers>
    void enterRows(const std::vector<Function>& kernels, std::size_t kernel, const TIdentifiers&... begun)
    {
        if constexpr (nbLeft == 0)
        {
            m_types.init(begun...);
            enterRow(kernels[kernel]);
        }
        else
        {
            for (const int type : getBufferTypes(detail::BufferTypes()))
            {
                const auto bufferType = static_cast<image::eImageBufferType>(type);
                const auto element = static_cast<std::size_t>(image::getStorageType(bufferType)) - 1;
                enterRows<nbLeft - 1>(kernels, kernel * g_nbElementTypes + element, begun..., getTypeIdentifier(bufferType));
            }
        }
    }

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

/// Enters a form's whole table: a row for each nbPositions buffer types. Always true.
template <class TProcessor, unsigned int nbPositions, eInstructionSet::domain A = eInstructionSet::eIS_Generic,
          eInstructionSet::domain B = eInstructionSet::eIS_Generic, class TKernelOf>
bool enterTable(const TKernelOf& kernelOf, const SourcePlace& place)
{
    KernelTable<TProcessor, A, B> table(place);
    table.template registerTable<nbPositions>(kernelOf);
    return table.report();
}

/// Enters one row of a form that has kernels of few types alone, that of the key. Always true.
template <class TProcessor, eInstructionSet::domain A, eInstructionSet::domain B, int... key, class TKernelOf>
bool enterRow(const TKernelOf& kernelOf, const SourcePlace& place)
{
    KernelTable<TProcessor, A, B> table(place);
    table.template registerRow<key...>(kernelOf);
    return table.report();
}
} // namespace kovis::imaproc
