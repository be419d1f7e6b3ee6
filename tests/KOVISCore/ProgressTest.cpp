// Progress: how far a run has come, over all its levels.
#include "CoreTestActions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{
using namespace kovis;
using namespace kovis::test;

TEST(Progress, GrowsByEveryPiece)
{
    const Concurrency one(1);
    std::vector<double> seen;
    TestActionPtr action;
    action = makeAction(makeTree({2, 5},
                                 [&](TestAction&)
                                 {
                                     seen.push_back(action->getProgress());
                                     return BoolResult(true);
                                 }));
    core::executeAction(action);
    ASSERT_EQ(10U, seen.size());
    for (std::size_t i = 0; i < seen.size(); ++i)
    {
        EXPECT_NEAR(static_cast<double>(i) / 10.0, seen[i], 1e-12);
    }
    EXPECT_EQ(1.0, action->getProgress());
}

TEST(Progress, APieceHasItsOwn)
{
    const Concurrency one(1);
    std::vector<double> seen;
    core::executeAction(makeNested(2,
                                   [&](TestAction& middle)
                                   {
                                       return BoolResult(middle.runNested(makeProvider(4,
                                                                                       [&](TestAction&)
                                                                                       {
                                                                                           seen.push_back(middle.getProgress());
                                                                                           return BoolResult(true);
                                                                                       })));
                                   }));
    ASSERT_EQ(8U, seen.size());
    for (std::size_t i = 0; i < seen.size(); ++i)
    {
        EXPECT_NEAR(static_cast<double>(i % 4) / 4.0, seen[i], 1e-12);
    }
}

TEST(Progress, StepsCountByTheirShares)
{
    const Concurrency one(1);
    std::vector<double> seen;
    const TestActionPtr action = makeAction(
        [&](TestAction& self)
        {
            const TestAction::Work leaf = [&](TestAction&)
            {
                seen.push_back(self.getProgress());
                return BoolResult(true);
            };
            const double third = self.getProgressShare() / 3.0;
            const bool bFirst = core::detail::runNestedProvider(makeProvider(2, leaf), self.getRunContext(), third);
            // A step without work.
            core::detail::addProgress(self.getRunContext(), third);
            const bool bThird = core::detail::runNestedProvider(makeProvider(1, leaf), self.getRunContext(), third);
            return BoolResult(bFirst && bThird);
        });
    core::executeAction(action);
    ASSERT_EQ(3U, seen.size());
    EXPECT_NEAR(0.0, seen[0], 1e-12);
    EXPECT_NEAR(1.0 / 6.0, seen[1], 1e-12);
    EXPECT_NEAR(2.0 / 3.0, seen[2], 1e-12);
}

TEST(Progress, AProviderWithoutSharesCountsAtItsEnd)
{
    double seen = 0.0;
    core::executeAction(makeAction(
        [&](TestAction& self)
        {
            const auto provider = makeProvider(3, [](TestAction&) { return BoolResult(true); });
            provider->m_bShares = false;
            const bool bDone = core::detail::runNestedProvider(provider, self.getRunContext(), 0.5);
            seen = self.getProgress();
            return BoolResult(bDone);
        }));
    EXPECT_NEAR(0.5, seen, 1e-12);
}

TEST(Progress, TakesNoNonsense)
{
    const TestActionPtr action = makeAction(
        [&](TestAction& self)
        {
            for (const double share : {-1.0, std::numeric_limits<double>::quiet_NaN(), 0.25})
            {
                core::detail::addProgress(self.getRunContext(), share);
            }
            EXPECT_EQ(0.25, self.getProgress());
            core::detail::addProgress(self.getRunContext(), std::numeric_limits<double>::infinity());
            EXPECT_LT(self.getProgress(), 1.0);
            return BoolResult(true);
        });
    core::executeAction(action);
    EXPECT_EQ(1.0, action->getProgress());
}

TEST(Progress, NeverGoesBackAndIsOneOnlyWhenDone)
{
    const Concurrency concurrency(4);
    for (int round = 0; round < 5; ++round)
    {
        const TestActionPtr action = makeAction(makeTree({3, 7, 31},
                                                         [](TestAction&)
                                                         {
                                                             std::this_thread::yield();
                                                             return BoolResult(true);
                                                         }));
        ASSERT_TRUE(action->run(core::eST_Asynchronous).getResult());
        double last = 0.0;
        bool bMonotone = true;
        bool bEarlyOne = false;
        while (action->getState() == core::eActionState::running)
        {
            const double progress = action->getProgress();
            // Asked again afterwards: 1 is only right if the end has come.
            bEarlyOne = bEarlyOne || (progress >= 1.0 && action->getState() != core::eActionState::done);
            bMonotone = bMonotone && progress >= last;
            last = progress;
        }
        EXPECT_TRUE(bMonotone);
        EXPECT_FALSE(bEarlyOne);
        EXPECT_TRUE(action->wait().getResult());
        EXPECT_EQ(1.0, action->getProgress());
    }
}

TEST(Progress, StaysWhereAFailedRunStopped)
{
    const Concurrency one(1);
    int nbPieces = 0;
    const TestActionPtr action = makeNested(10, [&](TestAction&) { return BoolResult(++nbPieces < 6, "sixth"); });
    EXPECT_EQ("sixth", action->run(core::eST_Synchronous).getMessage());
    EXPECT_NEAR(0.5, action->getProgress(), 1e-12);
}
} // namespace
