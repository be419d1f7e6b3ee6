#pragma once

namespace kovis::processor
{
/// What a kernel is handed.
struct ProcessingInfo
{
    /// Elements of each plane to process. In a run it is a multiple of 64 and reaches past the exact elements where a plane's
    /// length is not one; planes have room for that.
    unsigned long m_nbElements = 0;

    /// How many of them, from the first, belong to the image: for who measures, since what lies past them is no pixel.
    unsigned long m_nbExactElements = 0;
};
} // namespace kovis::processor
