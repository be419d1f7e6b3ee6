#pragma once

#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingLog.h"
#include "KOVIS/KOVISUtil/LogMessageFormater.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <string>

namespace kovis::imaproc
{
/// The text of a message of this library, for a result that carries it upward. Nothing is logged.
template <class TDomain, class... TArguments>
std::string imageProcessingText(TDomain message, const TArguments&... arguments)
{
    LogMessageFormater formater(getKOVISImageProcessingLogMessageManager());
    formater[message];
    (void)(formater % ... % arguments);
    return formater.string();
}

/// Logs a message of this library at ERROR and throws it.
template <class TDomain, class... TArguments>
[[noreturn]] void throwImageProcessingMessage(TDomain message, const SourcePlace& place, const TArguments&... arguments)
{
    throwMessage<KOVISImageProcessingException>(getKOVISImageProcessingLogMessageManager(), getKOVISImageProcessingLogger(),
                                                message, place, arguments...);
}
} // namespace kovis::imaproc
