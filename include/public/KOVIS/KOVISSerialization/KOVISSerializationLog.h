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
        eSM_Damaged = 2,          ///< place, what is wrong there
        eSM_BeyondLimit = 3,      ///< place, the limit, what is counted
        eSM_WrongKind = 4,        ///< place, what stands there, what is expected
        eSM_OutOfRange = 5,       ///< place, value, the kind that it does not fit
        eSM_NoItem = 6,           ///< place
        eSM_DoubledKey = 7,       ///< place
        eSM_OtherSection = 8,     ///< place, what stands there, name of the section that is expected
        eSM_StreamFailed = 9,     ///< "read" or "written"
        eSM_Misused = 10,         ///< what was done, what to do
        eSM_UnknownClass = 11,    ///< place, class name
        eSM_NotAnObject = 12,     ///< place, class name
        eSM_Refused = 13,         ///< place, reason
        eSM_CannotBeWritten = 14, ///< place, reason
        eSM_VersionTooNew = 25    ///< version read, version of the class, class name
    };
};
} // namespace kovis

template <>
struct KOVISSERIALIZATION_EXPORT kovis::MessageMapRegistrator<kovis::eKOVISSerializationMessage, void>
{
    static bool process();
};
