#include "support/HueModel.h"

namespace kovis::test
{
namespace
{
float clampTo(float value, float limit)
{
    const float positive = modelGreater(value, 0.0F);
    if (positive >= limit)
    {
        return limit;
    }
    return positive;
}

/// What both spaces take from an RGB pixel.
struct Hue
{
    float m_greatest;
    float m_least;
    float m_delta;
    float m_hue;
};

Hue hueOf(const ModelForm& form, const ModelPixel& rgb)
{
    const float r = rgb[0];
    const float g = rgb[1];
    const float b = rgb[2];
    const float rg = modelGreater(r, g);
    const float mx = modelGreater(rg, b);
    const float lesser = r < g ? r : g;
    const float mn = lesser < b ? lesser : b;
    const float delta = mx - mn;

    float e = 0.0F;
    if (delta != 0.0F)
    {
        if (b == mx)
        {
            e = (r - g) / delta + 4.0F;
        }
        else if (g == mx)
        {
            e = (b - r) / delta + 2.0F;
        }
        else
        {
            e = (g - b) / delta;
        }
    }
    const float h60 = e * 60.0F;
    const float q = h60 / 360.0F;
    return {mx, mn, delta, clampTo(modelNegMulAdd(form, modelFloor(form, q), 360.0F, h60), 360.0F)};
}

/// The pixel of a hue: its chroma spread over the channels, each raised by m.
ModelPixel pixelOf(const ModelForm& form, float h, float chroma, float m)
{
    const float folded = clampTo(modelNegMulAdd(form, modelFloor(form, h / 360.0F), 360.0F, h), 360.0F);
    const float hs = folded / 60.0F;
    const float w = clampTo(modelNegMulAdd(form, 2.0F, modelFloor(form, hs * 0.5F), hs), 2.0F);
    const float x = (1.0F - std::fabs(w - 1.0F)) * chroma;

    ModelPixel parts{};
    if (hs <= 1.0F)
    {
        parts = {chroma, x, 0.0F};
    }
    else if (hs <= 2.0F)
    {
        parts = {x, chroma, 0.0F};
    }
    else if (hs <= 3.0F)
    {
        parts = {0.0F, chroma, x};
    }
    else if (hs <= 4.0F)
    {
        parts = {0.0F, x, chroma};
    }
    else if (hs <= 5.0F)
    {
        parts = {x, 0.0F, chroma};
    }
    else
    {
        parts = {chroma, 0.0F, x};
    }
    return {parts[0] + m, parts[1] + m, parts[2] + m};
}

/// 1 - abs(2 l - 1): how far lightness l lies from both ends of 0 to 1. Doubling is exact, so that fusing changes nothing.
float spreadOf(float l)
{
    const float doubled = l + l;
    return 1.0F - std::fabs(doubled - 1.0F);
}
} // namespace

ModelPixel modelHSVFromRGB(const ModelForm& form, const ModelPixel& rgb)
{
    const Hue hue = hueOf(form, rgb);
    const float saturation = hue.m_greatest == 0.0F ? 0.0F : hue.m_delta / hue.m_greatest;
    return {hue.m_hue, saturation, hue.m_greatest};
}

ModelPixel modelRGBFromHSV(const ModelForm& form, const ModelPixel& hsv)
{
    const float chroma = hsv[1] * hsv[2];
    return pixelOf(form, hsv[0], chroma, hsv[2] - chroma);
}

ModelPixel modelHLSFromRGB(const ModelForm& form, const ModelPixel& rgb)
{
    const Hue hue = hueOf(form, rgb);
    const float lightness = (hue.m_greatest + hue.m_least) * 0.5F;
    const float spread = spreadOf(lightness);
    const float saturation = spread == 0.0F ? 0.0F : hue.m_delta / spread;
    return {hue.m_hue, lightness, saturation};
}

ModelPixel modelRGBFromHLS(const ModelForm& form, const ModelPixel& hls)
{
    const float chroma = spreadOf(hls[1]) * hls[2];
    return pixelOf(form, hls[0], chroma, modelNegMulAdd(form, chroma, 0.5F, hls[1]));
}
} // namespace kovis::test
