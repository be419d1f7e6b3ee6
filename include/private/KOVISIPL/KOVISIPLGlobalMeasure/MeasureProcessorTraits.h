#pragma once

#include "KOVIS/KOVISBaseProcessing/ProcessorAnatomy.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/KOVISIPLGlobalMeasureLog.h"

namespace kovis::imaproc::glbmsr
{
/// What the processor classes of this library share, for ProcessorTraits.
struct MeasureProcessorTraits
{
    static constexpr const char* g_module = "KOVISIPLGlobalMeasure";
    static constexpr const char* g_toolTipDomain = "N5kovis7imaproc6glbmsr17eProcessorMessage6domainE";

    static LogMessageManager& getLogMessageManager() { return getKOVISIPLGlobalMeasureLogMessageManager(); }
    static bool enterMessages() { return MessageMapRegistrator<eProcessorMessage, void>::process(); }
};
} // namespace kovis::imaproc::glbmsr
