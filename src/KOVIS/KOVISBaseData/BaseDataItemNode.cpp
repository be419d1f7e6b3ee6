#include "KOVIS/KOVISBaseData/BaseDataItemNode.h"

namespace kovis
{
BaseDataItemNode::~BaseDataItemNode() = default;

void BaseDataItemNode::write(BaseOArchive&) const {}

void BaseDataItemNode::read(BaseIArchive&) {}
} // namespace kovis
