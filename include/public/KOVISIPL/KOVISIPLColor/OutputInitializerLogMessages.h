#pragma once

#include "KOVIS/KOVISUtil/MessageMapRegistrator.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

namespace kovis::imaproc::color
{
/// Messages of the output initializers.
struct eOutputInitializerMessage
{
    enum domain
    {
        eOIM_AttributeNull = 0,
        eOIM_AttributeExpired = 1
    };
};
} // namespace kovis::imaproc::color

template <>
struct KOVISIPLCOLOR_EXPORT kovis::MessageMapRegistrator<kovis::imaproc::color::eOutputInitializerMessage, void>
{
    static bool process();
};
