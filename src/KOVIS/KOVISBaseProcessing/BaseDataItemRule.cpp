#include "KOVIS/KOVISBaseProcessing/BaseDataItemRule.h"

#include "KOVIS/KOVISBaseProcessing/BaseDataItemAttribute.h"
#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"

namespace kovis::processor
{
namespace
{
boost::shared_ptr<const BaseDataItemNode> getNode(const boost::shared_ptr<const BaseAttribute>& attribute,
                                                  const SourcePlace& place)
{
    const auto pDataItem = dynamic_cast<const BaseDataItemAttribute*>(attribute.get());
    const boost::shared_ptr<const BaseDataItemNode> node =
        pDataItem != nullptr ? pDataItem->accessDataItemNodePtr() : boost::shared_ptr<const BaseDataItemNode>();
    if (node == nullptr)
    {
        throwProcessingMessage(eRuleMessage::eRM_NoDataItem, place, attribute->getObjectName());
    }
    return node;
}
} // namespace

BaseDataItemRule::BaseDataItemRule() = default;
BaseDataItemRule::~BaseDataItemRule() = default;

eAttributeRuleType BaseDataItemRule::getAttributeRuleType() const
{
    return eART_DataItem;
}

boost::shared_ptr<const BaseDataItemNode> BaseDataItemRule::getDataItemNode1() const
{
    return getNode(
        getAttribute1(),
        {"boost::shared_ptr<const kovis::BaseDataItemNode> kovis::processor::BaseDataItemRule::getDataItemNode1() const",
         "KOVIS/KOVISBaseProcessing/BaseDataItemRule.cpp", __LINE__});
}

boost::shared_ptr<const BaseDataItemNode> BaseDataItemRule::getDataItemNode2() const
{
    return getNode(
        getAttribute2(),
        {"boost::shared_ptr<const kovis::BaseDataItemNode> kovis::processor::BaseDataItemRule::getDataItemNode2() const",
         "KOVIS/KOVISBaseProcessing/BaseDataItemRule.cpp", __LINE__});
}

BaseLeafRule::BaseLeafRule() = default;
BaseLeafRule::~BaseLeafRule() = default;

BaseLeafCollRule::BaseLeafCollRule() = default;
BaseLeafCollRule::~BaseLeafCollRule() = default;

BaseNodeCollRule::BaseNodeCollRule() = default;
BaseNodeCollRule::~BaseNodeCollRule() = default;

BaseLeafPropertyRule::BaseLeafPropertyRule() = default;
BaseLeafPropertyRule::~BaseLeafPropertyRule() = default;

BaseLeafsComparisonRule::BaseLeafsComparisonRule() = default;
BaseLeafsComparisonRule::~BaseLeafsComparisonRule() = default;

BaseLeafValueComparisonRule::BaseLeafValueComparisonRule() = default;
BaseLeafValueComparisonRule::~BaseLeafValueComparisonRule() = default;

BaseNodeCollSizeRule::BaseNodeCollSizeRule() = default;
BaseNodeCollSizeRule::~BaseNodeCollSizeRule() = default;

BaseNodesCollSizeRule::BaseNodesCollSizeRule() = default;
BaseNodesCollSizeRule::~BaseNodesCollSizeRule() = default;
} // namespace kovis::processor
