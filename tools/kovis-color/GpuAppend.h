#pragma once

#include "KOVIS/KOVISBaseProcessing/RetrievalResult.h"
#include "KOVIS/KOVISImage/BaseImage.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace kovis::tool
{
/// The name of the GPU that works. Throws ToolError, with the reason, where there is none that can be used.
std::string getGpuName();

/// Throws ToolError for an answer of the road to the GPU that gave no work: in the answer's own words where it has any.
void requireTaken(const processor::RetrievalResult& answer);

/// The channels of two images of one size and element type, put into an image of host memory on the GPU, slice by slice: each is
/// uploaded, appended and downloaded. Throws ToolError for a GPU that is not taken, and what the library throws.
boost::shared_ptr<image::BaseImage> appendOnGpu(const boost::shared_ptr<const image::BaseImage>& first,
                                                const boost::shared_ptr<const image::BaseImage>& second);
} // namespace kovis::tool
