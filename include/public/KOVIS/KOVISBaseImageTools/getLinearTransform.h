#pragma once

#include "KOVIS/KOVISBaseImageTools/KOVISBaseImageToolsExport.h"
#include "KOVIS/KOVISImage/eColorGeometryType.h"
#include "KOVIS/KOVISImage/eImageBufferType.h"

#include <cstddef>
#include <vector>

namespace kovis::image
{
/// An affine map between two colour spaces: row after row, one row per target channel, and in each row one coefficient
/// per source channel and then the row's offset.
class LinearTransform
{
public:
    LinearTransform(std::size_t nbRows, std::size_t nbColumns) : m_nbColumns(nbColumns), m_elements(nbRows * nbColumns, 0.0) {}

    std::size_t getNbRows() const { return m_nbColumns == 0 ? 0 : m_elements.size() / m_nbColumns; }
    std::size_t getNbColumns() const { return m_nbColumns; }
    std::size_t getSize() const { return m_elements.size(); }
    const double* getData() const { return m_elements.data(); }
    double* getData() { return m_elements.data(); }

    double operator()(std::size_t row, std::size_t column) const { return m_elements[row * m_nbColumns + column]; }
    double& operator()(std::size_t row, std::size_t column) { return m_elements[row * m_nbColumns + column]; }

private:
    std::size_t m_nbColumns;
    std::vector<double> m_elements;
};

/// The linear transform between two of Grey, Rgb, Rgba, XYZ, YPbPr and YCbCr, for samples of the given buffer types.
/// It is worked out in double, in sample units: offsets of YCbCr and an opaque alpha depend on the buffer type of their end.
/// Throws KOVISBaseImageToolsException for a geometry that no matrix joins, for two equal geometries and for a buffer type
/// outside 1 to 11. Safe to call from any thread.
KOVISBASEIMAGETOOLS_EXPORT LinearTransform getLinearTransform(const eColorGeometryType& from, const eColorGeometryType& to,
                                                              const eImageBufferType& fromBufferType,
                                                              const eImageBufferType& toBufferType);
} // namespace kovis::image
