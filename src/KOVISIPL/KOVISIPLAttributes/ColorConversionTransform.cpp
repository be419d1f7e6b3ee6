#include "KOVISIPL/KOVISIPLAttributes/ColorConversionTransform.h"

#include "KOVIS/KOVISSerialization/readArchiveEnumeration.h"

#include <boost/make_shared.hpp>

namespace kovis::imaproc::attr
{
ColorConversionTransform::ColorConversionTransform() : m_target("target", image::eCGT_Grey), m_matrix("matrix") {}
ColorConversionTransform::~ColorConversionTransform() = default;

void ColorConversionTransform::write(BaseOArchive& archive) const
{
    archive << m_target << m_matrix;
}

void ColorConversionTransform::read(BaseIArchive& archive)
{
    m_target.setValue(readArchiveEnumeration(archive, m_target.getName(), image::eCGT_Grey, image::eCGT_User));
    archive >> m_matrix;
}

image::eColorGeometryType ColorConversionTransform::getTargetGeometry() const
{
    return image::toColorGeometryType(m_target.getValue());
}

boost::shared_ptr<ColorConversionTransform> createColorConversionTransform(const image::eColorGeometryType& target)
{
    const auto transform = boost::make_shared<ColorConversionTransform>();
    transform->setTarget(target);
    return transform;
}
} // namespace kovis::imaproc::attr
