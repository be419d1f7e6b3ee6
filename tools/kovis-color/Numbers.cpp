#include "Numbers.h"

#include "ColourSpace.h"

#include <limits>

namespace kovis::tool
{
namespace
{
bool isRgbKind(image::eColorGeometryType space)
{
    return space == image::eCGT_Rgb || space == image::eCGT_Rgba;
}

bool hasHue(image::eColorGeometryType space)
{
    return space == image::eCGT_HLS || space == image::eCGT_HSV;
}

// Whether the way passes from RGB to XYZ, where samples are read on the scale 0 to 255 and leave on the scale 0 to 100.
bool isLinearised(image::eColorGeometryType from, image::eColorGeometryType to)
{
    const bool bXyzSide = to == image::eCGT_CieLab || to == image::eCGT_CieLuv;
    return (from == image::eCGT_Rgb && (bXyzSide || to == image::eCGT_XYZ)) || (hasHue(from) && bXyzSide);
}

bool isUnsigned(ElementType type)
{
    return type == ElementType::eU8 || type == ElementType::eU16 || type == ElementType::eU32;
}

template <class T>
std::string formatLimits()
{
    return std::to_string(std::numeric_limits<T>::min()) + " and " + std::to_string(std::numeric_limits<T>::max());
}

std::string formatLimits(ElementType type)
{
    switch (type)
    {
    case ElementType::eI8:
        return formatLimits<std::int8_t>();
    case ElementType::eU8:
        return formatLimits<std::uint8_t>();
    case ElementType::eI16:
        return formatLimits<std::int16_t>();
    case ElementType::eU16:
        return formatLimits<std::uint16_t>();
    case ElementType::eI32:
        return formatLimits<std::int32_t>();
    case ElementType::eU32:
        return formatLimits<std::uint32_t>();
    case ElementType::eF32:
        break;
    }
    return {};
}

const char* getChromaCentre(ElementType type)
{
    switch (type)
    {
    case ElementType::eU8:
    case ElementType::eF32:
        return "128";
    case ElementType::eU16:
        return "32768";
    case ElementType::eU32:
        return "2147483648";
    default:
        return "0";
    }
}
} // namespace

ElementType getLibraryType(image::eColorGeometryType from, image::eColorGeometryType to, ElementType inputType)
{
    const bool bKept = (isRgbKind(from) && isRgbKind(to)) || to == image::eCGT_YCbCr;
    return bKept ? inputType : ElementType::eF32;
}

ElementType getNearestType(FileFormat format, ElementType wanted, image::eColorGeometryType to, ElementType inputType)
{
    if (canHoldType(format, wanted))
        return wanted;
    if (format == FileFormat::eJpeg || wanted == ElementType::eI8)
        return ElementType::eU8;
    const bool bByteInput = inputType == ElementType::eU8 || inputType == ElementType::eI8;
    // A hue goes to 360, and a matrix of the user's anywhere.
    const bool bByteRange = bByteInput && !hasHue(to) && to != image::eCGT_User;
    return wanted == ElementType::eF32 && bByteRange ? ElementType::eU8 : ElementType::eU16;
}

std::string describeRange(image::eColorGeometryType from, image::eColorGeometryType to, ElementType resultType)
{
    const bool bLinearised = isLinearised(from, to);
    switch (to)
    {
    case image::eCGT_XYZ:
        return bLinearised ? "X 0 to 95.05, Y 0 to 100, Z 0 to 108.9, from RGB samples read on the scale 0 to 255"
                           : "X 0 to 0.95, Y 0 to 1, Z 0 to 1.09 times the scale of the samples";
    case image::eCGT_YPbPr:
        return "Y on the scale of the samples, Pb and Pr from minus to plus half of it";
    case image::eCGT_YCbCr:
        return std::string("Y on the scale of the samples, Cb and Cr half of it to both sides of ") + getChromaCentre(resultType);
    case image::eCGT_CieLab:
    case image::eCGT_CieLuv:
    {
        const std::string chroma = to == image::eCGT_CieLab ? "a and b about -128 to 128" : "u and v about -134 to 220";
        return "L 0 to 100, " + chroma +
               (bLinearised ? ", from RGB samples read on the scale 0 to 255" : ", from XYZ on the scale 0 to 100");
    }
    case image::eCGT_HLS:
        return "H 0 to 360 degrees, L on the scale of the samples, S 0 to 1 only for samples from 0 to 1";
    case image::eCGT_HSV:
        return "H 0 to 360 degrees, S 0 to 1, V on the scale of the samples";
    case image::eCGT_User:
        return "what the matrix makes of the samples";
    default:
        return "all channels on the scale of the samples, nothing is scaled";
    }
}

std::string describeSaturation(image::eColorGeometryType from, image::eColorGeometryType to, ElementType resultType)
{
    if (resultType == ElementType::eF32)
        return {};
    const bool bCopied = from == to && to != image::eCGT_User;
    std::string text = std::string(getElementName(resultType)) + (bCopied ? " cuts fractions off" : " rounds to whole numbers") +
                       " and saturates at " + formatLimits(resultType);
    const bool bByte = resultType == ElementType::eU8 || resultType == ElementType::eI8;
    if (hasHue(to) && !bCopied)
    {
        if (bByte)
            text += ", hues beyond that are lost";
        text += ", S becomes a whole number";
    }
    const bool bNegative = to == image::eCGT_YPbPr || to == image::eCGT_CieLab || to == image::eCGT_CieLuv;
    if (bNegative && isUnsigned(resultType))
        text += ", negative " + getChannelName(to, 1) + " and " + getChannelName(to, 2) + " become 0";
    return text;
}
} // namespace kovis::tool
