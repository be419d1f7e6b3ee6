#pragma once

#include "KOVIS/KOVISImageProcessing/OutputInitializer.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorConversionTransform.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

/// The result of a colour conversion that was given none. Size, volume and time are the input's; elements and colours are decided
/// here.
class TargetColorSpaceOutputInitializer : public kovis::imaproc::BaseFromImageCustomImageInfo
{
public:
    TargetColorSpaceOutputInitializer();
    ~TargetColorSpaceOutputInitializer() override;

    void setTransform(const boost::weak_ptr<const kovis::imaproc::attr::InColorConversionTransform>& transform)
    {
        m_transform = transform;
    }

    kovis::image::eImageBufferType getImageBufferType() const override;
    kovis::image::ColorGeometry getColorGeometry() const override;

private:
    /// Throws KOVISIPLColorException, naming the function, if the transform attribute is not there.
    boost::shared_ptr<const kovis::imaproc::attr::InColorConversionTransform> getTransform(const char* function) const;

    boost::weak_ptr<const kovis::imaproc::attr::InColorConversionTransform> m_transform;
};
