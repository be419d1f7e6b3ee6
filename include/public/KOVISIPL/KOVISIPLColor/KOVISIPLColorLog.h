#pragma once

#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <string>

namespace kovis::imaproc::color
{
KOVIS_DECLARE_EXCEPTION(KOVISIPLCOLOR_EXPORT, KOVISIPLColorException);

/// The base logger's name and ".KOVISIPLColor". The three accessors may be called from any thread.
KOVISIPLCOLOR_EXPORT const std::string& getKOVISIPLColorLoggerName();
KOVISIPLCOLOR_EXPORT log4cplus::Logger& getKOVISIPLColorLogger();
KOVISIPLCOLOR_EXPORT LogMessageManager& getKOVISIPLColorLogMessageManager();
} // namespace kovis::imaproc::color
