#pragma once

#include "KOVIS/KOVISBaseProcessing/ProcessorAnatomy.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/ProcessorLogMessages.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// What the processor classes of this module share, for ProcessorTraits.
struct ColorProcessorTraits
{
    static constexpr const char* g_module = "KOVISIPLColor";
    static constexpr const char* g_toolTipDomain = "N5kovis7imaproc5color17eProcessorMessage6domainE";

    static LogMessageManager& getLogMessageManager() { return getKOVISIPLColorLogMessageManager(); }
    static bool enterMessages() { return MessageMapRegistrator<eProcessorMessage, void>::process(); }
};
} // namespace kovis::imaproc::color
