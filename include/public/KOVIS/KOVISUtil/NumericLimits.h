#pragma once

#include "KOVIS/KOVISUtil/KOVISUtilExport.h"

namespace kovis
{
/// Least and greatest value of a pixel type. For float, s_min is the lowest float, not the smallest positive one.
/// The members are exported objects, read at run time: a kernel never carries limits of its own.
template <class T>
struct NumericLimits;

#define KOVIS_NUMERIC_LIMITS(TYPE)                                                                                               \
    template <>                                                                                                                  \
    struct KOVISUTIL_EXPORT NumericLimits<TYPE>                                                                                  \
    {                                                                                                                            \
        static const TYPE s_min;                                                                                                 \
        static const TYPE s_max;                                                                                                 \
    };

KOVIS_NUMERIC_LIMITS(signed char)
KOVIS_NUMERIC_LIMITS(unsigned char)
KOVIS_NUMERIC_LIMITS(short)
KOVIS_NUMERIC_LIMITS(unsigned short)
KOVIS_NUMERIC_LIMITS(int)
KOVIS_NUMERIC_LIMITS(unsigned int)
KOVIS_NUMERIC_LIMITS(float)

#undef KOVIS_NUMERIC_LIMITS
} // namespace kovis
