#pragma once

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"

namespace kovis::processor
{
KOVIS_DECLARE_EXCEPTION(KOVISBASEPROCESSING_EXPORT, KOVISBaseProcessingException);

KOVISBASEPROCESSING_EXPORT log4cplus::Logger& getKOVISBaseProcessingLogger();
KOVISBASEPROCESSING_EXPORT LogMessageManager& getKOVISBaseProcessingLogMessageManager();

/// Messages about processors. Numbers below 33 are this library's own.
struct eProcessorMessage
{
    enum domain
    {
        ePM_NotInitialised = 33 ///< object name
    };
};

/// Messages about kernel tables.
struct eAlgorithmFunctionMessage
{
    enum domain
    {
        eAFM_RegistrationErrors = 12 ///< list of errors
    };
};
} // namespace kovis::processor
