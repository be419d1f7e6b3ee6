// Processors of steps: their order, their failures, progress and cancellation.
#include "ProcessorTestTypes.h"

#include "KOVIS/KOVISCore/KOVISCoreLog.h"
#include "KOVIS/KOVISCore/Scheduler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>

namespace
{
using namespace kovis;
using namespace kovis::test;
using core::ActionProviderPtr;
using core::KOVISCoreException;
using processor::RetrievalResult;
using testing::ElementsAre;
using testing::HasSubstr;

/// Work of one processor that calls `work`.
RetrievalResult provide(ActionProviderPtr& provider, std::function<BoolResult()> work)
{
    const auto piece = makeReadyProcessor();
    piece->m_hooks.m_main = std::move(work);
    const auto single = boost::make_shared<core::SingleActionProvider>();
    single->init(piece);
    provider = single;
    return RetrievalResult();
}

/// A processor of one step that only has the two-argument operation, as the classes of modules do.
class ToyOneStepProcessor : public ToyProcessor<ToyOneStepProcessor, processor::BaseAsync1Processor>
{
    KOVIS_TOY_NAMES(ToyOneStepProcessor)

public:
    int m_nbCalls = 0;
    core::BasePriority m_priority;
    using BaseAsync1Processor::getProcessorType;

protected:
    using BaseAsync1Processor::retrieveProvider;

    BoolResult initDerived(Attributes& attributes, Initializers&, processor::ProcessorDispatchPolicy&,
                           boost::shared_ptr<processor::BaseRule>&, const processor::eProcessorRulePolicy&) override
    {
        attributes.clear();
        return BoolResult(true);
    }
    RetrievalResult retrieveProvider(const core::BasePriority& priority, ActionProviderPtr& provider) override
    {
        ++m_nbCalls;
        m_priority = priority;
        return provide(provider, [] { return BoolResult(true); });
    }
};

TEST(AsyncProcessor, AsksEachStepWhenTheOneBeforeHasEnded)
{
    const auto processor = boost::make_shared<ToyStepProcessor>();
    processor->init();
    for (int step = 0; step < 3; ++step)
    {
        processor->m_steps[step] = [&, step](ActionProviderPtr& provider)
        {
            return provide(provider,
                           [&, step]
                           {
                               processor->m_log.push_back("work " + std::to_string(step));
                               return BoolResult(true);
                           });
        };
    }
    processor::executeSyncRun(processor);
    EXPECT_THAT(processor->m_log, ElementsAre("pre", "step 0", "work 0", "step 1", "work 1", "step 2", "work 2", "post", "end"));
    EXPECT_THAT(processor->m_stepNumbers, ElementsAre(std::pair(0U, 3U), std::pair(1U, 3U), std::pair(2U, 3U)));
    EXPECT_EQ(1.0, processor->getProgress());
    EXPECT_EQ(processor::eProcessorType::async3, processor->getProcessorType());
}

TEST(AsyncProcessor, AStepWithoutWorkIsPassedOver)
{
    const auto processor = boost::make_shared<ToyStepProcessor>();
    processor->init();
    double progress = -1.0;
    processor->m_steps[2] = [&](ActionProviderPtr& provider)
    {
        progress = processor->getProgress();
        return provide(provider, [] { return BoolResult(true); });
    };
    processor::executeSyncRun(processor);
    EXPECT_THAT(processor->m_log, ElementsAre("pre", "step 0", "step 1", "step 2", "post", "end"));
    EXPECT_NEAR(2.0 / 3.0, progress, 1e-9);
}

TEST(AsyncProcessor, StepsThatWillHaveWorkShareTheProgress)
{
    const auto processor = boost::make_shared<ToyStepProcessor>();
    processor->init();
    std::vector<double> progress;
    const auto look = [&]
    {
        progress.push_back(processor->getProgress());
        return BoolResult(true);
    };
    processor->m_steps[0] = [&](ActionProviderPtr& provider)
    {
        processor->setNbWorkingSteps(2);
        return provide(provider, look);
    };
    processor->m_steps[2] = [&](ActionProviderPtr& provider) { return provide(provider, look); };
    processor::executeSyncRun(processor);
    ASSERT_EQ(2U, progress.size());
    EXPECT_EQ(0.0, progress[0]);
    EXPECT_NEAR(0.5, progress[1], 1e-9);

    // It holds for one run.
    progress.clear();
    processor->m_steps[0] = [&](ActionProviderPtr& provider) { return provide(provider, look); };
    processor::executeSyncRun(processor);
    ASSERT_EQ(2U, progress.size());
    EXPECT_NEAR(2.0 / 3.0, progress[1], 1e-9);
}

TEST(AsyncProcessor, TheOneStepReachesTheTwoArgumentOperation)
{
    const auto processor = boost::make_shared<ToyOneStepProcessor>();
    processor->init();
    processor->setActionPriority(core::BasePriority(5));
    processor::executeSyncRun(processor);
    EXPECT_EQ(1, processor->m_nbCalls);
    EXPECT_EQ(5, processor->m_priority.getValue());
    EXPECT_EQ(processor::eProcessorType::async1, processor->getProcessorType());
}

TEST(AsyncProcessor, AFailedStepEndsTheRunWithItsMessage)
{
    const auto processor = boost::make_shared<ToyStepProcessor>();
    processor->init();
    processor->m_steps[1] = [](ActionProviderPtr&) { return RetrievalResult(processor::eRS_Failed, "no such step"); };
    EXPECT_EQ("no such step", getRunFailure<KOVISCoreException>(processor));
    EXPECT_THAT(processor->m_log, ElementsAre("pre", "step 0", "step 1"));
    EXPECT_EQ(nullptr, processor->m_out->getStorage());

    processor->m_steps[1] = [](ActionProviderPtr&) { return RetrievalResult(processor::eRS_Failed); };
    EXPECT_EQ("step 1 of 3 of processor ToyStepProcessor failed, and gave no reason",
              getRunFailure<KOVISCoreException>(processor));
    processor->m_steps[1] = [](ActionProviderPtr&) { return RetrievalResult(processor::eRS_Provided); };
    EXPECT_EQ("step 1 of 3 of processor ToyStepProcessor promised work and gave no provider of it",
              getRunFailure<KOVISCoreException>(processor));
    processor->m_steps[1] = [](ActionProviderPtr&) { return RetrievalResult(static_cast<processor::eRetrievalStatus>(3)); };
    EXPECT_THAT(getRunFailure<KOVISCoreException>(processor), HasSubstr("answered the status 3"));
    processor->m_steps[1] = [](ActionProviderPtr&) -> RetrievalResult { throw std::domain_error("thrown in a step"); };
    EXPECT_EQ("thrown in a step", getRunFailure<std::domain_error>(processor));
}

TEST(AsyncProcessor, AnExceptionInNestedWorkArrivesOnceAndUnchanged)
{
    struct OwnError
    {
        int m_number;
    };
    const auto processor = boost::make_shared<ToyStepProcessor>();
    processor->init();
    processor->m_steps[0] = [](ActionProviderPtr& provider)
    {
        std::vector<boost::shared_ptr<core::BaseAction>> pieces;
        for (int i = 0; i < 64; ++i)
        {
            const auto piece = makeReadyProcessor();
            piece->m_hooks.m_main = [i]() -> BoolResult
            {
                if (i % 8 == 7)
                {
                    throw OwnError{i};
                }
                return BoolResult(true);
            };
            pieces.push_back(piece);
        }
        provider = boost::make_shared<ToyProvider>(pieces);
        return RetrievalResult();
    };
    for (int round = 0; round < 20; ++round)
    {
        try
        {
            processor::executeSyncRun(processor);
            FAIL();
        }
        catch (const OwnError& e)
        {
            EXPECT_EQ(7, e.m_number % 8);
        }
        EXPECT_EQ(core::eActionState::failed, processor->getState());
        EXPECT_EQ(nullptr, processor->m_out->getStorage());
    }
    processor->m_steps[0] = nullptr;
    processor->m_log.clear();
    processor::executeSyncRun(processor);
    EXPECT_THAT(processor->m_log, ElementsAre("pre", "step 0", "step 1", "step 2", "post", "end"));
    EXPECT_NE(nullptr, processor->m_out->getStorage());
}

TEST(AsyncProcessor, CancellationEndsTheRunBetweenSteps)
{
    const auto processor = boost::make_shared<ToyStepProcessor>();
    processor->init();
    std::promise<void> begun;
    std::promise<void> goOn;
    processor->m_steps[0] = [&](ActionProviderPtr& provider)
    {
        return provide(provider,
                       [&]
                       {
                           begun.set_value();
                           goOn.get_future().wait();
                           return BoolResult(true);
                       });
    };
    EXPECT_TRUE(processor->run(core::eST_Asynchronous).getResult());
    begun.get_future().wait();
    EXPECT_NE(nullptr, processor->m_out->getStorage());
    processor->requestCancellation();
    goOn.set_value();
    const BoolResult result = processor->wait();
    EXPECT_FALSE(result.getResult());
    EXPECT_THAT(result.getMessage(), HasSubstr("cancelled"));
    EXPECT_EQ(core::eActionState::cancelled, processor->getState());
    EXPECT_THAT(processor->m_log, ElementsAre("pre", "step 0"));
    EXPECT_EQ(nullptr, processor->m_out->getStorage());
    EXPECT_LT(processor->getProgress(), 1.0);

    processor->m_steps[0] = nullptr;
    processor::executeSyncRun(processor);
    EXPECT_EQ(core::eActionState::done, processor->getState());
}

TEST(AsyncProcessor, CancellationInsideAStepOfNoWorkStopsBeforeTheNext)
{
    const auto processor = boost::make_shared<ToyStepProcessor>();
    processor->init();
    processor->m_steps[1] = [&](ActionProviderPtr&)
    {
        processor->requestCancellation();
        return RetrievalResult(processor::eRS_NoWork);
    };
    EXPECT_THAT(getRunFailure<KOVISCoreException>(processor), HasSubstr("cancelled"));
    EXPECT_THAT(processor->m_log, ElementsAre("pre", "step 0", "step 1"));
    EXPECT_EQ(core::eActionState::cancelled, processor->getState());
}
} // namespace
