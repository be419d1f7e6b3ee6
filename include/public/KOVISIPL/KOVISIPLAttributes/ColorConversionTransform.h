#pragma once

#include "KOVIS/KOVISBaseData/BaseDataItemNode.h"
#include "KOVIS/KOVISBaseData/DataItemLeaf.h"
#include "KOVIS/KOVISImage/eColorGeometryType.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace kovis::imaproc::attr
{
/// Describes a colour conversion: the target space and, for eCGT_User, a matrix. Filled by one thread, then shared read-only.
class KOVISIPLATTRIBUTES_EXPORT ColorConversionTransform : public BaseDataItemNode
{
public:
    /// The target is eCGT_Grey, the matrix is empty.
    ColorConversionTransform();
    ~ColorConversionTransform() override;

    /// The target as it was stored, which may be any number.
    int getTarget() const { return m_target.getValue(); }
    /// The target as a colour space: a stored number outside 0 to 10 reads as eCGT_Grey.
    image::eColorGeometryType getTargetGeometry() const;
    void setTarget(int target) { m_target.setValue(target); }

    /// Row after row, one row per output channel: a factor per input channel, in their order, and then the row's offset. So an
    /// image of n channels into one of m takes m * (n + 1) values, in the units of the samples. Used where one end is eCGT_User.
    const std::vector<float>& getMatrix() const { return m_matrix.getValue(); }
    void setMatrix(std::vector<float> matrix) { m_matrix.setValue(std::move(matrix)); }

    void write(BaseOArchive& archive) const override;
    /// Throws KOVISSerializationException for a target outside 0 to 10, which setTarget takes.
    void read(BaseIArchive& archive) override;

private:
    DataItemLeaf<int> m_target;
    DataItemLeaf<std::vector<float>> m_matrix;
};

/// A transform to that space, without a matrix.
KOVISIPLATTRIBUTES_EXPORT boost::shared_ptr<ColorConversionTransform>
createColorConversionTransform(const image::eColorGeometryType& target);
} // namespace kovis::imaproc::attr
