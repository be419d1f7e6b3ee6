#include "KOVIS/KOVISImage/eImageBufferType.h"

namespace kovis::image
{
namespace
{
struct ElementType
{
    eImageBufferType m_storageType;
    std::size_t m_size;
    const char* m_name;
};

// By buffer type.
constexpr ElementType g_elementTypes[] = {
    {eIBT_None, 0, "none"},  {eIBT_Int8, 1, "i8"},    {eIBT_UInt8, 1, "u8"},   {eIBT_Int16, 2, "i16"},
    {eIBT_UInt16, 2, "u16"}, {eIBT_Int32, 4, "i32"},  {eIBT_UInt32, 4, "u32"}, {eIBT_Real, 4, "f32"},
    {eIBT_UInt8, 1, "u8"},   {eIBT_UInt16, 2, "u16"}, {eIBT_UInt32, 4, "u32"}, {eIBT_UInt8, 1, "u8"},
};

const ElementType& getElementType(const eImageBufferType& type)
{
    return g_elementTypes[type >= eIBT_Int8 && type <= eIBT_UInt8_11 ? type : eIBT_None];
}
} // namespace

std::size_t getElementSize(const eImageBufferType& type)
{
    return getElementType(type).m_size;
}

const char* getElementTypeName(const eImageBufferType& type)
{
    return getElementType(type).m_name;
}

eImageBufferType getStorageType(const eImageBufferType& type)
{
    return getElementType(type).m_storageType;
}
} // namespace kovis::image
