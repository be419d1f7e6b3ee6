#pragma once

#include "KOVISIPL/KOVISIPLAttributes/InColorConversionTransform.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// The transform of an attribute, kept alive: the attribute may be set anew meanwhile. Where it holds none, its own getter throws
/// by name.
inline boost::shared_ptr<const attr::ColorConversionTransform> getTransformNode(const attr::InColorConversionTransform& attribute)
{
    boost::shared_ptr<const attr::ColorConversionTransform> node;
    while (!(node = attribute.getStorage()))
    {
        (void)attribute.getDataItemNode();
    }
    return node;
}
} // namespace kovis::imaproc::color
