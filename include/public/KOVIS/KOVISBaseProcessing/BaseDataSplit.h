#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseProcessor.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"
#include "KOVIS/KOVISCore/BaseRequestOrigin.h"
#include "KOVIS/KOVISUtil/ElementsRange.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace kovis::processor
{
/// Where the elements of a split lie. All lie on this computer, so only non-localized ranges exist.
class KOVISBASEPROCESSING_EXPORT ElementsLocationInfo
{
public:
    /// Adds a range of elements that any computer may take, at a position of the whole.
    void insertNonLocalized(const ElementsRange& range, unsigned long position);

    const std::vector<std::pair<ElementsRange, unsigned long>>& getNonLocalized() const { return m_ranges; }
    /// Number of elements of all ranges.
    unsigned long getNbElements() const;

private:
    std::vector<std::pair<ElementsRange, unsigned long>> m_ranges;
};

enum eSplitBaseType : int
{
    eSBT_Static = 0, ///< a fixed number of pieces, addressed by an index
    eSBT_Dynamic = 1 ///< cut as the work goes on, addressed by a range of elements
};

enum eSplitStaticType : int
{
    eSST_NoSplit = 0,
    eSST_SubImage = 3
};

enum eSplitDynamicType : int
{
    eSDT_NoSplit = 0,
    eSDT_ImageStrip = 4
};

/// How the value of one attribute is divided among the processors of the level below. Shared between the pieces of a step:
/// after its initBase it is only read.
class KOVISBASEPROCESSING_EXPORT BaseDataSplit
{
public:
    virtual ~BaseDataSplit();
    BaseDataSplit(const BaseDataSplit&) = delete;
    BaseDataSplit& operator=(const BaseDataSplit&) = delete;

    virtual eSplitBaseType getSplitBaseType() const = 0;
    virtual const std::string& getAttributeName() const = 0;
    virtual const std::string& getAttributeToolTip() const = 0;
    /// Whether the processor is of the class that this split serves. processAttribute may only be called where it is.
    virtual bool checkProcessorType(const BaseProcessor& processor) const = 0;

    /// Makes this the split of a value that every piece gets whole; it fits any number of pieces.
    void initBaseUnSplitted(const ElementsLocationInfo& locationInfo);

    bool isUnSplitted() const { return m_bUnSplitted; }
    bool isBaseInitialised() const { return m_bInitialised; }
    const ElementsLocationInfo& getElementsLocationInfo() const { return m_locationInfo; }
    unsigned long getNbElements() const { return m_nbElements; }

protected:
    BaseDataSplit();

    void initBaseSplitted(const ElementsLocationInfo& locationInfo);

private:
    ElementsLocationInfo m_locationInfo;
    unsigned long m_nbElements = 0;
    bool m_bUnSplitted = false;
    bool m_bInitialised = false;
};

/// A split of a fixed number of pieces.
class KOVISBASEPROCESSING_EXPORT BaseStaticSplit : public BaseDataSplit
{
public:
    ~BaseStaticSplit() override;

    eSplitBaseType getSplitBaseType() const override;
    virtual eSplitStaticType getSplitStaticType() const = 0;
    /// Gives the processor its piece of that index.
    virtual BoolResult processAttribute(BaseProcessor& processor, unsigned int index, const core::BaseRequestOrigin& origin) = 0;

protected:
    BaseStaticSplit();
};

/// A split by ranges of elements.
class KOVISBASEPROCESSING_EXPORT BaseDynamicSplit : public BaseDataSplit
{
public:
    ~BaseDynamicSplit() override;

    eSplitBaseType getSplitBaseType() const override;
    virtual eSplitDynamicType getSplitDynamicType() const = 0;
    /// Gives the processor the elements [begin, end).
    virtual BoolResult processAttribute(BaseProcessor& processor, unsigned long begin, unsigned long end,
                                        const core::BaseRequestOrigin& origin) = 0;

    void initUnSplitted(const ElementsLocationInfo& locationInfo) { initBaseUnSplitted(locationInfo); }

    /// Elements of one row: cuts are made between rows where rows are short enough.
    unsigned long getRowLength() const { return m_rowLength; }
    /// Bytes that one element takes in all channels together.
    std::size_t getElementBytes() const { return m_elementBytes; }

protected:
    BaseDynamicSplit();

    void initDynamic(const ElementsLocationInfo& locationInfo, unsigned long rowLength, std::size_t elementBytes);

private:
    unsigned long m_rowLength = 0;
    std::size_t m_elementBytes = 0;
};
} // namespace kovis::processor
