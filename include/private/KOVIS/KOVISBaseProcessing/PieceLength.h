#pragma once

#include <cstddef>

namespace kovis::processor::detail
{
/// What the length of pieces is chosen for.
struct PieceConditions
{
    unsigned long m_nbElements = 0;    ///< of the work
    unsigned long m_rowLength = 0;     ///< elements of one row, at least 1
    std::size_t m_elementBytes = 0;    ///< bytes of one element in all planes of all attributes
    std::size_t m_level2CacheSize = 0; ///< bytes
    unsigned int m_nbThreads = 1;
};

/// Elements of one piece: whole rows where a row is short enough, else whole blocks of 64. At least 1, at most g_greatestPiece or
/// the whole work; of long work no more than fits the level 2 cache with its working planes, but g_smallestPiece at least.
unsigned long choosePieceLength(const PieceConditions& conditions);

/// The same for this computer, unless setStripHeight fixes it.
unsigned long getPieceLength(unsigned long nbElements, unsigned long rowLength, std::size_t elementBytes);

/// A piece never has more elements, so that a kernel's working planes stay below 1 MiB.
constexpr unsigned long g_greatestPiece = 65536;
/// Less work than two pieces of this are worth no second thread.
constexpr unsigned long g_smallestPiece = 8192;
} // namespace kovis::processor::detail
