#pragma once

#include "KOVIS/KOVISBaseData/KOVISBaseDataExport.h"

namespace kovis
{
class BaseOArchive;
class BaseIArchive;

/// A data item: a node whose leaves hold plain values. It is filled by one thread and then shared read-only.
class KOVISBASEDATA_EXPORT BaseDataItemNode
{
public:
    virtual ~BaseDataItemNode();

    /// Writes the leaves into the open section of an archive, each under its name. A node that archives do not keep writes nothing.
    virtual void write(BaseOArchive& archive) const;
    /// Reads what write wrote. Throws what the archive throws.
    virtual void read(BaseIArchive& archive);

protected:
    BaseDataItemNode() = default;
    BaseDataItemNode(const BaseDataItemNode&) = default;
    BaseDataItemNode& operator=(const BaseDataItemNode&) = default;
};
} // namespace kovis
