#pragma once

#include "KOVIS/KOVISImage/eImageBufferType.h"
#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// The buffer type that an image is to be converted to. A type outside 1 to 11 counts as not given.
class KOVISIPLATTRIBUTES_EXPORT InConvertImageBufferType : public BaseImageProcessingAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(InConvertImageBufferType);

    using StorageType = image::eImageBufferType;
    static constexpr bool g_bOutput = false;

    virtual void setValue(const StorageType& value);
    /// eIBT_None until a value was given.
    virtual StorageType getValue() const;

    eImageProcessingAttributeType getImageProcessingAttributeType() const override { return eIPAT_Enumeration; }
    bool isOutput() const override { return false; }
    bool isMandatory() const override { return true; }
    bool isInitialised() const override;
    bool isUsable() const override;
    void clear() override;

private:
    StorageType m_value = image::eIBT_None;
    bool m_bInitialised = false;
};
} // namespace kovis::imaproc::attr
