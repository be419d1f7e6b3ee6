#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseDataItemAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/ColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::attr
{
/// The conversion that is to be applied.
class KOVISIPLATTRIBUTES_EXPORT InColorConversionTransform
    : public processor::PointerStorage<processor::BaseInputMandatoryDataItemAttribute, const ColorConversionTransform>
{
    KOVIS_DECLARE_ATTRIBUTE(InColorConversionTransform);

    using StorageType = boost::shared_ptr<const ColorConversionTransform>;
    static constexpr bool g_bOutput = false;

    void init(const StorageType& transform) { setPointer(transform); }
    StorageType getStorage() const { return getPointer(); }
    bool isArchivable() const override { return true; }
    /// A null pointer is written as no value.
    void writeValue(BaseOArchive& archive) const override;
    void readValue(BaseIArchive& archive) override;
    boost::shared_ptr<const BaseDataItemNode> accessDataItemNodePtr() const override;
    /// The transform, which lives as long as the attribute holds it. Throws KOVISBaseProcessingException, with the attribute's
    /// name, if there is none.
    const ColorConversionTransform& getDataItemNode() const;
};
} // namespace kovis::imaproc::attr
