#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISImage/eImageBufferType.h"
#include "KOVIS/KOVISImageProcessing/AlgorithmFunctionEfficiency.h"
#include "KOVIS/KOVISImageProcessing/ImageBufferTypeIdentifier.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <log4cplus/loglevel.h>

#include <string>
#include <tuple>
#include <utility>

namespace kovis::imaproc
{
/// The element type of a buffer type from 1 to 11.
template <int bufferType>
using BufferElement =
    std::tuple_element_t<bufferType - 1, std::tuple<signed char, unsigned char, short, unsigned short, int, unsigned int, float,
                                                    unsigned char, unsigned short, unsigned int, unsigned char>>;

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
    template <unsigned int nbPositions, int... begun, class TKernelOf>
    void registerTable(const TKernelOf& kernelOf)
    {
        if constexpr (sizeof...(begun) == nbPositions)
        {
            registerRow<begun...>(kernelOf);
        }
        else
        {
            registerEach<nbPositions, begun...>(kernelOf, BufferTypes());
        }
    }

    /// The row of one key.
    template <int... key, class TKernelOf>
    void registerRow(const TKernelOf& kernelOf)
    {
        m_sets.init(A, B);
        if (m_selector.isSupported(m_sets))
        {
            m_types.init(getIdentifier(key)...);
            enterRow(static_cast<Function>(kernelOf.template operator()<BufferElement<key>...>()));
        }
    }

    /// Tells the refused rows at TRACE, if there are any. Returns true whatever happened: a row that is absent is no error of the
    /// load.
    bool report() const
    {
        if (!m_errors.empty() && processor::getKOVISBaseProcessingLogger().isEnabledFor(log4cplus::TRACE_LOG_LEVEL))
        {
            formatAndLog(processor::getKOVISBaseProcessingLogMessageManager(), processor::getKOVISBaseProcessingLogger(),
                         log4cplus::TRACE_LOG_LEVEL, "N5kovis9processor25eAlgorithmFunctionMessage6domainE",
                         processor::eAlgorithmFunctionMessage::eAFM_RegistrationErrors, m_place, m_errors);
        }
        return true;
    }

private:
    using Function = processor::AlgorithmFunctionIdentifier::Function;
    /// In the order of entry: 11 comes straight after 8, as both are of the same element type.
    using BufferTypes = std::integer_sequence<int, 1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10>;

    template <unsigned int nbPositions, int... begun, class TKernelOf, int... next>
    void registerEach(const TKernelOf& kernelOf, std::integer_sequence<int, next...>)
    {
        (registerTable<nbPositions, begun..., next>(kernelOf), ...);
    }

    static ImageBufferTypeIdentifier getIdentifier(int bufferType)
    {
        ImageBufferTypeIdentifier identifier;
        identifier.init(static_cast<image::eImageBufferType>(bufferType));
        return identifier;
    }

    void enterRow(Function function)
    {
        m_row.init(m_types, m_sets, AlgorithmFunctionEfficiency<A, B, eInstructionSet::eIS_Generic>::getEfficiency(), function);
        const BoolResult result = m_selector.registerFunction(m_row);
        if (!result)
        {
            m_errors += result.getMessage() + "\n";
        }
    }

    SourcePlace m_place;
    processor::AlgorithmFunctionSelector& m_selector;
    processor::DataTypeIdentifierColl m_types;
    processor::InstructionSetsIdentifier m_sets;
    processor::AlgorithmFunctionIdentifier m_row;
    std::string m_errors;
};
} // namespace kovis::imaproc
