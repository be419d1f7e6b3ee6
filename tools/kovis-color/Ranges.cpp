#include "Ranges.h"

#include "ColourSpace.h"

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/getConversionRoute.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

namespace kovis::tool
{
namespace
{
using image::eColorGeometryType;

constexpr std::array<eColorGeometryType, 2> g_curve = {image::eCGT_Rgb, image::eCGT_XYZ};
constexpr const char* g_readByTheCurve = ", from RGB samples read on the scale 0 to 255";
constexpr const char* g_linearBranch =
    "; not so for dark and saturated colours, whose X and Z come from the linear branch, which takes a and b themselves";
constexpr const char* g_xyzOf100 = "X 0 to 95.05, Y 0 to 100, Z 0 to 108.9";

bool isUnsigned(ElementType type)
{
    return type == ElementType::eU8 || type == ElementType::eU16 || type == ElementType::eU32;
}

struct Limits
{
    std::string least;
    std::string greatest;
};

template <class T>
Limits formatLimits()
{
    return {std::to_string(std::numeric_limits<T>::min()), std::to_string(std::numeric_limits<T>::max())};
}

Limits formatLimits(ElementType type)
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

// These spaces have colours whose R, G or B is negative, also among the numbers that are usual for them.
bool reachesNegativeRgb(eColorGeometryType from)
{
    return from == image::eCGT_XYZ || from == image::eCGT_YPbPr || from == image::eCGT_YCbCr || from == image::eCGT_CieLab ||
           from == image::eCGT_CieLuv || from == image::eCGT_User;
}

// Black of lab is no black of xyz, so that it has u and v.
bool makesNanOfBlack(eColorGeometryType from, eColorGeometryType to)
{
    return from == image::eCGT_CieLuv || (to == image::eCGT_CieLuv && from != image::eCGT_CieLab);
}

// The scale of what lies on the RGB side of the graph.
std::string describeScale(eColorGeometryType from)
{
    switch (from)
    {
    case image::eCGT_XYZ:
        return "the scale of Y, as linear light";
    case image::eCGT_CieLab:
        return "the scale 0 to 100, as linear light";
    case image::eCGT_CieLuv:
        return "the scale of the file, as linear light (0 to 0.329 for L from 0 to 100, 0 to 100 for L to 764, which is Luv from "
               "XYZ of 0 to 100; black, L 0, is NaN)";
    case image::eCGT_User:
        return "the scale that the matrix gives";
    default:
        return "the scale of the samples";
    }
}

std::string describeXyz(eColorGeometryType from, bool bCurve)
{
    if (bCurve)
        return std::string(g_xyzOf100) + g_readByTheCurve;
    switch (from)
    {
    case image::eCGT_CieLab:
        return g_xyzOf100;
    case image::eCGT_CieLuv:
        return "Y 0 to 0.329024 for L from 0 to 100, 0 to 100 for L to 764; X and Z of black (L 0) are NaN";
    case image::eCGT_User:
        return "what the matrix makes of the samples";
    default:
        return "X 0 to 0.95, Y 0 to 1, Z 0 to 1.09 times the scale of the samples";
    }
}

// Spaces whose samples reach xyz by the matrix alone though they are samples of a picture, most often of 0 to 255.
bool leavesTheCurveOut(eColorGeometryType from)
{
    return from == image::eCGT_Grey || from == image::eCGT_Rgba || from == image::eCGT_YPbPr || from == image::eCGT_YCbCr;
}

std::string describeMissingCurve(eColorGeometryType from, eColorGeometryType to, const char* lightnessOf255)
{
    if (!leavesTheCurveOut(from))
        return {};
    return std::string("; without the sRGB curve: samples of 0 to 255 are taken as Y of 0 to 255 and go to L ") + lightnessOf255 +
           "; convert --to rgb first and that --to " + getSpaceName(to) + " for the usual numbers";
}

std::string describeLab(eColorGeometryType from, bool bCurve)
{
    if (bCurve)
        return std::string("L 0 to 100, a about -86 to 98, b about -108 to 94") + g_readByTheCurve;
    if (from == image::eCGT_CieLuv)
        return "L 0 to 3 only for L to 100 (XYZ from luv has its white at Y 0.329024, lab has it at 100), 0 to 100 for L to 764; "
               "black is NaN";
    return "L 0 to 100 for Y from 0 to 100, a and b signed" + describeMissingCurve(from, image::eCGT_CieLab, "142.5");
}

std::string describeLuv(eColorGeometryType from, bool bCurve)
{
    const std::string black = "; u and v of black are NaN";
    if (bCurve)
        return "L 0 to 764, u about -645 to 1478, v about -1246 to 835 (white is Y 0.329024, not 100)" +
               std::string(g_readByTheCurve) + black;
    if (from == image::eCGT_CieLab)
        return "L 0 to 764, u and v as large (white is Y 0.329024, XYZ from lab has it at 100)";
    return "L 0 to 100 for Y from 0 to 0.329024, 764 at Y 100, u and v signed" + black +
           describeMissingCurve(from, image::eCGT_CieLuv, "1049.5");
}

std::string describeTarget(eColorGeometryType from, eColorGeometryType to, bool bCurve, ElementType resultType)
{
    const std::string scale = describeScale(from);
    switch (to)
    {
    case image::eCGT_XYZ:
        return describeXyz(from, bCurve);
    case image::eCGT_YPbPr:
        return "Y on " + scale + ", Pb and Pr from minus to plus half of it";
    case image::eCGT_YCbCr:
        return "Y on " + scale + ", Cb and Cr half of it to both sides of " + getChromaCentre(resultType);
    case image::eCGT_CieLab:
        return describeLab(from, bCurve);
    case image::eCGT_CieLuv:
        return describeLuv(from, bCurve);
    case image::eCGT_HLS:
        return "H 0 to 360 degrees, L on " + scale + ", S 0 to 1 only for samples from 0 to 1, negative where L is above 1";
    case image::eCGT_HSV:
        return "H 0 to 360 degrees, S 0 to 1" + std::string(reachesNegativeRgb(from) ? " where no R, G, B is negative" : "") +
               ", V on " + scale;
    case image::eCGT_User:
        return "what the matrix makes of the samples";
    case image::eCGT_Rgba:
        return "R, G, B on " + scale + ", A opaque";
    default:
        return "all channels on " + scale + ", nothing is scaled";
    }
}

std::string describeHueLoss(eColorGeometryType from, eColorGeometryType to, ElementType type, const Limits& limits)
{
    std::string text;
    if (type == ElementType::eU8 || type == ElementType::eI8)
        text += ", hues above " + limits.greatest + " become " + limits.greatest;
    if (to == image::eCGT_HSV)
        return text + (reachesNegativeRgb(from) ? ", S becomes a whole number" : ", S becomes 0 or 1");
    return text + ", S becomes a whole number" +
           (isUnsigned(type) ? ", negative S (L above 1) becomes 0" : ", mostly 0 or -1 where L is above 1");
}
} // namespace

WayOfNumbers::WayOfNumbers(eColorGeometryType from, eColorGeometryType to) : m_route(imaproc::color::getConversionRoute(from, to))
{
}

bool WayOfNumbers::passesCurve() const
{
    return std::search(m_route.begin(), m_route.end(), g_curve.begin(), g_curve.end()) != m_route.end();
}

bool WayOfNumbers::isRangeTested() const
{
    return m_route.front() == image::eCGT_Rgb && (m_route.back() == image::eCGT_XYZ || m_route.back() == image::eCGT_CieLab);
}

std::string describeSource(eColorGeometryType from, eColorGeometryType to, ElementType inputType)
{
    const WayOfNumbers way(from, to);
    if (way.isCopy())
        return "any numbers";
    const std::string scale = way.passesCurve() ? "the scale 0 to 255, in every element type" : "any scale";
    switch (from)
    {
    case image::eCGT_Grey:
        return "Y on any scale";
    case image::eCGT_Rgb:
        return "R, G, B on " + scale + (way.isRangeTested() ? "; refused outside of it" : "");
    case image::eCGT_Rgba:
        return to == image::eCGT_User ? "R, G, B, A on any scale" : "R, G, B on any scale, A is left out";
    case image::eCGT_XYZ:
        if (to == image::eCGT_CieLab)
            return "white is 95.047, 100, 108.883";
        return to == image::eCGT_CieLuv ? "white is Y 0.329024" : "any scale, white is 0.95047, 1, 1.08883 of it";
    case image::eCGT_YPbPr:
        return "Y on any scale, Pb and Pr from minus to plus half of it";
    case image::eCGT_YCbCr:
        return "Y on any scale, Cb and Cr to both sides of " + std::string(getChromaCentre(inputType));
    case image::eCGT_CieLab:
        return "L 0 to 100, a and b signed; white is X 95.047, Y 100, Z 108.883";
    case image::eCGT_CieLuv:
        return "L 0 to 100 for Y from 0 to 0.329024, 764 at Y 100, u and v signed; L 0 gives NaN";
    case image::eCGT_HLS:
        return "H in degrees, folded into 0 to 360; L and S as hls gives them (S negative where L is above 1); RGB on " + scale;
    case image::eCGT_HSV:
        return "H in degrees, folded into 0 to 360; S 0 to 1; V on " + scale;
    default:
        return "any numbers of as many channels as the matrix has columns but one";
    }
}

std::string describeRange(eColorGeometryType from, eColorGeometryType to, ElementType resultType)
{
    const WayOfNumbers way(from, to);
    if (way.isCopy())
        return "the numbers of the input, nothing is scaled";
    if (!way.isInPlace())
        return describeTarget(from, to, way.passesCurve(), resultType) + (from == image::eCGT_CieLab ? g_linearBranch : "");
    // The ranges of the plain formulas would promise too much.
    return "not the " + std::string(getSpaceName(to)) + " of the colour as it is: the link from " + getSpaceName(way.m_route[1]) +
           " to " + getSpaceName(way.m_route[2]) + " runs in place, row after row, and its second " +
           "and third row read what the rows before them wrote" + (way.passesCurve() ? g_readByTheCurve : "");
}

std::string describeSaturation(eColorGeometryType from, eColorGeometryType to, ElementType resultType)
{
    if (resultType == ElementType::eF32)
        return {};
    const bool bCopied = WayOfNumbers(from, to).isCopy();
    const Limits limits = formatLimits(resultType);
    std::string text = std::string(getElementName(resultType)) + (bCopied ? " cuts fractions off" : " rounds to whole numbers") +
                       " and saturates at " + limits.least + " and " + limits.greatest;
    if (bCopied)
        return text;
    if (hasHue(to))
        text += describeHueLoss(from, to, resultType, limits);
    const bool bNegative = to == image::eCGT_YPbPr || to == image::eCGT_CieLab || to == image::eCGT_CieLuv;
    if (bNegative && isUnsigned(resultType))
        text += ", negative " + getChannelName(to, 1) + " and " + getChannelName(to, 2) + " become 0";
    if (from == image::eCGT_CieLuv && !hasHue(to) && to != image::eCGT_CieLab && to != image::eCGT_User)
        text += ", where the numbers of L to 100 (up to 0.33) leave next to nothing";
    if (makesNanOfBlack(from, to))
        text += ", NaN (of black) becomes " + limits.greatest + " in the generic and sse2 forms and " + limits.least +
                " in the avx2 and fma3 forms" + (hasHue(to) ? " (H becomes 0)" : "");
    return text;
}
} // namespace kovis::tool
