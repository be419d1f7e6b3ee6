#pragma once

#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"
#include "KOVIS/KOVISUtil/MessageMapRegistrator.h"
#include "KOVISIPL/KOVISIPLUtility/KOVISIPLUtilityExport.h"

namespace kovis::imaproc::util
{
KOVIS_DECLARE_EXCEPTION(KOVISIPLUTILITY_EXPORT, KOVISIPLUtilityException);

KOVISIPLUTILITY_EXPORT log4cplus::Logger& getKOVISIPLUtilityLogger();
KOVISIPLUTILITY_EXPORT LogMessageManager& getKOVISIPLUtilityLogMessageManager();

/// Messages of this library: tool tips, and the rule on buffer types.
struct eProcessorMessage
{
    enum domain
    {
        ePM_ConvertImgLvl1 = 0,
        ePM_ConvertImgLvl2 = 1,
        ePM_ConvertImgLvl3 = 2,
        ePM_BufferTypeFormal = 3,    ///< names of the image and of the attribute with the type
        ePM_BufferTypeEvaluated = 4, ///< name and element type of the image; name and element type of the attribute with the type
    };
};
} // namespace kovis::imaproc::util

template <>
struct KOVISIPLUTILITY_EXPORT kovis::MessageMapRegistrator<kovis::imaproc::util::eProcessorMessage, void>
{
    static bool process();
};
