#include "Numbers.h"

#include "ColourSpace.h"
#include "ToolError.h"

namespace kovis::tool
{
namespace
{
bool isRgbKind(image::eColorGeometryType space)
{
    return space == image::eCGT_Rgb || space == image::eCGT_Rgba;
}
} // namespace

ElementType parseType(const std::string& option, const std::string& name)
{
    ElementType type = ElementType::eF32;
    if (!parseElementName(name, type))
        throw ToolError(option, "there is no element type " + quoteWord(name), "take u8, i8, u16, i16, u32, i32 or f32", eMisused);
    return type;
}

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
    // A hue goes to 360, the L of luv to 764, and a matrix of the user's anywhere.
    const bool bByteRange = bByteInput && !hasHue(to) && to != image::eCGT_CieLuv && to != image::eCGT_User;
    return wanted == ElementType::eF32 && bByteRange ? ElementType::eU8 : ElementType::eU16;
}
} // namespace kovis::tool
