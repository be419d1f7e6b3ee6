#include "KOVIS/KOVISBaseProcessing/BaseDataParser.h"

namespace kovis::processor
{
BaseDataParser::BaseDataParser() = default;
BaseDataParser::~BaseDataParser() = default;
} // namespace kovis::processor
