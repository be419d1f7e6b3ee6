#include "KOVIS/KOVISBaseImageTools/extractBufferDataCollToGpu.h"

#include "KOVIS/KOVISBaseImageTools/KOVISBaseImageToolsLog.h"
#include "KOVIS/KOVISImage/getFormatedName.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

namespace kovis::image::tools::detail
{
void** getPlaneTable(const CudaImage& image, const eImageBufferType& elementType)
{
    if (getStorageType(image.getBufferType()) != getStorageType(elementType))
    {
        throwMessage<KOVISBaseImageToolsException>(
            getKOVISBaseImageToolsLogMessageManager(), getKOVISBaseImageToolsLogger(),
            eKOVISBaseImageToolsMessage::eIT_GpuElementType,
            SourcePlace{"void** kovis::image::tools::detail::getPlaneTable(const kovis::image::CudaImage&, const "
                        "kovis::image::eImageBufferType&)",
                        "KOVIS/KOVISBaseImageTools/extractBufferDataCollToGpu.cpp", __LINE__},
            getFormatedName(image, eFT_Short), getElementTypeName(image.getBufferType()), getElementTypeName(elementType));
    }
    return image.getPlaneTable();
}
} // namespace kovis::image::tools::detail
