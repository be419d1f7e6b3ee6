#pragma once

#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

namespace kovis
{
/// Logs a message of this library at ERROR and throws it.
template <class... TArguments>
[[noreturn]] void throwSerializationMessage(eKOVISSerializationMessage::domain message, const SourcePlace& place,
                                            const TArguments&... arguments)
{
    throwMessage<KOVISSerializationException>(getKOVISSerializationLogMessageManager(), getKOVISSerializationLogger(), message,
                                              place, arguments...);
}
} // namespace kovis
