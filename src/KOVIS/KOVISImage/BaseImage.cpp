#include "KOVIS/KOVISImage/BaseImage.h"

namespace kovis::image
{
BaseImage::~BaseImage() = default;
} // namespace kovis::image
