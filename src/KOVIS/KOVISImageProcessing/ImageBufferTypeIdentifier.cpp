#include "KOVIS/KOVISImageProcessing/ImageBufferTypeIdentifier.h"

namespace kovis::imaproc
{
ImageBufferTypeIdentifier::~ImageBufferTypeIdentifier() = default;

const char* ImageBufferTypeIdentifier::getName() const
{
    return image::getElementTypeName(m_bufferType);
}
} // namespace kovis::imaproc
