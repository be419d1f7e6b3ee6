#pragma once

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISUtil/LogMessageFormater.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <string>

namespace kovis::processor
{
/// The text of a message of this library, for a result that carries it upward. Nothing is logged.
template <class TDomain, class... TArguments>
std::string processingText(TDomain message, const TArguments&... arguments)
{
    LogMessageFormater formater(getKOVISBaseProcessingLogMessageManager());
    formater[message];
    (void)(formater % ... % arguments);
    return formater.string();
}

/// Logs a message of this library at ERROR and throws it.
template <class TDomain, class... TArguments>
[[noreturn]] void throwProcessingMessage(TDomain message, const SourcePlace& place, const TArguments&... arguments)
{
    throwMessage<KOVISBaseProcessingException>(getKOVISBaseProcessingLogMessageManager(), getKOVISBaseProcessingLogger(), message,
                                               place, arguments...);
}
} // namespace kovis::processor
