#pragma once

#include "KOVIS/KOVISCore/KOVISCoreExport.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"

namespace kovis::core
{
KOVIS_DECLARE_EXCEPTION(KOVISCORE_EXPORT, KOVISCoreException);

KOVISCORE_EXPORT log4cplus::Logger& getKOVISCoreLogger();
KOVISCORE_EXPORT LogMessageManager& getKOVISCoreLogMessageManager();
} // namespace kovis::core
