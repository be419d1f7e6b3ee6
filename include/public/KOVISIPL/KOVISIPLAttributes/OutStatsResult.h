#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseDataItemAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"
#include "KOVISIPL/KOVISIPLAttributes/StatsResult.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::attr
{
/// The statistics that a measure fills; the caller gives the object.
class KOVISIPLATTRIBUTES_EXPORT OutStatsResult
    : public processor::PointerStorage<processor::BaseOutputMandatoryDataItemAttribute, StatsResult>
{
    KOVIS_DECLARE_ATTRIBUTE(OutStatsResult);

    using StorageType = boost::shared_ptr<StatsResult>;
    static constexpr bool g_bOutput = true;

    void init(const StorageType& result) { setPointer(result); }
    StorageType getStorage() const { return getPointer(); }
    boost::shared_ptr<const BaseDataItemNode> accessDataItemNodePtr() const override;
};
} // namespace kovis::imaproc::attr
