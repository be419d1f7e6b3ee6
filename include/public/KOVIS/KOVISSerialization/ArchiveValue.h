#pragma once

#include <string>
#include <variant>
#include <vector>

namespace kovis
{
/// The kinds of value that an archive keeps, each to the bit: NaN with its payload, infinities and negative zero included.
using ArchiveValue = std::variant<bool, int, unsigned int, long, unsigned long, float, double, std::string, std::vector<float>>;
} // namespace kovis
