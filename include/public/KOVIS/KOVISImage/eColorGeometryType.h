#pragma once

#include "KOVIS/KOVISImage/KOVISImageExport.h"

namespace kovis::image
{
/// Colour space of an image. Channel counts: Grey 1, Rgba 4, User any, all others 3.
enum eColorGeometryType : int
{
    eCGT_Grey = 0,
    eCGT_Rgb = 1,
    eCGT_Rgba = 2,
    eCGT_XYZ = 3,
    eCGT_YPbPr = 4,
    eCGT_YCbCr = 5,
    eCGT_CieLab = 6,
    eCGT_CieLuv = 7,
    eCGT_HLS = 8,
    eCGT_HSV = 9,
    eCGT_User = 10
};

/// The enumerator's name, as "eCGT_Rgb". A value outside 0 to 10 reads as eCGT_Grey.
KOVISIMAGE_EXPORT const char* getColorGeometryTypeName(const eColorGeometryType& type);

/// A stored number as a colour geometry: itself from 0 to 10, eCGT_Grey for anything else.
KOVISIMAGE_EXPORT eColorGeometryType toColorGeometryType(int value);

/// Number of channels of a standard geometry; 0 for eCGT_User, which has any.
KOVISIMAGE_EXPORT unsigned long getNbChannels(const eColorGeometryType& type);
} // namespace kovis::image
