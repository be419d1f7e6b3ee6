#pragma once

#include "KOVIS/KOVISImage/HostImage.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

namespace kovis::image::detail
{
/// The image as one in host memory; null and a message where it is none.
const HostImage* findHostImage(const BaseImage& image, BoolResult& result);

/// The image as one in host memory. Throws KOVISImageException, from `place`, where it is none.
const HostImage& getHostImage(const BaseImage& image, const SourcePlace& place);

/// The same behind a pointer that may be null, which is an error too.
const HostImage& getHostImage(const BaseImage* pImage, const SourcePlace& place);
} // namespace kovis::image::detail
