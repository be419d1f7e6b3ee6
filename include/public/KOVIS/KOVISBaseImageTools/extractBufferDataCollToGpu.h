#pragma once

#include "KOVIS/KOVISBaseImageTools/KOVISBaseImageToolsExport.h"
#include "KOVIS/KOVISImage/CudaImage.h"

namespace kovis::image::tools
{
namespace detail
{
/// The image's table of planes. Throws KOVISBaseImageToolsException for an element type that is not the image's.
KOVISBASEIMAGETOOLS_EXPORT void** getPlaneTable(const CudaImage& image, const eImageBufferType& elementType);
} // namespace detail

/// The plane pointers of a GPU image as a kernel takes them: an array of device pointers that lies in device memory, one pointer
/// per channel of the first slice and time step. It belongs to the image. T is the element type of the image's buffer type.
/// Throws KOVISBaseImageToolsException for another one, and what CudaImage::getPlaneTable throws.
template <class T>
T** extractBufferDataCollToGpu(CudaImage& image)
{
    return reinterpret_cast<T**>(detail::getPlaneTable(image, BufferTypeOf<T>::g_value));
}
template <class T>
T const** extractBufferDataCollToGpu(const CudaImage& image)
{
    return const_cast<T const**>(reinterpret_cast<T**>(detail::getPlaneTable(image, BufferTypeOf<T>::g_value)));
}
} // namespace kovis::image::tools
