#pragma once

#include "KOVIS/KOVISUtil/MessageMapRegistrator.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

namespace kovis::imaproc::color
{
/// Messages of the rules, with their arguments.
struct eRuleMessage
{
    enum domain
    {
        eRM_AttributeExpired = 0,
        eRM_ColorSpaceEvaluated = 1, ///< name, image, geometry of input and of output; name of the transform, target, matrix
                                     ///< size; also the append rule, with six strings
        eRM_ColorSpaceFormal = 2,    ///< names of input, output and transform
        eRM_AppendEvaluated = 3,     ///< names of both inputs and of the output; nothing reads it
        eRM_AppendFormal = 4,        ///< names of both inputs and of the output
        eRM_NotInitialised = 5,
        eRM_StripColorSpaceEvaluated = 6, ///< name, strip, geometry of input and of output; nothing reads it
        eRM_StripColorSpaceFormal = 7     ///< names of input and output; nothing reads it
    };
};
} // namespace kovis::imaproc::color

template <>
struct KOVISIPLCOLOR_EXPORT kovis::MessageMapRegistrator<kovis::imaproc::color::eRuleMessage, void>
{
    static bool process();
};
