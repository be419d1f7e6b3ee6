#pragma once

#include "support/PixelModel.h"

// RGB and the spaces of hues: planes R, G, B; H, S, V; H, L, S.

namespace kovis::test
{
ModelPixel modelHSVFromRGB(const ModelForm& form, const ModelPixel& rgb);
ModelPixel modelRGBFromHSV(const ModelForm& form, const ModelPixel& hsv);

ModelPixel modelHLSFromRGB(const ModelForm& form, const ModelPixel& rgb);
ModelPixel modelRGBFromHLS(const ModelForm& form, const ModelPixel& hls);
} // namespace kovis::test
