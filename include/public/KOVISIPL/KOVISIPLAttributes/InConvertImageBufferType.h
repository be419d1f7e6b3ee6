#pragma once

#include "KOVIS/KOVISImage/eImageBufferType.h"
#include "KOVIS/KOVISImageProcessing/BaseInputEnumerationAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// The buffer type that an image is to be converted to: eIBT_None until a value was given. A type outside 1 to 11 counts as not
/// given.
class KOVISIPLATTRIBUTES_EXPORT InConvertImageBufferType : public BaseInputEnumerationAttribute<image::eImageBufferType>
{
    KOVIS_DECLARE_ATTRIBUTE(InConvertImageBufferType);

    bool isUsable() const override;

protected:
    std::pair<int, int> getArchiveRange() const override;
};
} // namespace kovis::imaproc::attr
