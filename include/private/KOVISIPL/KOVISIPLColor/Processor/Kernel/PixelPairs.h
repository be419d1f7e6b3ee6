#pragma once

// The 49 pairs of pixel types, for explicit instantiations: MACRO(ARG, Tin, Tout).

#define KOVIS_FOR_EACH_TARGET_TYPE(MACRO, ARG, TIN)                                                                              \
    MACRO(ARG, TIN, signed char)                                                                                                 \
    MACRO(ARG, TIN, unsigned char)                                                                                               \
    MACRO(ARG, TIN, short)                                                                                                       \
    MACRO(ARG, TIN, unsigned short)                                                                                              \
    MACRO(ARG, TIN, int)                                                                                                         \
    MACRO(ARG, TIN, unsigned int)                                                                                                \
    MACRO(ARG, TIN, float)

#define KOVIS_FOR_EACH_PIXEL_PAIR(MACRO, ARG)                                                                                    \
    KOVIS_FOR_EACH_TARGET_TYPE(MACRO, ARG, signed char)                                                                          \
    KOVIS_FOR_EACH_TARGET_TYPE(MACRO, ARG, unsigned char)                                                                        \
    KOVIS_FOR_EACH_TARGET_TYPE(MACRO, ARG, short)                                                                                \
    KOVIS_FOR_EACH_TARGET_TYPE(MACRO, ARG, unsigned short)                                                                       \
    KOVIS_FOR_EACH_TARGET_TYPE(MACRO, ARG, int)                                                                                  \
    KOVIS_FOR_EACH_TARGET_TYPE(MACRO, ARG, unsigned int)                                                                         \
    KOVIS_FOR_EACH_TARGET_TYPE(MACRO, ARG, float)
