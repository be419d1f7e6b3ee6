#pragma once

#include "KOVIS/KOVISUtil/MessageMapRegistrator.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

namespace kovis::imaproc::color
{
/// Messages of the module as a whole: there are none.
struct eKOVISIPLColorMessage
{
    enum domain : int
    {
    };
};
} // namespace kovis::imaproc::color

template <>
struct KOVISIPLCOLOR_EXPORT kovis::MessageMapRegistrator<kovis::imaproc::color::eKOVISIPLColorMessage, void>
{
    static bool process();
};
