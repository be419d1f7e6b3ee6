#pragma once

namespace kovis
{
/// Enters the message table of a domain into its manager. Each library specialises it for its own domains, next to the tables;
/// process() may be called any number of times, from any static initialiser, and enters the table once.
template <class TDomain, class TEnable = void>
struct MessageMapRegistrator;
} // namespace kovis
