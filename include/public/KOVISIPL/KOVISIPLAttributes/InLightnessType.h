#pragma once

#include "KOVIS/KOVISImageProcessing/BaseInputEnumerationAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"
#include "KOVISIPL/KOVISIPLAttributes/eLightnessType.h"

namespace kovis::imaproc::attr
{
/// The formula by which a grey image is made of a colour image: eLT_Average until a value was given.
class KOVISIPLATTRIBUTES_EXPORT InLightnessType : public BaseInputEnumerationAttribute<eLightnessType>
{
    KOVIS_DECLARE_ATTRIBUTE(InLightnessType);

protected:
    std::pair<int, int> getArchiveRange() const override;
};
} // namespace kovis::imaproc::attr
