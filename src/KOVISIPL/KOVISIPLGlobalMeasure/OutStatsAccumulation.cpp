#include "KOVISIPL/KOVISIPLGlobalMeasure/OutStatsAccumulation.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::glbmsr
{
KOVIS_DEFINE_ATTRIBUTE(OutStatsAccumulation, "Totals of a measure under way");

boost::shared_ptr<const BaseDataItemNode> OutStatsAccumulation::accessDataItemNodePtr() const
{
    return getPointer();
}
} // namespace kovis::imaproc::glbmsr
