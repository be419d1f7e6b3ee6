#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseDataSplit.h"
#include "KOVIS/KOVISBaseProcessing/BaseProcessor.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"
#include "KOVIS/KOVISCore/BaseActionProvider.h"
#include "KOVIS/KOVISCore/BasePriority.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <atomic>
#include <string>
#include <vector>

namespace kovis::processor
{
/// Gives out one new processor per piece of work. For each piece: createProcessor, checkProcessorType of every split, init with
/// rules, processAttribute of every split (initAttributes); what fails is the message of queryNextAction.
class KOVISBASEPROCESSING_EXPORT BaseProcessorDispatcher : public core::BaseActionProvider
{
public:
    ~BaseProcessorDispatcher() override;

    BoolResult queryNextAction(const core::BaseRequestOrigin& origin, boost::shared_ptr<core::BaseActionRequest>& request,
                               bool& bGiven, boost::shared_ptr<BaseSerializationObject>& data) override;
    bool hasPendingAction() const override;
    BoolResult notifyDerived(const boost::shared_ptr<core::BaseActionRequest>& request,
                             const boost::shared_ptr<const BaseSerializationObject>& data, bool& bFinished) override;
    void clearDerived() override;

    virtual const std::string& getProcessorName() const = 0;
    virtual const std::string& getProcessorToolTip() const = 0;
    virtual boost::shared_ptr<BaseProcessor> createProcessor() const = 0;
    /// Gives a processor the values for a range of the work.
    virtual BoolResult initAttributes(const ElementsRange& range, const core::BaseRequestOrigin& origin,
                                      const boost::shared_ptr<BaseProcessor>& processor) = 0;

    unsigned long getNbPieces() const { return m_nbPieces; }

protected:
    BaseProcessorDispatcher();

    /// `pieceLength` elements a piece, the last one shorter; all pieces together are [0, nbElements). Every piece's processor is
    /// held against `splits`, which live until clearDerived.
    void initPieces(const core::BasePriority& priority, unsigned long nbElements, unsigned long pieceLength,
                    std::vector<const BaseDataSplit*> splits);

private:
    BoolResult makeProcessor(const ElementsRange& range, const core::BaseRequestOrigin& origin,
                             boost::shared_ptr<BaseProcessor>& processor);

    core::BasePriority m_priority;
    std::vector<const BaseDataSplit*> m_checkedSplits;
    unsigned long m_nbElements = 0;
    unsigned long m_pieceLength = 1;
    unsigned long m_nbPieces = 0;
    std::atomic<unsigned long> m_nextPiece{0};
    std::atomic<unsigned long> m_nbNotified{0};
};

/// A dispatcher of a fixed number of pieces: as many as its splits have.
class KOVISBASEPROCESSING_EXPORT BaseStaticProcessorDispatcher : public BaseProcessorDispatcher
{
public:
    ~BaseStaticProcessorDispatcher() override;

    /// False, with a message: no split, an empty pointer, a split that is not initialised, or splits of different numbers of
    /// pieces, both of which are named. A no-split fits any number.
    BoolResult initBase(const core::BasePriority& priority, const std::vector<boost::shared_ptr<BaseStaticSplit>>& splits);

    void clearDerived() override;
    BoolResult initAttributes(const ElementsRange& range, const core::BaseRequestOrigin& origin,
                              const boost::shared_ptr<BaseProcessor>& processor) override;

protected:
    BaseStaticProcessorDispatcher();

private:
    std::vector<boost::shared_ptr<BaseStaticSplit>> m_splits;
};

/// A dispatcher that cuts its elements as the computer needs it: a piece's planes and working planes fit the level 2 cache, there
/// are a few pieces per thread, and small work is one piece. All splits get the same ranges.
class KOVISBASEPROCESSING_EXPORT BaseDynamicProcessorDispatcher : public BaseProcessorDispatcher
{
public:
    ~BaseDynamicProcessorDispatcher() override;

    /// As BaseStaticProcessorDispatcher::initBase, over numbers of elements and row lengths.
    BoolResult initBase(const core::BasePriority& priority, const std::vector<boost::shared_ptr<BaseDynamicSplit>>& splits);

    void clearDerived() override;
    BoolResult initAttributes(const ElementsRange& range, const core::BaseRequestOrigin& origin,
                              const boost::shared_ptr<BaseProcessor>& processor) override;

protected:
    BaseDynamicProcessorDispatcher();

private:
    std::vector<boost::shared_ptr<BaseDynamicSplit>> m_splits;
};

/// For tests and for chasing a doubt: from now on every dynamic dispatcher of this process cuts pieces of that many rows;
/// 0 goes back to the library's own choice. Results never depend on it.
KOVISBASEPROCESSING_EXPORT void setStripHeight(unsigned long nbRows);

namespace detail
{
/// The part of a dispatcher that knows its processor's class.
template <class TBase, class TProcessor>
class BoundDispatcher : public TBase
{
public:
    const std::string& getProcessorName() const override { return TProcessor::getObjectNameStr(); }
    const std::string& getProcessorToolTip() const override { return TProcessor::getToolTipStr(); }
    boost::shared_ptr<BaseProcessor> createProcessor() const override { return boost::make_shared<TProcessor>(); }
};
} // namespace detail

template <class TProcessor>
class StaticProcessorDispatcher : public detail::BoundDispatcher<BaseStaticProcessorDispatcher, TProcessor>
{
};

template <class TProcessor>
class DynamicProcessorDispatcher : public detail::BoundDispatcher<BaseDynamicProcessorDispatcher, TProcessor>
{
};
} // namespace kovis::processor
