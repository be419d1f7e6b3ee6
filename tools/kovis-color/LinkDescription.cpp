#include "LinkDescription.h"

#include <algorithm>
#include <iterator>

namespace kovis::tool
{
namespace
{
struct LinkEntry
{
    image::eColorGeometryType from;
    image::eColorGeometryType to;
    LinkDescription description;
};

#define KOVIS_HUE "H = 60 * (e mod 6), e = (G - B) / D, 2 + (B - R) / D if G is greatest, 4 + (R - G) / D if B is, D = max - min"
#define KOVIS_SECTOR "C, X, 0 by the sixth of H that it is in, X = C * (1 - |H / 60 mod 2 - 1|)"

constexpr LinkEntry g_links[] = {
    {image::eCGT_CieLab,
     image::eCGT_XYZ,
     {"fromLabToXYZConvert",
      "fy = (L + 16) / 116, fx = fy + a / 500, fz = fy - b / 200; X = 95.047 * g(fx, a), Y = 100 * g(fy, fy), "
      "Z = 108.883 * g(fz, b); g(t, c) = t^3 above 0.20689656, else 0.12841856 * (c - 0.13793103)",
      false}},
    {image::eCGT_XYZ,
     image::eCGT_CieLab,
     {"fromXYZToLabConvert",
      "L = 116 * f(Y / 100) - 16, a = 500 * (f(X / 95.047) - f(Y / 100)), b = 200 * (f(Y / 100) - f(Z / 108.883)); "
      "f(t) = t^(1/3) above 0.008856452, else t / 0.12841856 + 0.13793103",
      false}},
    {image::eCGT_CieLuv,
     image::eCGT_XYZ,
     {"fromLuvToXYZConvert",
      "Y = 0.329024 * ((L + 16) / 116)^3, or 0.329024 * L * (3/29)^3 for L up to 8; u' = u / (13 * L) + 0.1978, "
      "v' = v / (13 * L) + 0.4683; X = Y * 9 * u' / (4 * v'), Z = Y * (12 - 3 * u' - 20 * v') / (4 * v')",
      false}},
    {image::eCGT_XYZ,
     image::eCGT_CieLuv,
     {"fromXYZToLuvConvert",
      "y = Y / 0.329024; L = 116 * y^(1/3) - 16, or y * (29/3)^3 for y up to (6/29)^3; d = 15 * Y + X + 3 * Z, "
      "u = 13 * L * (4 * X / d - 0.1978), v = 13 * L * (9 * Y / d - 0.4683)",
      false}},
    {image::eCGT_HLS,
     image::eCGT_Rgb,
     {"fromHLSToRGBConvert", "C = S * (1 - |2 * L - 1|), R, G, B = L - C / 2 + (" KOVIS_SECTOR ")", false}},
    {image::eCGT_Rgb,
     image::eCGT_HLS,
     {"fromRGBToHLSConvert", "L = (max + min) / 2, S = D / (1 - |2 * L - 1|), " KOVIS_HUE, false}},
    {image::eCGT_HSV, image::eCGT_Rgb, {"fromHSVToRGBConvert", "C = S * V, R, G, B = V - C + (" KOVIS_SECTOR ")", false}},
    {image::eCGT_Rgb, image::eCGT_HSV, {"fromRGBToHSVConvert", "V = max, S = D / max, " KOVIS_HUE, false}},
    {image::eCGT_Rgb,
     image::eCGT_XYZ,
     {"sRGBtoXYZConvert",
      "X, Y, Z = matrix * (100 * s(R), 100 * s(G), 100 * s(B)); s(c) = ((c / 255 + 0.055) / 1.055)^2.4 for c / 255 above "
      "0.04045, else c / 255 / 12.92",
      true}}};

#undef KOVIS_HUE
#undef KOVIS_SECTOR
} // namespace

LinkDescription describeLink(image::eColorGeometryType from, image::eColorGeometryType to)
{
    const auto* const entry = std::find_if(std::begin(g_links), std::end(g_links),
                                           [&](const LinkEntry& link) { return link.from == from && link.to == to; });
    if (entry != std::end(g_links))
        return entry->description;
    return {"linearConvert", "each channel = its row's factors * the input's channels, summed, + the row's offset", true};
}

LinkDescription describeCopy()
{
    return {"copyConvert", "each channel as it is; an integer type saturates it and cuts its fraction off", false};
}
} // namespace kovis::tool
