#include "KOVIS/KOVISUtil/NumericLimits.h"

#include <limits>

namespace kovis
{
#define KOVIS_NUMERIC_LIMITS(TYPE)                                                                                               \
    const TYPE NumericLimits<TYPE>::s_min = std::numeric_limits<TYPE>::lowest();                                                 \
    const TYPE NumericLimits<TYPE>::s_max = std::numeric_limits<TYPE>::max();

KOVIS_NUMERIC_LIMITS(signed char)
KOVIS_NUMERIC_LIMITS(unsigned char)
KOVIS_NUMERIC_LIMITS(short)
KOVIS_NUMERIC_LIMITS(unsigned short)
KOVIS_NUMERIC_LIMITS(int)
KOVIS_NUMERIC_LIMITS(unsigned int)
KOVIS_NUMERIC_LIMITS(float)

#undef KOVIS_NUMERIC_LIMITS
} // namespace kovis
