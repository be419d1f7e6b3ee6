#include "KOVIS/KOVISImage/eColorGeometryType.h"

namespace kovis::image
{
eColorGeometryType toColorGeometryType(int value)
{
    return value >= eCGT_Grey && value <= eCGT_User ? static_cast<eColorGeometryType>(value) : eCGT_Grey;
}

const char* getColorGeometryTypeName(const eColorGeometryType& type)
{
    switch (toColorGeometryType(type))
    {
    case eCGT_Rgb:
        return "eCGT_Rgb";
    case eCGT_Rgba:
        return "eCGT_Rgba";
    case eCGT_XYZ:
        return "eCGT_XYZ";
    case eCGT_YPbPr:
        return "eCGT_YPbPr";
    case eCGT_YCbCr:
        return "eCGT_YCbCr";
    case eCGT_CieLab:
        return "eCGT_CieLab";
    case eCGT_CieLuv:
        return "eCGT_CieLuv";
    case eCGT_HLS:
        return "eCGT_HLS";
    case eCGT_HSV:
        return "eCGT_HSV";
    case eCGT_User:
        return "eCGT_User";
    case eCGT_Grey:
        break;
    }
    return "eCGT_Grey";
}

unsigned long getNbChannels(const eColorGeometryType& type)
{
    switch (toColorGeometryType(type))
    {
    case eCGT_Grey:
        return 1;
    case eCGT_Rgba:
        return 4;
    case eCGT_User:
        return 0;
    default:
        return 3;
    }
}
} // namespace kovis::image
