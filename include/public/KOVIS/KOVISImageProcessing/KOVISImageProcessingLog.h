#pragma once

#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingExport.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"

namespace kovis::imaproc
{
KOVIS_DECLARE_EXCEPTION(KOVISIMAGEPROCESSING_EXPORT, KOVISImageProcessingException);

KOVISIMAGEPROCESSING_EXPORT log4cplus::Logger& getKOVISImageProcessingLogger();
KOVISIMAGEPROCESSING_EXPORT LogMessageManager& getKOVISImageProcessingLogMessageManager();
} // namespace kovis::imaproc
