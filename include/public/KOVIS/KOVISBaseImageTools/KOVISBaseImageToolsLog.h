#pragma once

#include "KOVIS/KOVISBaseImageTools/KOVISBaseImageToolsExport.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"

namespace kovis::image::tools
{
KOVIS_DECLARE_EXCEPTION(KOVISBASEIMAGETOOLS_EXPORT, KOVISBaseImageToolsException);

KOVISBASEIMAGETOOLS_EXPORT log4cplus::Logger& getKOVISBaseImageToolsLogger();
KOVISBASEIMAGETOOLS_EXPORT LogMessageManager& getKOVISBaseImageToolsLogMessageManager();

/// Messages of this library.
struct eKOVISBaseImageToolsMessage
{
    enum domain
    {
        eIT_NoLinearTransform = 0, ///< source and target geometry
        eIT_UnknownBufferType = 1, ///< buffer type
        eIT_GpuElementType = 2     ///< image, its element type, the one asked for
    };
};
} // namespace kovis::image::tools

template <>
struct KOVISBASEIMAGETOOLS_EXPORT kovis::MessageMapRegistrator<kovis::image::tools::eKOVISBaseImageToolsMessage, void>
{
    static bool process();
};
