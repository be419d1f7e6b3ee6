#include "KOVIS/KOVISUtil/BaseDynamicObject.h"

namespace kovis
{
BaseDynamicObject::~BaseDynamicObject() = default;

void BaseDynamicObject::initCtorCopy(const BaseDynamicObject&) {}
} // namespace kovis
