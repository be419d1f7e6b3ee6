#pragma once

#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISImage/ImageStrip.h"
#include "KOVIS/KOVISImage/KOVISImageExport.h"

#include <string>

namespace kovis::image
{
/// How an object is described.
enum eFormatedType : int
{
    eFT_Short = 0 ///< sizes, channels and element type on one line, as "512 x 512, 3 channels, u8"
};

/// A description of an image or of a part of one, for messages.
KOVISIMAGE_EXPORT std::string getFormatedName(const BaseImage& image, const eFormatedType& type);
KOVISIMAGE_EXPORT std::string getFormatedName(const BaseImageFragment& fragment, const eFormatedType& type);
} // namespace kovis::image
