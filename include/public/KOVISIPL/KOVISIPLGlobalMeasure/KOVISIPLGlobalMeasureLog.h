#pragma once

#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"
#include "KOVIS/KOVISUtil/MessageMapRegistrator.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/KOVISIPLGlobalMeasureExport.h"

namespace kovis::imaproc::glbmsr
{
KOVIS_DECLARE_EXCEPTION(KOVISIPLGLOBALMEASURE_EXPORT, KOVISIPLGlobalMeasureException);

KOVISIPLGLOBALMEASURE_EXPORT log4cplus::Logger& getKOVISIPLGlobalMeasureLogger();
KOVISIPLGLOBALMEASURE_EXPORT LogMessageManager& getKOVISIPLGlobalMeasureLogMessageManager();

/// Messages of this library: tool tips.
struct eProcessorMessage
{
    enum domain
    {
        ePM_StatsMsrLvl1 = 0,
        ePM_StatsMsrLvl2 = 1,
        ePM_StatsMsrLvl3 = 2
    };
};
} // namespace kovis::imaproc::glbmsr

template <>
struct KOVISIPLGLOBALMEASURE_EXPORT kovis::MessageMapRegistrator<kovis::imaproc::glbmsr::eProcessorMessage, void>
{
    static bool process();
};
