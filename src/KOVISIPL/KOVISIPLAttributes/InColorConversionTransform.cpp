#include "KOVISIPL/KOVISIPLAttributes/InColorConversionTransform.h"

#include "KOVIS/KOVISBaseProcessing/archiveIsSet.h"
#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

#include <boost/make_shared.hpp>

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InColorConversionTransform, "Color conversion to apply: target space and user matrix");

void InColorConversionTransform::writeValue(BaseOArchive& archive) const
{
    const StorageType transform = getStorage();
    if (processor::writeIsSet(archive, transform != nullptr))
    {
        transform->write(archive);
    }
}

void InColorConversionTransform::readValue(BaseIArchive& archive)
{
    if (!processor::readIsSet(archive))
    {
        clear();
        return;
    }
    const auto transform = boost::make_shared<ColorConversionTransform>();
    transform->read(archive);
    init(transform);
}

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
