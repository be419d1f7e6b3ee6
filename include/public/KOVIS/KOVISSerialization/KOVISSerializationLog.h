#pragma once

#include "KOVIS/KOVISSerialization/KOVISSerializationExport.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"

namespace kovis
{
KOVIS_DECLARE_EXCEPTION(KOVISSERIALIZATION_EXPORT, KOVISSerializationException);

KOVISSERIALIZATION_EXPORT log4cplus::Logger& getKOVISSerializationLogger();
KOVISSERIALIZATION_EXPORT LogMessageManager& getKOVISSerializationLogMessageManager();

/// Messages of this library.
struct eKOVISSerializationMessage
{
    enum domain
    {
        eSM_SectionNotClosed = 0, ///< what failed
        eSM_NoValue = 1,          ///< key of the item
        eSM_VersionTooNew = 25    ///< version read, version of the class, class name
    };
};
} // namespace kovis

template <>
struct KOVISSERIALIZATION_EXPORT kovis::MessageMapRegistrator<kovis::eKOVISSerializationMessage, void>
{
    static bool process();
};
