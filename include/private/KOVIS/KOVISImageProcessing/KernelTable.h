#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISImage/eImageBufferType.h"
#include "KOVIS/KOVISImageProcessing/AlgorithmFunctionEfficiency.h"
#include "KOVIS/KOVISImageProcessing/ImageBufferTypeIdentifier.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <string>
#include <tuple>
#include <type_traits>

namespace kovis::imaproc
{
/// The element type of a buffer type from 1 to 11.
template <int bufferType>
using BufferElement = std::tuple_element_t<bufferType - 1, std::tuple<signed char, unsigned char, short, unsigned short, int, unsigned int, float,
                                                                      unsigned char, unsigned short, unsigned int, unsigned char>>;

/// Calls a template lambda for each buffer type, in the order in which rows are entered.
template <class TFunction>
void forEachBufferType(TFunction function)
{
    const auto call = [&function]<int... bufferTypes>(std::integer_sequence<int, bufferTypes...>)
    { (function.template operator()<bufferTypes>(), ...); };
    call(std::integer_sequence<int, 1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10>());
}

/// Enters the plain x86-64 kernels of a processor class. A row that is refused is left out and told in the log.
template <class TProcessor>
class KernelTable
{
public:
    KernelTable(processor::AlgorithmFunctionSelector& selector, const char* file) : m_selector(selector), m_file(file) {}
    KernelTable(const KernelTable&) = delete;
    KernelTable& operator=(const KernelTable&) = delete;

    template <class... TBufferTypes>
    void registerRow(ProcessingResult<bool> (TProcessor::*function)(const processor::ProcessingInfo&), TBufferTypes... bufferTypes)
    {
        processor::InstructionSetsIdentifier sets;
        sets.init(eInstructionSet::eIS_Generic);
        processor::DataTypeIdentifierColl types;
        types.init(getIdentifier(bufferTypes)...);
        processor::AlgorithmFunctionIdentifier row;
        row.init(types, sets,
                 AlgorithmFunctionEfficiency<eInstructionSet::eIS_Generic, eInstructionSet::eIS_Generic,
                                             eInstructionSet::eIS_Generic>::getEfficiency(),
                 static_cast<processor::AlgorithmFunctionIdentifier::Function>(function));
        const BoolResult result = m_selector.registerFunction(row);
        if (!result)
        {
            m_errors += result.getMessage() + "\n";
        }
    }

    /// Tells the refused rows at TRACE, if there are any.
    void report(unsigned int line) const
    {
        if (!m_errors.empty() && processor::getKOVISBaseProcessingLogger().isEnabledFor(log4cplus::TRACE_LOG_LEVEL))
        {
            formatAndLog(processor::getKOVISBaseProcessingLogMessageManager(), processor::getKOVISBaseProcessingLogger(),
                         log4cplus::TRACE_LOG_LEVEL, "N5kovis9processor25eAlgorithmFunctionMessage6domainE",
                         processor::eAlgorithmFunctionMessage::eAFM_RegistrationErrors,
                         SourcePlace{"bool functionRegistration()", m_file, line}, m_errors);
        }
    }

private:
    static ImageBufferTypeIdentifier getIdentifier(int bufferType)
    {
        ImageBufferTypeIdentifier identifier;
        identifier.init(static_cast<image::eImageBufferType>(bufferType));
        return identifier;
    }

    processor::AlgorithmFunctionSelector& m_selector;
    const char* m_file;
    std::string m_errors;
};
} // namespace kovis::imaproc
