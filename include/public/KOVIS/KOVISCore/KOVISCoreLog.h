#pragma once

#include "KOVIS/KOVISCore/KOVISCoreExport.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"
#include "KOVIS/KOVISUtil/MessageMapRegistrator.h"

namespace kovis::core
{
KOVIS_DECLARE_EXCEPTION(KOVISCORE_EXPORT, KOVISCoreException);

KOVISCORE_EXPORT log4cplus::Logger& getKOVISCoreLogger();
KOVISCORE_EXPORT LogMessageManager& getKOVISCoreLogMessageManager();

/// Messages of this library.
struct eCoreMessage
{
    enum domain
    {
        eCM_NotShared = 0,              ///< action
        eCM_AlreadyRunning = 1,         ///< action
        eCM_UnknownSynchroType = 2,     ///< action, value
        eCM_NeverRun = 3,               ///< action
        eCM_Cancelled = 4,              ///< action
        eCM_StillRunning = 5,           ///< action, milliseconds
        eCM_WaitInsideRun = 6,          ///< action
        eCM_OutsideRun = 7,             ///< action
        eCM_NoReason = 8,               ///< action
        eCM_UnknownException = 9,       ///< action
        eCM_EmptyAction = 10,           ///< nothing
        eCM_EmptyProvider = 11,         ///< nothing
        eCM_EmptyRequest = 12,          ///< nothing
        eCM_QueryFailed = 13,           ///< nothing
        eCM_NotifyFailed = 14,          ///< action
        eCM_ProviderCancelled = 15,     ///< nothing
        eCM_CleaningFailed = 16,        ///< action, what it threw
        eCM_UnknownInstructionSet = 17, ///< value of the variable, known names
        eCM_BackgroundStartFailed = 18  ///< action, reason
    };
};
} // namespace kovis::core

template <>
struct KOVISCORE_EXPORT kovis::MessageMapRegistrator<kovis::core::eCoreMessage, void>
{
    static bool process();
};
