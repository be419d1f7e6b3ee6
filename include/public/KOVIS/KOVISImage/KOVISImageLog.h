#pragma once

#include "KOVIS/KOVISImage/KOVISImageExport.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"

namespace kovis::image
{
KOVIS_DECLARE_EXCEPTION(KOVISIMAGE_EXPORT, KOVISImageException);

KOVISIMAGE_EXPORT log4cplus::Logger& getKOVISImageLogger();
KOVISIMAGE_EXPORT LogMessageManager& getKOVISImageLogMessageManager();
} // namespace kovis::image
