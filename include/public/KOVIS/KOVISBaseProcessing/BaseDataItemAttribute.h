#pragma once

#include "KOVIS/KOVISBaseData/BaseDataItemNode.h"
#include "KOVIS/KOVISBaseProcessing/BaseAttribute.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"
#include "KOVIS/KOVISBaseProcessing/PointerStorage.h"

#include <boost/shared_ptr.hpp>

namespace kovis::processor
{
/// An attribute that holds a data item. A concrete class narrows the node's type.
class KOVISBASEPROCESSING_EXPORT BaseDataItemAttribute : public BaseAttribute
{
public:
    ~BaseDataItemAttribute() override;

    eAttributeType getAttributeType() const override { return eAT_DataItem; }
    /// The node, or an empty pointer.
    virtual boost::shared_ptr<const BaseDataItemNode> accessDataItemNodePtr() const = 0;

protected:
    BaseDataItemAttribute();
};

/// A data item that a run needs.
class KOVISBASEPROCESSING_EXPORT BaseInputMandatoryDataItemAttribute : public BaseDataItemAttribute
{
public:
    ~BaseInputMandatoryDataItemAttribute() override;

    bool isOutput() const override { return false; }
    bool isMandatory() const override { return true; }
    /// The node. Throws KOVISBaseProcessingException, with the attribute's name, if there is none.
    const BaseDataItemNode& getDataItemNode() const;

protected:
    BaseInputMandatoryDataItemAttribute();
};

/// A data item that a run fills; the caller gives it.
class KOVISBASEPROCESSING_EXPORT BaseOutputMandatoryDataItemAttribute : public BaseDataItemAttribute
{
public:
    ~BaseOutputMandatoryDataItemAttribute() override;

    bool isOutput() const override { return true; }
    bool isMandatory() const override { return true; }

protected:
    BaseOutputMandatoryDataItemAttribute();
};
} // namespace kovis::processor
