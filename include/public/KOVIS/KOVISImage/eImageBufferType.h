#pragma once

#include "KOVIS/KOVISImage/KOVISImageExport.h"

#include <cstddef>

namespace kovis::image
{
/// Buffer type of an image. Values 8 to 11 are types of their own that are stored as 2, 4, 6 and 2 are.
enum eImageBufferType : int
{
    eIBT_None = 0,
    eIBT_Int8 = 1,       ///< signed char
    eIBT_UInt8 = 2,      ///< unsigned char
    eIBT_Int16 = 3,      ///< short
    eIBT_UInt16 = 4,     ///< unsigned short
    eIBT_Int32 = 5,      ///< int
    eIBT_UInt32 = 6,     ///< unsigned int
    eIBT_Real = 7,       ///< float
    eIBT_UInt8_8 = 8,    ///< unsigned char
    eIBT_UInt16_9 = 9,   ///< unsigned short
    eIBT_UInt32_10 = 10, ///< unsigned int
    eIBT_UInt8_11 = 11   ///< unsigned char
};

/// Bytes of one element; 0 for a value outside 1 to 11.
KOVISIMAGE_EXPORT std::size_t getElementSize(const eImageBufferType& type);

/// The element type's short name: "i8", "u8", "i16", "u16", "i32", "u32", "f32"; "none" outside 1 to 11.
KOVISIMAGE_EXPORT const char* getElementTypeName(const eImageBufferType& type);

/// The plain buffer type of the same storage: 8 and 11 give 2, 9 gives 4, 10 gives 6, 1 to 7 themselves, others eIBT_None.
KOVISIMAGE_EXPORT eImageBufferType getStorageType(const eImageBufferType& type);

/// The plain buffer type (1 to 7) whose elements are T.
template <class T>
struct BufferTypeOf;

#define KOVIS_BUFFER_TYPE_OF(TYPE, VALUE)                                                                                        \
    template <>                                                                                                                  \
    struct BufferTypeOf<TYPE>                                                                                                    \
    {                                                                                                                            \
        static constexpr eImageBufferType g_value = VALUE;                                                                       \
    };

KOVIS_BUFFER_TYPE_OF(signed char, eIBT_Int8)
KOVIS_BUFFER_TYPE_OF(unsigned char, eIBT_UInt8)
KOVIS_BUFFER_TYPE_OF(short, eIBT_Int16)
KOVIS_BUFFER_TYPE_OF(unsigned short, eIBT_UInt16)
KOVIS_BUFFER_TYPE_OF(int, eIBT_Int32)
KOVIS_BUFFER_TYPE_OF(unsigned int, eIBT_UInt32)
KOVIS_BUFFER_TYPE_OF(float, eIBT_Real)

#undef KOVIS_BUFFER_TYPE_OF
} // namespace kovis::image
