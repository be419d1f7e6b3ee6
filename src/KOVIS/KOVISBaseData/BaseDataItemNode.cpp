#include "KOVIS/KOVISBaseData/BaseDataItemNode.h"

namespace kovis
{
BaseDataItemNode::~BaseDataItemNode() = default;
} // namespace kovis
