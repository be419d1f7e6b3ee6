#pragma once

#include "KOVIS/KOVISBaseProcessing/ProcessorAnatomy.h"
#include "KOVISIPL/KOVISIPLUtility/KOVISIPLUtilityLog.h"

namespace kovis::imaproc::util
{
/// What the processor classes of this library share, for ProcessorTraits.
struct UtilityProcessorTraits
{
    static constexpr const char* g_module = "KOVISIPLUtility";
    static constexpr const char* g_toolTipDomain = "N5kovis7imaproc4util17eProcessorMessage6domainE";

    static LogMessageManager& getLogMessageManager() { return getKOVISIPLUtilityLogMessageManager(); }
    static bool enterMessages() { return MessageMapRegistrator<eProcessorMessage, void>::process(); }
};
} // namespace kovis::imaproc::util
