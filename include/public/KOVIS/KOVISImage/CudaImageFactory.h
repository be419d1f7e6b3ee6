#pragma once

#include "KOVIS/KOVISImage/CudaImage.h"
#include "KOVIS/KOVISImage/KOVISImageExport.h"

#include <boost/shared_ptr.hpp>

// Images on the first usable GPU, and the ways there and back. All functions wait until the device is done. Each throws
// KOVISImageException where there is no usable GPU (or no device code in this build), and for what the GPU refuses, with the
// words of the CUDA runtime; nothing stays allocated then.

namespace kovis::image
{
/// Makes an image in the memory of the GPU, all zeros. Throws also for what createImage refuses of a geometry.
KOVISIMAGE_EXPORT boost::shared_ptr<CudaImage> createCudaImage(const BaseImageGeometry& geometry);

/// An image on the GPU with the geometry and the pixels of one in host memory.
KOVISIMAGE_EXPORT boost::shared_ptr<CudaImage> uploadImage(const BaseImage& hostImage);
/// An image in host memory with the geometry and the pixels of one on the GPU.
KOVISIMAGE_EXPORT boost::shared_ptr<BaseImage> downloadImage(const CudaImage& gpuImage);

/// Copies all pixels between images that exist. Throws also where sizes, number of channels or element type differ, and for a
/// host image that is none.
KOVISIMAGE_EXPORT void copyToGpu(const BaseImage& hostImage, CudaImage& gpuImage);
KOVISIMAGE_EXPORT void copyToHost(const CudaImage& gpuImage, BaseImage& hostImage);

/// The image as one on a GPU. Throws KOVISImageException where it is none.
KOVISIMAGE_EXPORT CudaImage& getCudaImage(BaseImage& image);
KOVISIMAGE_EXPORT const CudaImage& getCudaImage(const BaseImage& image);
} // namespace kovis::image
