#include "KOVIS/KOVISBaseProcessing/BaseAttribute.h"

namespace kovis::processor
{
BaseAttribute::BaseAttribute() = default;
BaseAttribute::~BaseAttribute() = default;
} // namespace kovis::processor
