#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/Kernel/PixelPairs.h"

// The 343 triples of pixel types, for explicit instantiations: MACRO(T1, T2, TOUT).

#define KOVIS_FOR_EACH_PIXEL_TRIPLE(MACRO)                                                                                       \
    KOVIS_FOR_EACH_PIXEL_PAIR(MACRO, signed char)                                                                                \
    KOVIS_FOR_EACH_PIXEL_PAIR(MACRO, unsigned char)                                                                              \
    KOVIS_FOR_EACH_PIXEL_PAIR(MACRO, short)                                                                                      \
    KOVIS_FOR_EACH_PIXEL_PAIR(MACRO, unsigned short)                                                                             \
    KOVIS_FOR_EACH_PIXEL_PAIR(MACRO, int)                                                                                        \
    KOVIS_FOR_EACH_PIXEL_PAIR(MACRO, unsigned int)                                                                               \
    KOVIS_FOR_EACH_PIXEL_PAIR(MACRO, float)
