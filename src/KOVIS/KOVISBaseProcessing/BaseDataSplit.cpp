#include "KOVIS/KOVISBaseProcessing/BaseDataSplit.h"

namespace kovis::processor
{
void ElementsLocationInfo::insertNonLocalized(const ElementsRange& range, unsigned long position)
{
    m_ranges.emplace_back(range, position);
}

unsigned long ElementsLocationInfo::getNbElements() const
{
    unsigned long nbElements = 0;
    for (const auto& [range, position] : m_ranges)
    {
        nbElements += range.getSize();
    }
    return nbElements;
}

BaseDataSplit::BaseDataSplit() = default;
BaseDataSplit::~BaseDataSplit() = default;

void BaseDataSplit::initBaseUnSplitted(const ElementsLocationInfo& locationInfo)
{
    initBaseSplitted(locationInfo);
    m_bUnSplitted = true;
}

void BaseDataSplit::initBaseSplitted(const ElementsLocationInfo& locationInfo)
{
    m_locationInfo = locationInfo;
    m_nbElements = locationInfo.getNbElements();
    m_bUnSplitted = false;
    m_bInitialised = true;
}

BaseStaticSplit::BaseStaticSplit() = default;
BaseStaticSplit::~BaseStaticSplit() = default;

eSplitBaseType BaseStaticSplit::getSplitBaseType() const
{
    return eSBT_Static;
}

BaseDynamicSplit::BaseDynamicSplit() = default;
BaseDynamicSplit::~BaseDynamicSplit() = default;

eSplitBaseType BaseDynamicSplit::getSplitBaseType() const
{
    return eSBT_Dynamic;
}

void BaseDynamicSplit::initDynamic(const ElementsLocationInfo& locationInfo, unsigned long rowLength, std::size_t elementBytes)
{
    initBaseSplitted(locationInfo);
    m_rowLength = rowLength;
    m_elementBytes = elementBytes;
}
} // namespace kovis::processor
