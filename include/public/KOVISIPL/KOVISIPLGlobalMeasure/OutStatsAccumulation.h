#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseDataItemAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/KOVISIPLGlobalMeasureExport.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsAccumulation.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::glbmsr
{
/// Where the pieces of a measure add what they found.
class KOVISIPLGLOBALMEASURE_EXPORT OutStatsAccumulation
    : public processor::PointerStorage<processor::BaseOutputMandatoryDataItemAttribute, StatsAccumulation>
{
    KOVIS_DECLARE_ATTRIBUTE(OutStatsAccumulation);

    using StorageType = boost::shared_ptr<StatsAccumulation>;
    static constexpr bool g_bOutput = true;

    void init(const StorageType& accumulation) { setPointer(accumulation); }
    StorageType getStorage() const { return getPointer(); }
    boost::shared_ptr<const BaseDataItemNode> accessDataItemNodePtr() const override;
};
} // namespace kovis::imaproc::glbmsr
