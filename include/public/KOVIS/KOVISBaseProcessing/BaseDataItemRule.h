#pragma once

#include "KOVIS/KOVISBaseData/BaseDataItemNode.h"
#include "KOVIS/KOVISBaseProcessing/BaseRule.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::processor
{
/// A rule on the data items of up to two attributes.
class KOVISBASEPROCESSING_EXPORT BaseDataItemRule : public BaseAttributeRule
{
public:
    ~BaseDataItemRule() override;

    eAttributeRuleType getAttributeRuleType() const override;

protected:
    BaseDataItemRule();

    /// The node of an attribute. Each throws KOVISBaseProcessingException for a rule that is not initialised, an attribute that
    /// is gone, and an attribute that is no data item or holds none.
    boost::shared_ptr<const BaseDataItemNode> getDataItemNode1() const;
    boost::shared_ptr<const BaseDataItemNode> getDataItemNode2() const;
};

/// A rule on one value of a data item. A concrete class knows the node's type and which leaf it looks at.
class KOVISBASEPROCESSING_EXPORT BaseLeafRule : public BaseDataItemRule
{
public:
    ~BaseLeafRule() override;

protected:
    BaseLeafRule();
};

/// A rule on a collection of values in one data item.
class KOVISBASEPROCESSING_EXPORT BaseLeafCollRule : public BaseDataItemRule
{
public:
    ~BaseLeafCollRule() override;

protected:
    BaseLeafCollRule();
};

/// A rule on a collection of nodes in one data item.
class KOVISBASEPROCESSING_EXPORT BaseNodeCollRule : public BaseDataItemRule
{
public:
    ~BaseNodeCollRule() override;

protected:
    BaseNodeCollRule();
};

/// Holds if a value has a property of its own, as being finite or even.
class KOVISBASEPROCESSING_EXPORT BaseLeafPropertyRule : public BaseLeafRule
{
public:
    ~BaseLeafPropertyRule() override;

protected:
    BaseLeafPropertyRule();
};

/// Holds if a value of the first attribute compares with one of the second as the concrete class says.
class KOVISBASEPROCESSING_EXPORT BaseLeafsComparisonRule : public BaseLeafRule
{
public:
    ~BaseLeafsComparisonRule() override;

protected:
    BaseLeafsComparisonRule();
};

/// Holds if a value of the first attribute compares with a fixed one as the concrete class says.
class KOVISBASEPROCESSING_EXPORT BaseLeafValueComparisonRule : public BaseLeafRule
{
public:
    ~BaseLeafValueComparisonRule() override;

protected:
    BaseLeafValueComparisonRule();
};

/// Holds if a collection of nodes has a fixed number of them.
class KOVISBASEPROCESSING_EXPORT BaseNodeCollSizeRule : public BaseNodeCollRule
{
public:
    ~BaseNodeCollSizeRule() override;

protected:
    BaseNodeCollSizeRule();
};

/// Holds if the collections of nodes of both attributes have the same number of them.
class KOVISBASEPROCESSING_EXPORT BaseNodesCollSizeRule : public BaseNodeCollRule
{
public:
    ~BaseNodesCollSizeRule() override;

protected:
    BaseNodesCollSizeRule();
};
} // namespace kovis::processor
