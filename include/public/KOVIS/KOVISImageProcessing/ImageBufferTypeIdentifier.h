#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISImage/eImageBufferType.h"
#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingExport.h"

namespace kovis::imaproc
{
/// One buffer type in the key of a kernel.
class KOVISIMAGEPROCESSING_EXPORT ImageBufferTypeIdentifier : public processor::BaseDataTypeIdentifier
{
public:
    ~ImageBufferTypeIdentifier() override;

    void init(const image::eImageBufferType& bufferType) { m_bufferType = bufferType; }
    int getId() const override { return m_bufferType; }
    const char* getName() const override;

private:
    image::eImageBufferType m_bufferType = image::eIBT_None;
};
} // namespace kovis::imaproc
