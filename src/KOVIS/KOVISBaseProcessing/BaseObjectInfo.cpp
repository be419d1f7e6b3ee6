#include "KOVIS/KOVISBaseProcessing/BaseObjectInfo.h"

namespace kovis::processor
{
BaseObjectInfo::~BaseObjectInfo() = default;
} // namespace kovis::processor
