#pragma once

#include "KOVIS/KOVISBaseData/KOVISBaseDataExport.h"

namespace kovis
{
/// A data item: a node whose leaves hold plain values. It is filled by one thread and then shared read-only.
class KOVISBASEDATA_EXPORT BaseDataItemNode
{
public:
    virtual ~BaseDataItemNode();

protected:
    BaseDataItemNode() = default;
    BaseDataItemNode(const BaseDataItemNode&) = default;
    BaseDataItemNode& operator=(const BaseDataItemNode&) = default;
};
} // namespace kovis
