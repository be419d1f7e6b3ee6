#include "KOVISIPL/KOVISIPLAttributes/OutStatsResult.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(OutStatsResult, "Statistics of the image");

boost::shared_ptr<const BaseDataItemNode> OutStatsResult::accessDataItemNodePtr() const
{
    return getPointer();
}
} // namespace kovis::imaproc::attr
