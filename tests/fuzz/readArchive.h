#pragma once

#include <cstddef>
#include <cstdint>

namespace kovis::test
{
/// Reads the objects of a text as a program does that trusts nobody. What is refused with KOVISSerializationException is well;
/// anything else ends the process.
void readArchive(const std::uint8_t* data, std::size_t size);
} // namespace kovis::test
