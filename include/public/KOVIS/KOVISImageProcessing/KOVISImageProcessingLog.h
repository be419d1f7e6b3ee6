#pragma once

#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingExport.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"
#include "KOVIS/KOVISUtil/MessageMapRegistrator.h"

namespace kovis::imaproc
{
KOVIS_DECLARE_EXCEPTION(KOVISIMAGEPROCESSING_EXPORT, KOVISImageProcessingException);

KOVISIMAGEPROCESSING_EXPORT log4cplus::Logger& getKOVISImageProcessingLogger();
KOVISIMAGEPROCESSING_EXPORT LogMessageManager& getKOVISImageProcessingLogMessageManager();

/// Messages about attributes that hold images and strips.
struct eImageAttributeMessage
{
    enum domain
    {
        eIAM_NoImage = 0, ///< attribute
        eIAM_NoStrip = 1, ///< attribute
        eIAM_Unbound = 2  ///< nothing
    };
};

/// Messages about the division of images.
struct eImageSplitMessage
{
    enum domain
    {
        eISM_NullImage = 0,       ///< attribute
        eISM_GpuImage = 1,        ///< attribute, image
        eISM_UnknownCut = 2,      ///< attribute, the numbers of split, volume, colour and temporal parsing
        eISM_NoPieces = 3,        ///< attribute, image
        eISM_IndexOutOfRange = 4, ///< piece, number of pieces, attribute
        eISM_NotInitialised = 5,  ///< attribute
        eISM_Not2d = 6,           ///< attribute, image
        eISM_NotOneChannel = 7,   ///< attribute, image
        eISM_Border = 8,          ///< nothing
        eISM_NotGpuImage = 9,     ///< attribute, image
        eISM_UnknownGpuCut = 10   ///< attribute, the number of the split type
    };
};

/// Messages about images that are made for outputs.
struct eImageInitializerMessage
{
    enum domain
    {
        eIIM_OutputGone = 0,        ///< nothing
        eIIM_NoInfo = 1,            ///< attribute
        eIIM_InputGone = 2,         ///< nothing
        eIIM_NoInputImage = 3,      ///< attribute
        eIIM_DuplicateInputGone = 4 ///< attribute of the output
    };
};

/// Messages about rules on images and strips.
struct eImageRuleMessage
{
    enum domain
    {
        eIRM_NotAnImage = 0,          ///< attribute
        eIRM_NotAStrip = 1,           ///< attribute
        eIRM_SizeFormal = 2,          ///< kind and name of both, dimensions
        eIRM_SizeEvaluated = 3,       ///< kind, name and image of both, dimensions
        eIRM_BufferTypeFormal = 4,    ///< kind and name of both
        eIRM_BufferTypeEvaluated = 5, ///< kind, name, image and buffer type of both
        eIRM_UnknownMatch = 6         ///< number
    };
};
} // namespace kovis::imaproc

template <>
struct KOVISIMAGEPROCESSING_EXPORT kovis::MessageMapRegistrator<kovis::imaproc::eImageAttributeMessage, void>
{
    static bool process();
};

template <>
struct KOVISIMAGEPROCESSING_EXPORT kovis::MessageMapRegistrator<kovis::imaproc::eImageSplitMessage, void>
{
    static bool process();
};

template <>
struct KOVISIMAGEPROCESSING_EXPORT kovis::MessageMapRegistrator<kovis::imaproc::eImageInitializerMessage, void>
{
    static bool process();
};

template <>
struct KOVISIMAGEPROCESSING_EXPORT kovis::MessageMapRegistrator<kovis::imaproc::eImageRuleMessage, void>
{
    static bool process();
};
