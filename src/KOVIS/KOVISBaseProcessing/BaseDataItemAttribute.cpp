#include "KOVIS/KOVISBaseProcessing/BaseDataItemAttribute.h"

#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"

namespace kovis::processor
{
BaseDataItemAttribute::BaseDataItemAttribute() = default;
BaseDataItemAttribute::~BaseDataItemAttribute() = default;

BaseInputMandatoryDataItemAttribute::BaseInputMandatoryDataItemAttribute() = default;
BaseInputMandatoryDataItemAttribute::~BaseInputMandatoryDataItemAttribute() = default;

const BaseDataItemNode& BaseInputMandatoryDataItemAttribute::getDataItemNode() const
{
    const boost::shared_ptr<const BaseDataItemNode> node = accessDataItemNodePtr();
    if (node == nullptr)
    {
        throwProcessingMessage(
            eProcessorMessage::ePM_NoDataItem,
            {"const kovis::BaseDataItemNode& kovis::processor::BaseInputMandatoryDataItemAttribute::getDataItemNode() const",
             "KOVIS/KOVISBaseProcessing/BaseDataItemAttribute.cpp", __LINE__},
            getObjectName());
    }
    return *node;
}

BaseOutputMandatoryDataItemAttribute::BaseOutputMandatoryDataItemAttribute() = default;
BaseOutputMandatoryDataItemAttribute::~BaseOutputMandatoryDataItemAttribute() = default;
} // namespace kovis::processor
