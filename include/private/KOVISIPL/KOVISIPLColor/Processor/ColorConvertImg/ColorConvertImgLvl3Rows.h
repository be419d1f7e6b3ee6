#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISImage/eImageBufferType.h"
#include "KOVIS/KOVISImageProcessing/AlgorithmFunctionEfficiency.h"
#include "KOVIS/KOVISImageProcessing/ImageBufferTypeIdentifier.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3Driver.h"

#include <log4cplus/loglevel.h>

#include <string>
#include <utility>

namespace kovis::imaproc::color::details
{
/// The element type of a buffer type.
template <int bufferType>
struct ElementOf;
#define KOVIS_ELEMENT_OF(VALUE, TYPE)                                                                                            \
    template <>                                                                                                                  \
    struct ElementOf<VALUE>                                                                                                      \
    {                                                                                                                            \
        using Type = TYPE;                                                                                                       \
    };
KOVIS_ELEMENT_OF(1, signed char)
KOVIS_ELEMENT_OF(2, unsigned char)
KOVIS_ELEMENT_OF(3, short)
KOVIS_ELEMENT_OF(4, unsigned short)
KOVIS_ELEMENT_OF(5, int)
KOVIS_ELEMENT_OF(6, unsigned int)
KOVIS_ELEMENT_OF(7, float)
KOVIS_ELEMENT_OF(8, unsigned char)
KOVIS_ELEMENT_OF(9, unsigned short)
KOVIS_ELEMENT_OF(10, unsigned int)
KOVIS_ELEMENT_OF(11, unsigned char)
#undef KOVIS_ELEMENT_OF

/// Enters the rows of one form into the kernel table of ColorConvertImgLvl3. A row that is refused is left out and told in the
/// log.
template <eInstructionSet::domain A, eInstructionSet::domain B>
class RowRegistrator
{
public:
    explicit RowRegistrator(const SourcePlace& place)
        : m_place(place), m_selector(ColorConvertImgLvl3::retrieveFunctionSelector())
    {
    }
    ~RowRegistrator() = default;
    RowRegistrator(const RowRegistrator&) = delete;
    RowRegistrator& operator=(const RowRegistrator&) = delete;

    /// All pairs of buffer types, the output running fastest; 11 comes straight after 8, as both are of the same element type.
    void registerFullTable() { registerInputs(std::integer_sequence<int, 1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10>()); }

    template <int inType, int outType>
    void registerRow()
    {
        m_sets.init(A, B);
        if (!m_selector.isSupported(m_sets))
        {
            return;
        }
        ImageBufferTypeIdentifier in;
        in.init(static_cast<image::eImageBufferType>(inType));
        ImageBufferTypeIdentifier out;
        out.init(static_cast<image::eImageBufferType>(outType));
        m_types.init(in, out);
        using Tin = typename ElementOf<inType>::Type;
        using Tout = typename ElementOf<outType>::Type;
        m_row.init(m_types, m_sets, AlgorithmFunctionEfficiency<A, B, eInstructionSet::eIS_Generic>::getEfficiency(),
                   static_cast<processor::AlgorithmFunctionIdentifier::Function>(
                       &ColorConvertImgLvl3::template genericProcessFunction<Tin, Tout, A, B>));
        const BoolResult result = m_selector.registerFunction(m_row);
        if (!result)
        {
            m_errors += result.getMessage() + "\n";
        }
    }

    /// Tells the refused rows at TRACE, if there are any.
    void report() const
    {
        if (!m_errors.empty() && processor::getKOVISBaseProcessingLogger().isEnabledFor(log4cplus::TRACE_LOG_LEVEL))
        {
            formatAndLog(processor::getKOVISBaseProcessingLogMessageManager(), processor::getKOVISBaseProcessingLogger(),
                         log4cplus::TRACE_LOG_LEVEL, "N5kovis9processor25eAlgorithmFunctionMessage6domainE",
                         processor::eAlgorithmFunctionMessage::eAFM_RegistrationErrors, m_place, m_errors);
        }
    }

private:
    template <int... inTypes>
    void registerInputs(std::integer_sequence<int, inTypes...> types)
    {
        (registerOutputs<inTypes>(types), ...);
    }
    template <int inType, int... outTypes>
    void registerOutputs(std::integer_sequence<int, outTypes...>)
    {
        (registerRow<inType, outTypes>(), ...);
    }

    SourcePlace m_place;
    processor::AlgorithmFunctionSelector& m_selector;
    processor::DataTypeIdentifierColl m_types;
    processor::InstructionSetsIdentifier m_sets;
    processor::AlgorithmFunctionIdentifier m_row;
    std::string m_errors;
};
} // namespace kovis::imaproc::color::details
