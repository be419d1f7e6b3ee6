#include "KOVISIPL/KOVISIPLAttributes/InColorConversionTransform.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InColorConversionTransform, "Color conversion to apply: target space and user matrix");

boost::shared_ptr<const BaseDataItemNode> InColorConversionTransform::accessDataItemNodePtr() const
{
    return getPointer();
}

const ColorConversionTransform& InColorConversionTransform::getDataItemNode() const
{
    // init takes no other node
    return static_cast<const ColorConversionTransform&>(processor::BaseInputMandatoryDataItemAttribute::getDataItemNode());
}
} // namespace kovis::imaproc::attr
