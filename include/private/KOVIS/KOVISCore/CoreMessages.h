#pragma once

#include "KOVIS/KOVISCore/KOVISCoreLog.h"
#include "KOVIS/KOVISUtil/LogMessageFormater.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <string>

namespace kovis::core::detail
{
/// The text of a message, for a result that carries it upward. Nothing is logged.
template <class... TArguments>
std::string coreText(eCoreMessage::domain message, const TArguments&... arguments)
{
    LogMessageFormater formater(getKOVISCoreLogMessageManager());
    formater[message];
    (void)(formater % ... % arguments);
    return formater.string();
}

/// Logs a text as an error.
inline void logError(const std::string& text, const SourcePlace& place)
{
    kovis::detail::logIfEnabled(getKOVISCoreLogger(), log4cplus::ERROR_LOG_LEVEL, getKOVISCoreLogMessageManager(), text, place);
}

/// Logs a message as an error and throws it.
template <class... TArguments>
[[noreturn]] void throwCoreMessage(eCoreMessage::domain message, const SourcePlace& place, const TArguments&... arguments)
{
    throwMessage<KOVISCoreException>(getKOVISCoreLogMessageManager(), getKOVISCoreLogger(), message, place, arguments...);
}
} // namespace kovis::core::detail
