// One action: its states, its hooks, who may run it and how it is watched.
#include "CoreTestActions.h"

#include "KOVIS/KOVISCore/KOVISCoreLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace
{
using namespace kovis;
using namespace kovis::test;
using core::eActionState;
using testing::ElementsAre;
using testing::HasSubstr;

struct OwnError
{
    int m_number;
};

TEST(ActionRun, CallsTheHooksInTheirOrder)
{
    const TestActionPtr action = makeAction();
    EXPECT_EQ(eActionState::idle, action->getState());
    EXPECT_EQ(0.0, action->getProgress());
    core::executeAction(action);
    EXPECT_EQ(eActionState::done, action->getState());
    EXPECT_EQ(1.0, action->getProgress());
    EXPECT_THAT(action->getHooks(), ElementsAre("syncInput", "run", "syncOutput", "clearIntermediate"));
}

TEST(ActionRun, FailureWithAMessageComesOutAsTheLibrarysException)
{
    const TestActionPtr action = makeAction([](TestAction&) { return BoolResult(false, "no 100% luck: %s"); });
    try
    {
        core::executeAction(action);
        FAIL();
    }
    catch (const core::KOVISCoreException& e)
    {
        EXPECT_STREQ("no 100% luck: %s", e.what());
    }
    EXPECT_EQ(eActionState::failed, action->getState());
    EXPECT_LT(action->getProgress(), 1.0);
    EXPECT_THAT(action->getHooks(), ElementsAre("syncInput", "run", "cleanOnFailure", "clearIntermediate"));
    EXPECT_EQ("no 100% luck: %s", action->wait().getMessage());
    EXPECT_THROW(action->getRunResult(), core::KOVISCoreException);
}

TEST(ActionRun, FailureWithoutAMessageNamesTheAction)
{
    const TestActionPtr action = makeAction([](TestAction&) { return BoolResult(false); });
    const BoolResult result = action->run(core::eST_Synchronous);
    EXPECT_FALSE(result.getResult());
    EXPECT_THAT(result.getMessage(), HasSubstr("Action kovis::test::TestAction failed and gave no reason"));
}

TEST(ActionRun, FailureBeforeOrAfterTheWorkIsAFailureToo)
{
    const TestActionPtr before = makeAction();
    before->m_inputFailure = "no input";
    EXPECT_EQ("no input", before->run(core::eST_Synchronous).getMessage());
    EXPECT_THAT(before->getHooks(), ElementsAre("syncInput", "cleanOnFailure", "clearIntermediate"));

    const TestActionPtr after = makeAction();
    after->m_outputFailure = "no output";
    EXPECT_EQ("no output", after->run(core::eST_Synchronous).getMessage());
    EXPECT_THAT(after->getHooks(), ElementsAre("syncInput", "run", "syncOutput", "cleanOnFailure", "clearIntermediate"));
}

TEST(ActionRun, AnExceptionTravelsUnchangedWhateverItsType)
{
    const TestActionPtr action = makeAction([](TestAction&) -> BoolResult { throw OwnError{42}; });
    try
    {
        core::executeAction(action);
        FAIL();
    }
    catch (const OwnError& e)
    {
        EXPECT_EQ(42, e.m_number);
    }
    EXPECT_EQ(eActionState::failed, action->getState());
    EXPECT_THAT(action->wait().getMessage(), HasSubstr("threw something that is no std::exception"));
    // As often as it is asked for.
    EXPECT_THROW(action->getRunResult(), OwnError);
    EXPECT_THROW(action->getRunResult(), OwnError);
}

TEST(ActionRun, AnErrorOfTheCleaningDoesNotHideTheFirstOne)
{
    const TestActionPtr action = makeAction([](TestAction&) -> BoolResult { throw OwnError{1}; });
    action->m_bCleanThrows = true;
    EXPECT_THROW(core::executeAction(action), OwnError);
    EXPECT_EQ(1, action->countHook("cleanOnFailure"));
    EXPECT_EQ(1, action->countHook("clearIntermediate"));
}

TEST(ActionRun, EndsInTheBackground)
{
    Gate gate;
    std::thread::id runThread;
    const TestActionPtr action = makeAction(
        [&](TestAction&)
        {
            runThread = std::this_thread::get_id();
            return BoolResult(gate.wait());
        });
    EXPECT_TRUE(action->run(core::eST_Asynchronous).getResult());
    EXPECT_EQ(eActionState::running, action->getState());
    const BoolResult early = action->waitFor(std::chrono::milliseconds(1));
    EXPECT_FALSE(early.getResult());
    EXPECT_THAT(early.getMessage(), HasSubstr("is still running after 1 ms"));
    EXPECT_FALSE(action->waitFor(std::chrono::milliseconds(-5)).getResult());
    gate.open();
    EXPECT_TRUE(action->waitFor(std::chrono::milliseconds::max()).getResult());
    EXPECT_TRUE(action->wait().getResult());
    EXPECT_TRUE(action->getRunResult().getResult());
    EXPECT_EQ(eActionState::done, action->getState());
    EXPECT_EQ(1.0, action->getProgress());
    EXPECT_NE(std::this_thread::get_id(), runThread);
}

TEST(ActionRun, EndsInTheBackgroundOnOneThread)
{
    const Concurrency one(1);
    std::atomic<int> nbLeaves{0};
    std::vector<TestActionPtr> actions;
    for (int i = 0; i < 5; ++i)
    {
        actions.push_back(makeAction(makeTree({3, 3},
                                              [&](TestAction&)
                                              {
                                                  ++nbLeaves;
                                                  return BoolResult(true);
                                              })));
        EXPECT_TRUE(actions.back()->run(core::eST_Asynchronous).getResult());
    }
    for (const TestActionPtr& action : actions)
    {
        EXPECT_TRUE(action->wait().getResult());
    }
    EXPECT_EQ(5 * 9, nbLeaves.load());
}

TEST(ActionRun, FailureInTheBackgroundIsRethrown)
{
    const TestActionPtr action = makeAction([](TestAction&) -> BoolResult { throw std::out_of_range("too far"); });
    EXPECT_TRUE(action->run(core::eST_Asynchronous).getResult());
    EXPECT_EQ("too far", action->wait().getMessage());
    EXPECT_THROW(action->getRunResult(), std::out_of_range);
    EXPECT_EQ(eActionState::failed, action->getState());
}

TEST(ActionRun, BackgroundRunKeepsItsActionAlive)
{
    Gate begun;
    Gate gate;
    TestActionPtr action = makeAction(
        [&](TestAction&)
        {
            begun.open();
            return BoolResult(gate.wait());
        });
    const boost::weak_ptr<TestAction> watch = action;
    EXPECT_TRUE(action->run(core::eST_Asynchronous).getResult());
    action.reset();
    EXPECT_TRUE(begun.wait());
    EXPECT_FALSE(watch.expired());
    gate.open();
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!watch.expired() && std::chrono::steady_clock::now() < limit)
    {
        std::this_thread::yield();
    }
    EXPECT_TRUE(watch.expired());
}

TEST(ActionRun, BackgroundRunHasLetGoWhenItsEndIsTold)
{
    for (int i = 0; i < 200; ++i)
    {
        TestActionPtr action = makeAction();
        const boost::weak_ptr<TestAction> watch = action;
        ASSERT_TRUE(action->run(core::eST_Asynchronous).getResult());
        ASSERT_TRUE(action->wait().getResult());
        action.reset();
        ASSERT_TRUE(watch.expired());
    }
}

TEST(ActionRun, RefusesAnActionThatNobodyShares)
{
    TestAction action;
    for (const core::eSynchroType type : {core::eST_Synchronous, core::eST_Asynchronous})
    {
        const BoolResult result = action.run(type);
        EXPECT_FALSE(result.getResult());
        EXPECT_THAT(result.getMessage(), HasSubstr("make it with boost::make_shared"));
    }
    EXPECT_TRUE(action.getHooks().empty());
    EXPECT_EQ(eActionState::idle, action.getState());
}

TEST(ActionRun, RefusesAnUnknownWayToRun)
{
    const TestActionPtr action = makeAction();
    const BoolResult result = action->run(static_cast<core::eSynchroType>(7));
    EXPECT_FALSE(result.getResult());
    EXPECT_THAT(result.getMessage(), HasSubstr("in the way 7"));
    EXPECT_TRUE(action->getHooks().empty());
}

TEST(ActionRun, RefusesASecondRunAndAllowsALaterOne)
{
    Gate gate;
    const TestActionPtr action = makeAction([&](TestAction&) { return BoolResult(gate.wait()); });
    EXPECT_TRUE(action->run(core::eST_Asynchronous).getResult());
    EXPECT_THAT(action->run(core::eST_Asynchronous).getMessage(), HasSubstr("is running already"));
    EXPECT_THAT(action->run(core::eST_Synchronous).getMessage(), HasSubstr("is running already"));
    EXPECT_THROW(core::executeAction(action), core::KOVISCoreException);
    EXPECT_EQ(eActionState::running, action->getState());
    gate.open();
    EXPECT_TRUE(action->wait().getResult());
    EXPECT_EQ(1, action->countHook("run"));
    EXPECT_TRUE(action->run(core::eST_Asynchronous).getResult());
    EXPECT_TRUE(action->wait().getResult());
    EXPECT_TRUE(action->run(core::eST_Synchronous).getResult());
    EXPECT_EQ(3, action->countHook("run"));
}

TEST(ActionRun, ALaterRunStartsAfresh)
{
    bool bFail = true;
    const TestActionPtr action = makeAction([&](TestAction&) { return BoolResult(!bFail, bFail ? "not yet" : ""); });
    EXPECT_THROW(core::executeAction(action), core::KOVISCoreException);
    bFail = false;
    core::executeAction(action);
    EXPECT_EQ(eActionState::done, action->getState());
    EXPECT_TRUE(action->getRunResult().getResult());
    EXPECT_TRUE(action->wait().getMessage().empty());
}

TEST(ActionRun, WaitingForNothingSaysSo)
{
    const TestActionPtr action = makeAction();
    EXPECT_THAT(action->wait().getMessage(), HasSubstr("has not been run"));
    EXPECT_THAT(action->waitFor(std::chrono::milliseconds(0)).getMessage(), HasSubstr("has not been run"));
    EXPECT_FALSE(action->getRunResult().getResult());
    action->requestCancellation();
    EXPECT_TRUE(action->getHooks().empty());
    EXPECT_EQ(eActionState::idle, action->getState());
}

TEST(ActionRun, WaitingInsideItsOwnRunIsRefused)
{
    std::string message;
    const TestActionPtr action = makeAction(
        [&](TestAction& self)
        {
            message = self.wait().getMessage();
            return BoolResult(true);
        });
    core::executeAction(action);
    EXPECT_THAT(message, HasSubstr("cannot be waited for from inside its own run"));
}

TEST(ActionRun, ItsPartInARunIsThereOnlyInside)
{
    double share = 0.0;
    const TestActionPtr action = makeAction(
        [&](TestAction& self)
        {
            share = self.getProgressShare();
            return BoolResult(true);
        });
    EXPECT_THROW(action->getRunContext(), core::KOVISCoreException);
    EXPECT_THROW(action->getProgressShare(), core::KOVISCoreException);
    core::executeAction(action);
    EXPECT_EQ(1.0, share);
    EXPECT_THROW(action->getRunContext(), core::KOVISCoreException);
}

TEST(ActionRun, EmptyPointersAreRefused)
{
    EXPECT_THROW(core::executeAction({}), core::KOVISCoreException);
    EXPECT_THROW(core::runProvider({}), core::KOVISCoreException);
    const TestActionPtr action = makeAction([](TestAction& self) { return BoolResult(self.runNested({})); });
    EXPECT_THAT(action->run(core::eST_Synchronous).getMessage(), HasSubstr("There is no provider to run"));
}

TEST(ActionRun, CancellationOfAnActionThatRuns)
{
    Gate begun;
    Gate gate;
    const TestActionPtr action = makeAction(
        [&](TestAction& self)
        {
            begun.open();
            const bool bOpened = gate.wait();
            return BoolResult(bOpened && core::detail::isStopping(self.getRunContext()), "not told");
        });
    action->m_onCancel = [&]
    {
        EXPECT_EQ(eActionState::running, action->getState());
        gate.open();
    };
    EXPECT_TRUE(action->run(core::eST_Asynchronous).getResult());
    EXPECT_TRUE(begun.wait());
    action->requestCancellation();
    action->requestCancellation();
    const BoolResult result = action->wait();
    EXPECT_FALSE(result.getResult());
    EXPECT_EQ("Action kovis::test::TestAction was cancelled", result.getMessage());
    EXPECT_EQ(eActionState::cancelled, action->getState());
    EXPECT_EQ("Action kovis::test::TestAction was cancelled", action->getRunResult().getMessage());
    EXPECT_LT(action->getProgress(), 1.0);
    EXPECT_EQ(1, action->countHook("requestCancellation"));
    EXPECT_EQ(1, action->countHook("cleanOnCancellation"));
    EXPECT_EQ(0, action->countHook("cleanOnFailure"));
    EXPECT_EQ(0, action->countHook("syncOutput"));
}

TEST(ActionRun, CancelledActionRunsAgain)
{
    bool bCancel = true;
    const TestActionPtr action = makeAction(
        [&](TestAction& self)
        {
            if (bCancel)
            {
                self.requestCancellation();
            }
            return BoolResult(true);
        });
    try
    {
        core::executeAction(action);
        FAIL();
    }
    catch (const core::KOVISCoreException& e)
    {
        EXPECT_THAT(e.what(), HasSubstr("was cancelled"));
    }
    EXPECT_EQ(eActionState::cancelled, action->getState());
    bCancel = false;
    core::executeAction(action);
    EXPECT_EQ(eActionState::done, action->getState());
}
} // namespace
