// Dispatchers: pieces, the processors made for them, and splits that do not fit.
#include "ProcessorTestTypes.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISBaseProcessing/NoSplit.h"
#include "KOVIS/KOVISCore/KOVISCoreLog.h"
#include "KOVIS/KOVISCore/Scheduler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <mutex>
#include <set>

namespace
{
using namespace kovis;
using namespace kovis::test;
using namespace kovis::processor;
using core::KOVISCoreException;
using testing::HasSubstr;

std::mutex g_mutex;

/// The pieces' processor: writes down what it was given.
class ToyPiece : public ToyProcessor<ToyPiece, BaseSyncProcessor>
{
    KOVIS_TOY_NAMES(ToyPiece)

public:
    static inline std::vector<std::pair<int, int>> g_seen;
    static inline std::set<const void*> g_processors;
    static inline std::vector<boost::shared_ptr<BaseProcessor>> g_kept;
    static inline std::vector<int> g_priorities;
    static inline std::function<BoolResult(int)> g_work;
    static inline bool g_bInitFails = false;
    static inline bool g_bRuleHolds = true;

    static void reset()
    {
        g_seen.clear();
        g_processors.clear();
        g_kept.clear();
        g_priorities.clear();
        g_work = nullptr;
        g_bInitFails = false;
        g_bRuleHolds = true;
    }

protected:
    BoolResult initDerived(Attributes& attributes, Initializers&, ProcessorDispatchPolicy&, boost::shared_ptr<BaseRule>& rule,
                           const eProcessorRulePolicy& rulePolicy) override
    {
        if (g_bInitFails)
        {
            return BoolResult(false, "no piece today");
        }
        attributes = {boost::make_shared<InToy>(), boost::make_shared<InToy2>()};
        if (rulePolicy == ePRP_Rules)
        {
            rule = boost::make_shared<ToyRule>("piece rule", g_bRuleHolds);
        }
        return BoolResult(true);
    }
    BoolResult mainProcess() override
    {
        const int value = *getStorage<InToy>();
        {
            const std::lock_guard lock(g_mutex);
            g_seen.emplace_back(value, *getStorage<InToy2>());
            g_processors.insert(this);
            // Kept alive, so that no two pieces can have the same address.
            g_kept.push_back(boost::static_pointer_cast<BaseProcessor>(shared_from_this()));
            g_priorities.push_back(getActionPriority().getValue());
        }
        return g_work ? g_work(value) : BoolResult(true);
    }
};

/// Gives each piece its index, or the place where its elements begin.
class ToyStaticSplit : public processor::detail::BoundSplit<BaseStaticSplit, ToyPiece, InToy>
{
public:
    void initBase(unsigned long nbPieces)
    {
        ElementsLocationInfo location;
        location.insertNonLocalized(ElementsRange(0, nbPieces), 0);
        initBaseSplitted(location);
    }
    eSplitStaticType getSplitStaticType() const override { return eSST_SubImage; }
    BoolResult processAttribute(BaseProcessor& processor, unsigned int index, const core::BaseRequestOrigin&) override
    {
        return static_cast<int>(index) == m_badIndex ? BoolResult(false, "no such piece")
                                                     : setAttribute(processor, toyValue(static_cast<int>(index)));
    }
    int m_badIndex = -1;
};

class ToyDynamicSplit : public processor::detail::BoundSplit<BaseDynamicSplit, ToyPiece, InToy>
{
public:
    void initBase(unsigned long nbElements, unsigned long rowLength, std::size_t elementBytes)
    {
        ElementsLocationInfo location;
        location.insertNonLocalized(ElementsRange(0, nbElements), 0);
        initDynamic(location, rowLength, elementBytes);
    }
    eSplitDynamicType getSplitDynamicType() const override { return eSDT_ImageStrip; }
    BoolResult processAttribute(BaseProcessor& processor, unsigned long begin, unsigned long end,
                                const core::BaseRequestOrigin&) override
    {
        {
            const std::lock_guard lock(g_mutex);
            m_ranges.emplace_back(begin, end);
        }
        return setAttribute(processor, toyValue(static_cast<int>(begin)));
    }
    std::vector<std::pair<unsigned long, unsigned long>> m_ranges;
};

/// The second attribute's split, for vectors of splits that disagree.
template <class TSplit>
class SecondSplit : public TSplit
{
public:
    const std::string& getAttributeName() const override { return InToy2::getObjectNameStr(); }
};

boost::shared_ptr<ToyStaticSplit> staticSplit(unsigned long nbPieces)
{
    const auto split = boost::make_shared<ToyStaticSplit>();
    split->initBase(nbPieces);
    return split;
}

boost::shared_ptr<ToyDynamicSplit> dynamicSplit(unsigned long nbElements, unsigned long rowLength, std::size_t elementBytes = 4)
{
    const auto split = boost::make_shared<ToyDynamicSplit>();
    split->initBase(nbElements, rowLength, elementBytes);
    return split;
}

using StaticSplits = std::vector<boost::shared_ptr<BaseStaticSplit>>;
using DynamicSplits = std::vector<boost::shared_ptr<BaseDynamicSplit>>;

class Dispatcher : public testing::Test
{
protected:
    void SetUp() override { ToyPiece::reset(); }
    void TearDown() override
    {
        setStripHeight(0);
        ToyPiece::reset();
    }
};

TEST_F(Dispatcher, EachPieceGetsAProcessorOfItsOwn)
{
    const auto dispatcher = boost::make_shared<StaticProcessorDispatcher<ToyPiece>>();
    EXPECT_EQ("ToyPiece", dispatcher->getProcessorName());
    EXPECT_EQ("tip of ToyPiece", dispatcher->getProcessorToolTip());
    ASSERT_TRUE(
        dispatcher->initBase(core::BasePriority(3), StaticSplits{staticSplit(50), staticNoSplit<ToyPiece, InToy2>(toyValue(9))})
            .getResult());
    EXPECT_EQ(50U, dispatcher->getNbPieces());
    EXPECT_EQ(50U, dispatcher->getNbPendingActions());
    EXPECT_TRUE(dispatcher->hasPendingAction());
    core::runProvider(dispatcher);
    EXPECT_FALSE(dispatcher->hasPendingAction());
    std::sort(ToyPiece::g_seen.begin(), ToyPiece::g_seen.end());
    ASSERT_EQ(50U, ToyPiece::g_seen.size());
    for (int i = 0; i < 50; ++i)
    {
        EXPECT_EQ(std::pair(i, 9), ToyPiece::g_seen[static_cast<std::size_t>(i)]);
    }
    EXPECT_EQ(50U, ToyPiece::g_processors.size());
    EXPECT_THAT(ToyPiece::g_priorities, testing::Each(3));
}

TEST_F(Dispatcher, AValueThatIsNotCutReachesEveryPieceUncopied)
{
    const auto value = toyValue(9);
    const auto split = staticNoSplit<ToyPiece, InToy2>(value);
    EXPECT_EQ(eSST_NoSplit, split->getSplitStaticType());
    EXPECT_EQ(eSBT_Static, split->getSplitBaseType());
    EXPECT_EQ("InToy2", split->getAttributeName());
    EXPECT_EQ("tip of InToy2", split->getAttributeToolTip());
    EXPECT_TRUE(split->isUnSplitted());
    const auto dispatcher = boost::make_shared<StaticProcessorDispatcher<ToyPiece>>();
    dispatcher->initBase(core::BasePriority(), StaticSplits{staticSplit(3), split});
    core::runProvider(dispatcher);
    for (const auto& kept : ToyPiece::g_kept)
    {
        EXPECT_EQ(value, boost::dynamic_pointer_cast<ToyPiece>(kept)->getStorage<InToy2>());
    }
    EXPECT_EQ(eSBT_Dynamic, (dynamicNoSplit<ToyPiece, InToy2>(value)->getSplitBaseType()));
    EXPECT_EQ(eSDT_NoSplit, (dynamicNoSplit<ToyPiece, InToy2>(value)->getSplitDynamicType()));
}

TEST_F(Dispatcher, SplitsOfDifferentNumbersOfPiecesAreBothNamed)
{
    const auto second = boost::make_shared<SecondSplit<ToyStaticSplit>>();
    second->initBase(4);
    StaticProcessorDispatcher<ToyPiece> dispatcher;
    const BoolResult result = dispatcher.initBase(
        core::BasePriority(), StaticSplits{staticNoSplit<ToyPiece, InToy2>(toyValue(9)), staticSplit(3), second});
    EXPECT_FALSE(result.getResult());
    EXPECT_EQ(
        "the splits for processor ToyPiece do not fit each other: attribute InToy is cut into 3 pieces, attribute InToy2 into 4",
        result.getMessage());
}

TEST_F(Dispatcher, SplitsThatCannotBeUsedAreRefused)
{
    StaticProcessorDispatcher<ToyPiece> dispatcher;
    EXPECT_THAT(dispatcher.initBase(core::BasePriority(), StaticSplits{}).getMessage(), HasSubstr("needs at least one split"));
    EXPECT_THAT(dispatcher.initBase(core::BasePriority(), StaticSplits{staticSplit(1), nullptr}).getMessage(),
                HasSubstr("no split at place 1"));
    EXPECT_THAT(dispatcher.initBase(core::BasePriority(), StaticSplits{boost::make_shared<ToyStaticSplit>()}).getMessage(),
                HasSubstr("split of attribute InToy of processor ToyPiece must be initialised"));
    EXPECT_THAT(dispatcher.initBase(core::BasePriority(), StaticSplits{staticSplit(1UL << 33)}).getMessage(),
                HasSubstr("too many"));
    DynamicProcessorDispatcher<ToyPiece> dynamic;
    EXPECT_FALSE(dynamic.initBase(core::BasePriority(), DynamicSplits{}).getResult());
    const auto second = boost::make_shared<SecondSplit<ToyDynamicSplit>>();
    second->initBase(120, 10, 4);
    EXPECT_THAT(dynamic.initBase(core::BasePriority(), DynamicSplits{dynamicSplit(100, 10), second}).getMessage(),
                HasSubstr("attribute InToy has 100 elements, attribute InToy2 has 120"));
    second->initBase(100, 20, 4);
    EXPECT_THAT(dynamic.initBase(core::BasePriority(), DynamicSplits{dynamicSplit(100, 10), second}).getMessage(),
                HasSubstr("attribute InToy has rows of 10 elements, attribute InToy2 has rows of 20"));
}

TEST_F(Dispatcher, OnlyValuesThatAreNotCutMakeOnePiece)
{
    const auto dispatcher = boost::make_shared<DynamicProcessorDispatcher<ToyPiece>>();
    ASSERT_TRUE(dispatcher
                    ->initBase(core::BasePriority(), DynamicSplits{dynamicNoSplit<ToyPiece, InToy>(toyValue(1)),
                                                                   dynamicNoSplit<ToyPiece, InToy2>(toyValue(2))})
                    .getResult());
    core::runProvider(dispatcher);
    EXPECT_THAT(ToyPiece::g_seen, testing::ElementsAre(std::pair(1, 2)));
}

/// Makes processors of another class than its splits serve.
class WrongDispatcher : public StaticProcessorDispatcher<ToyPiece>
{
public:
    boost::shared_ptr<BaseProcessor> createProcessor() const override
    {
        return m_bNothing ? nullptr : boost::make_shared<ToySyncProcessor>();
    }
    bool m_bNothing = false;
};

std::string getFailure(const core::ActionProviderPtr& provider)
{
    try
    {
        core::runProvider(provider);
    }
    catch (const KOVISCoreException& e)
    {
        return e.what();
    }
    return std::string();
}

TEST_F(Dispatcher, AProcessorOfAnotherClassIsNotTouched)
{
    EXPECT_FALSE(staticSplit(1)->checkProcessorType(ToySyncProcessor()));
    EXPECT_TRUE(staticSplit(1)->checkProcessorType(ToyPiece()));
    const auto dispatcher = boost::make_shared<WrongDispatcher>();
    dispatcher->initBase(core::BasePriority(), StaticSplits{staticSplit(1)});
    EXPECT_THAT(getFailure(dispatcher), HasSubstr("split of attribute InToy does not serve processor ToyPiece"));
    dispatcher->m_bNothing = true;
    dispatcher->initBase(core::BasePriority(), StaticSplits{staticSplit(1)});
    EXPECT_THAT(getFailure(dispatcher), HasSubstr("made no processor"));
}

TEST_F(Dispatcher, WhatFailsInAPieceIsTheMessage)
{
    const auto run = [](int badIndex)
    {
        const auto split = staticSplit(8);
        split->m_badIndex = badIndex;
        const auto dispatcher = boost::make_shared<StaticProcessorDispatcher<ToyPiece>>();
        dispatcher->initBase(core::BasePriority(), StaticSplits{split, staticNoSplit<ToyPiece, InToy2>(toyValue(9))});
        return getFailure(dispatcher);
    };
    EXPECT_EQ("no such piece", run(5));
    EXPECT_EQ("", run(-1));
    ToyPiece::g_bInitFails = true;
    EXPECT_EQ("no piece today", run(-1));
    ToyPiece::g_bInitFails = false;
    // Rules are tested at every level.
    ToyPiece::g_bRuleHolds = false;
    EXPECT_EQ("piece rule with values", run(-1));
    ToyPiece::g_bRuleHolds = true;
    ToyPiece::g_work = [](int value) { return BoolResult(value != 3, "three is bad"); };
    EXPECT_EQ("three is bad", run(-1));
    ToyPiece::g_work = nullptr;
    EXPECT_EQ("", run(-1));
}

TEST_F(Dispatcher, ItGivesOutEachPieceOnceAndTellsTheLast)
{
    StaticProcessorDispatcher<ToyPiece> dispatcher;
    dispatcher.initBase(core::BasePriority(), StaticSplits{staticSplit(3)});
    double share = 0.0;
    for (unsigned int i = 0; i < 4; ++i)
    {
        boost::shared_ptr<core::BaseActionRequest> request;
        boost::shared_ptr<BaseSerializationObject> data;
        bool bGiven = false;
        ASSERT_TRUE(dispatcher.queryNextAction(core::BaseRequestOrigin(), request, bGiven, data).getResult());
        ASSERT_EQ(i < 3, bGiven);
        if (!bGiven)
        {
            EXPECT_EQ(nullptr, request);
            break;
        }
        EXPECT_EQ(ElementsRange(i, i + 1), request->getRange());
        share += request->getShare();
        bool bFinished = false;
        ASSERT_TRUE(dispatcher.notifyDerived(request, nullptr, bFinished).getResult());
        EXPECT_EQ(i == 2, bFinished);
    }
    EXPECT_NEAR(1.0, share, 1e-12);
    bool bFinished = true;
    EXPECT_FALSE(dispatcher.notifyDerived(nullptr, nullptr, bFinished).getResult());
    EXPECT_FALSE(bFinished);
}

TEST_F(Dispatcher, NothingIsGivenAfterCancellationOrClearing)
{
    for (const bool bCancel : {true, false})
    {
        StaticProcessorDispatcher<ToyPiece> dispatcher;
        dispatcher.initBase(core::BasePriority(), StaticSplits{staticSplit(3)});
        bCancel ? dispatcher.requestCancellationDerived() : dispatcher.clearDerived();
        EXPECT_FALSE(dispatcher.hasPendingAction());
        boost::shared_ptr<core::BaseActionRequest> request;
        boost::shared_ptr<BaseSerializationObject> data;
        bool bGiven = true;
        EXPECT_TRUE(dispatcher.queryNextAction(core::BaseRequestOrigin(), request, bGiven, data).getResult());
        EXPECT_FALSE(bGiven);
    }
}

TEST_F(Dispatcher, PiecesCoverTheElementsOnceAtAnyStripHeight)
{
    for (const unsigned long rowLength : {1UL, 63UL, 64UL, 100UL, 5000UL, 100000UL})
    {
        for (const unsigned long nbRows : {1UL, 7UL, 40UL})
        {
            for (const unsigned long stripHeight : {0UL, 1UL, 3UL, 40UL, 1000UL})
            {
                setStripHeight(stripHeight);
                const auto split = dynamicSplit(rowLength * nbRows, rowLength);
                const auto dispatcher = boost::make_shared<DynamicProcessorDispatcher<ToyPiece>>();
                ASSERT_TRUE(
                    dispatcher
                        ->initBase(core::BasePriority(), DynamicSplits{split, dynamicNoSplit<ToyPiece, InToy2>(toyValue(9))})
                        .getResult());
                core::runProvider(dispatcher);
                ToyPiece::reset();
                std::sort(split->m_ranges.begin(), split->m_ranges.end());
                unsigned long end = 0;
                for (const auto& range : split->m_ranges)
                {
                    ASSERT_EQ(end, range.first);
                    ASSERT_LT(range.first, range.second);
                    end = range.second;
                }
                ASSERT_EQ(rowLength * nbRows, end);
                if (stripHeight != 0)
                {
                    ASSERT_EQ((nbRows + stripHeight - 1) / stripHeight, split->m_ranges.size());
                }
            }
        }
    }
}
} // namespace
