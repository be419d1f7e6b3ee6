#include "CoreTestActions.h"

#include <gtest/gtest.h>

namespace
{
using namespace kovis;
using namespace kovis::test;

TEST(SingleActionProvider, GivesItsActionOnce)
{
    const TestActionPtr action = makeAction();
    core::SingleActionProvider provider;
    EXPECT_FALSE(provider.hasPendingAction());
    EXPECT_TRUE(provider.init(action).getResult());
    EXPECT_TRUE(provider.hasPendingAction());
    EXPECT_EQ(1U, provider.getNbPendingActions());

    boost::shared_ptr<core::BaseActionRequest> request;
    boost::shared_ptr<BaseSerializationObject> data;
    bool bGiven = false;
    EXPECT_TRUE(provider.queryNextAction(core::BaseRequestOrigin(), request, bGiven, data).getResult());
    ASSERT_TRUE(bGiven);
    ASSERT_TRUE(request);
    EXPECT_EQ(action, request->getAction());
    EXPECT_EQ(1.0, request->getShare());
    EXPECT_EQ(ElementsRange(0, 1), request->getRange());
    EXPECT_FALSE(data);
    EXPECT_FALSE(provider.hasPendingAction());
    EXPECT_EQ(0U, provider.getNbPendingActions());

    boost::shared_ptr<core::BaseActionRequest> none;
    EXPECT_TRUE(provider.queryNextAction(core::BaseRequestOrigin(1), none, bGiven, data).getResult());
    EXPECT_FALSE(bGiven);
    EXPECT_FALSE(none);

    bool bFinished = false;
    EXPECT_TRUE(provider.notifyDerived(request, data, bFinished).getResult());
    EXPECT_TRUE(bFinished);
}

TEST(SingleActionProvider, RefusesAnEmptyPointer)
{
    core::SingleActionProvider provider;
    const BoolResult result = provider.init({});
    EXPECT_FALSE(result.getResult());
    EXPECT_EQ("There is no action to run: the pointer is empty", result.getMessage());
    EXPECT_FALSE(provider.hasPendingAction());
}

TEST(SingleActionProvider, GivesNothingWhenClearedOrCancelled)
{
    boost::shared_ptr<core::BaseActionRequest> request;
    boost::shared_ptr<BaseSerializationObject> data;
    bool bGiven = true;
    core::SingleActionProvider cleared;
    TestActionPtr action = makeAction();
    const boost::weak_ptr<TestAction> watch = action;
    EXPECT_TRUE(cleared.init(action).getResult());
    action.reset();
    cleared.clearDerived();
    EXPECT_TRUE(watch.expired());
    EXPECT_FALSE(cleared.hasPendingAction());
    EXPECT_TRUE(cleared.queryNextAction(core::BaseRequestOrigin(), request, bGiven, data).getResult());
    EXPECT_FALSE(bGiven);

    core::SingleActionProvider cancelled;
    EXPECT_TRUE(cancelled.init(makeAction()).getResult());
    cancelled.requestCancellationDerived();
    EXPECT_FALSE(cancelled.hasPendingAction());
    bGiven = true;
    EXPECT_TRUE(cancelled.queryNextAction(core::BaseRequestOrigin(), request, bGiven, data).getResult());
    EXPECT_FALSE(bGiven);
}

TEST(SingleActionProvider, ItsActionRunsOnTheCallingThread)
{
    const Concurrency concurrency(4);
    std::thread::id thread;
    const auto provider = boost::make_shared<core::SingleActionProvider>();
    EXPECT_TRUE(provider
                    ->init(makeAction(
                        [&](TestAction&)
                        {
                            thread = std::this_thread::get_id();
                            return BoolResult(true);
                        }))
                    .getResult());
    core::runProvider(provider);
    EXPECT_EQ(std::this_thread::get_id(), thread);
}
} // namespace
