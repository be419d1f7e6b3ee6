#pragma once

#include "KOVIS/KOVISHardware/KOVISHardwareExport.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"

namespace kovis::hard
{
KOVIS_DECLARE_EXCEPTION(KOVISHARDWARE_EXPORT, KOVISHardwareException);

KOVISHARDWARE_EXPORT log4cplus::Logger& getKOVISHardwareLogger();
KOVISHARDWARE_EXPORT LogMessageManager& getKOVISHardwareLogMessageManager();

/// Messages of this library.
struct eKOVISHardwareMessage
{
    enum domain
    {
        eHM_NoSuchDevice = 0, ///< device index, number of devices
        eHM_NoDevice = 1      ///< reason
    };
};
} // namespace kovis::hard

template <>
struct KOVISHARDWARE_EXPORT kovis::MessageMapRegistrator<kovis::hard::eKOVISHardwareMessage, void>
{
    static bool process();
};
