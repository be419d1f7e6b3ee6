#pragma once

#include "KOVIS/KOVISImageProcessing/OutputInitializer.h"

#include <boost/weak_ptr.hpp>

/// The result of an append that was given none: the first input's size, volume, time and elements, in eCGT_User with the channels
/// of both inputs.
class AppendColorOutputInitializer : public kovis::imaproc::BaseFromImageCustomImageInfo
{
public:
    AppendColorOutputInitializer();
    ~AppendColorOutputInitializer() override;

    void setSecondInput(const boost::weak_ptr<const kovis::imaproc::BaseImageAttribute>& input) { m_secondInput = input; }

    kovis::image::eImageBufferType getImageBufferType() const override;
    /// Throws KOVISIPLColorException if the second input's attribute is not there.
    kovis::image::ColorGeometry getColorGeometry() const override;

private:
    boost::weak_ptr<const kovis::imaproc::BaseImageAttribute> m_secondInput;
};
