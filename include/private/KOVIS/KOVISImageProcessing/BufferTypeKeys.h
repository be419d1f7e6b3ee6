#pragma once

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISImage/eImageBufferType.h"
#include "KOVIS/KOVISImageProcessing/ImageBufferTypeIdentifier.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <log4cplus/loglevel.h>

#include <string>
#include <tuple>
#include <utility>

// The keys of kernel tables, which are buffer types.

namespace kovis::imaproc
{
/// The element type of a buffer type from 1 to 11.
template <int bufferType>
using BufferElement =
    std::tuple_element_t<bufferType - 1, std::tuple<signed char, unsigned char, short, unsigned short, int, unsigned int, float,
                                                    unsigned char, unsigned short, unsigned int, unsigned char>>;

namespace detail
{
/// In the order of entry: 11 comes straight after 8, as both are of the same element type.
using BufferTypes = std::integer_sequence<int, 1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10>;

template <unsigned int nbPositions, int... begun, class TVisitor, int... next>
void visitKeys(const TVisitor& visitor, std::integer_sequence<int, next...>);

template <unsigned int nbPositions, int... begun, class TVisitor>
void visitKey(const TVisitor& visitor)
{
    if constexpr (sizeof...(begun) == nbPositions)
    {
        visitor.template operator()<begun...>();
    }
    else
    {
        visitKeys<nbPositions, begun...>(visitor, BufferTypes());
    }
}

template <unsigned int nbPositions, int... begun, class TVisitor, int... next>
void visitKeys(const TVisitor& visitor, std::integer_sequence<int, next...>)
{
    (visitKey<nbPositions, begun..., next>(visitor), ...);
}
} // namespace detail

/// Calls visitor.operator()<key...>() for each way to fill the positions of a key with buffer types, the last position running
/// fastest.
template <unsigned int nbPositions, class TVisitor>
void forEachKey(const TVisitor& visitor)
{
    detail::visitKey<nbPositions>(visitor);
}

inline ImageBufferTypeIdentifier getTypeIdentifier(const image::eImageBufferType& bufferType)
{
    ImageBufferTypeIdentifier identifier;
    identifier.init(bufferType);
    return identifier;
}

/// Takes over what a table answered to a row.
inline void addRefusal(const BoolResult& result, std::string& errors)
{
    if (!result)
    {
        errors += result.getMessage() + "\n";
    }
}

/// Tells the rows that a table refused at TRACE, if there are any. Returns true whatever happened: a row that is absent is no
/// error of the load.
inline bool reportRefusals(const std::string& errors, const SourcePlace& place)
{
    if (!errors.empty() && processor::getKOVISBaseProcessingLogger().isEnabledFor(log4cplus::TRACE_LOG_LEVEL))
    {
        formatAndLog(processor::getKOVISBaseProcessingLogMessageManager(), processor::getKOVISBaseProcessingLogger(),
                     log4cplus::TRACE_LOG_LEVEL, "N5kovis9processor25eAlgorithmFunctionMessage6domainE",
                     processor::eAlgorithmFunctionMessage::eAFM_RegistrationErrors, place, errors);
    }
    return true;
}
} // namespace kovis::imaproc
