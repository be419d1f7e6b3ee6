#include "KOVIS/KOVISBaseProcessing/BaseOutputInitializer.h"

namespace kovis::processor
{
BaseOutputInitializer::BaseOutputInitializer() = default;
BaseOutputInitializer::~BaseOutputInitializer() = default;
} // namespace kovis::processor
