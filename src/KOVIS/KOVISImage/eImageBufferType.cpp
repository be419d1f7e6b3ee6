#include "KOVIS/KOVISImage/eImageBufferType.h"

namespace kovis::image
{
eImageBufferType getStorageType(const eImageBufferType& type)
{
    switch (type)
    {
    case eIBT_UInt8_8:
    case eIBT_UInt8_11:
        return eIBT_UInt8;
    case eIBT_UInt16_9:
        return eIBT_UInt16;
    case eIBT_UInt32_10:
        return eIBT_UInt32;
    default:
        return type >= eIBT_Int8 && type <= eIBT_Real ? type : eIBT_None;
    }
}

std::size_t getElementSize(const eImageBufferType& type)
{
    switch (getStorageType(type))
    {
    case eIBT_Int8:
    case eIBT_UInt8:
        return 1;
    case eIBT_Int16:
    case eIBT_UInt16:
        return 2;
    case eIBT_Int32:
    case eIBT_UInt32:
    case eIBT_Real:
        return 4;
    default:
        return 0;
    }
}

const char* getElementTypeName(const eImageBufferType& type)
{
    switch (getStorageType(type))
    {
    case eIBT_Int8:
        return "i8";
    case eIBT_UInt8:
        return "u8";
    case eIBT_Int16:
        return "i16";
    case eIBT_UInt16:
        return "u16";
    case eIBT_Int32:
        return "i32";
    case eIBT_UInt32:
        return "u32";
    case eIBT_Real:
        return "f32";
    default:
        return "none";
    }
}
} // namespace kovis::image
