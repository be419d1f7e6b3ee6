// Runs of many pieces: nesting, threads, floating-point settings, errors and cancellation.
#include "CoreTestActions.h"

#include "KOVIS/KOVISCore/KOVISCoreLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <xmmintrin.h>

#include <algorithm>
#include <cfenv>
#include <set>
#include <stdexcept>

namespace
{
using namespace kovis;
using namespace kovis::test;
using core::eActionState;
using testing::HasSubstr;

constexpr std::size_t g_nbMany = 1000;

TEST(Scheduler, RunsEveryPieceOfThreeLevelsOnce)
{
    for (const unsigned int nbThreads : {1U, 2U, 5U})
    {
        const Concurrency concurrency(nbThreads);
        std::atomic<int> nbLeaves{0};
        core::executeAction(makeAction(makeTree({7, 11, 13},
                                                [&](TestAction&)
                                                {
                                                    ++nbLeaves;
                                                    return BoolResult(true);
                                                })));
        EXPECT_EQ(7 * 11 * 13, nbLeaves.load());
    }
}

TEST(Scheduler, EveryPieceIsDoneAndNotified)
{
    const Concurrency concurrency(3);
    const auto provider = makeProvider(g_nbMany, [](TestAction&) { return BoolResult(true); });
    core::runProvider(provider);
    EXPECT_EQ(g_nbMany, provider->m_nbNotified);
    EXPECT_FALSE(provider->hasPendingAction());
    EXPECT_LE(provider->m_greatestWorker, 2U);
    for (const TestActionPtr& action : provider->m_actions)
    {
        EXPECT_EQ(eActionState::done, action->getState());
        EXPECT_EQ(1.0, action->getProgress());
        EXPECT_EQ(4U, action->getHooks().size());
    }
}

TEST(Scheduler, ThreadsWorkTogether)
{
    // Each piece waits for all the others, so that they must be under way at the same time.
    const Concurrency concurrency(4);
    Meeting meeting(4);
    core::runProvider(makeProvider(4, [&](TestAction&) { return BoolResult(meeting.arrive(), "alone"); }));
}

TEST(Scheduler, WaitingThreadHelpsBelow)
{
    // Two pieces above; the one ends at once, and its thread is needed below the other one.
    const Concurrency concurrency(2);
    Meeting meeting(2);
    std::atomic<int> nbPieces{0};
    core::runProvider(makeProvider(2,
                                   [&](TestAction& action)
                                   {
                                       if (nbPieces++ == 0)
                                       {
                                           return BoolResult(true);
                                       }
                                       return BoolResult(action.runNested(
                                           makeProvider(2, [&](TestAction&) { return BoolResult(meeting.arrive(), "alone"); })));
                                   }));
}

TEST(Scheduler, BackgroundRunUsesItsThreadsToo)
{
    const Concurrency concurrency(2);
    Meeting meeting(2);
    const TestActionPtr action = makeNested(2, [&](TestAction&) { return BoolResult(meeting.arrive(), "alone"); });
    EXPECT_TRUE(action->run(core::eST_Asynchronous).getResult());
    EXPECT_EQ("", action->wait().getMessage());
}

TEST(Scheduler, OneThreadIsTheCallingOne)
{
    const Concurrency concurrency(1);
    std::set<std::thread::id> threads;
    core::executeAction(makeAction(makeTree({5, 5, 5},
                                            [&](TestAction&)
                                            {
                                                threads.insert(std::this_thread::get_id());
                                                return BoolResult(true);
                                            })));
    EXPECT_EQ(std::set<std::thread::id>{std::this_thread::get_id()}, threads);
}

TEST(Scheduler, KeepsToItsThreads)
{
    for (const unsigned int nbThreads : {2U, 3U})
    {
        const Concurrency concurrency(nbThreads);
        std::atomic<int> nbNow{0};
        std::atomic<int> nbMost{0};
        core::executeAction(makeAction(makeTree({4, 5, 20},
                                                [&](TestAction&)
                                                {
                                                    const int now = ++nbNow;
                                                    int most = nbMost.load();
                                                    while (most < now && !nbMost.compare_exchange_weak(most, now))
                                                    {
                                                    }
                                                    std::this_thread::yield();
                                                    --nbNow;
                                                    return BoolResult(true);
                                                })));
        EXPECT_LE(nbMost.load(), static_cast<int>(nbThreads));
    }
}

TEST(Scheduler, ConcurrencyHasADefaultAndALimit)
{
    core::setMaxConcurrency(0);
    EXPECT_GE(core::getMaxConcurrency(), 1U);
    EXPECT_LE(core::getMaxConcurrency(), std::max(1U, std::thread::hardware_concurrency()));
    const Concurrency concurrency(1000000);
    EXPECT_EQ(256U, core::getMaxConcurrency());
}

// The control bits without the exception flags.
unsigned int getSettings()
{
    return _mm_getcsr() & ~0x3FU;
}

TEST(Scheduler, FloatingPointSettingsTravelWithTheRun)
{
    constexpr unsigned int flushToZero = 0x8000U;
    constexpr unsigned int denormalsAreZero = 0x0040U;
    const Concurrency concurrency(4);
    const unsigned int before = getSettings();
    for (const bool bBackground : {false, true})
    {
        ASSERT_EQ(0, std::fesetround(FE_UPWARD));
        _mm_setcsr(_mm_getcsr() | flushToZero | denormalsAreZero);
        const unsigned int expected = getSettings();
        Meeting meeting(4);
        std::atomic<int> nbWrong{0};
        const auto check = [&]
        {
            if (getSettings() != expected || std::fegetround() != FE_UPWARD)
            {
                ++nbWrong;
            }
        };
        // All four threads have a piece above, then many below.
        const TestActionPtr action = makeNested(4,
                                                [&](TestAction& self)
                                                {
                                                    const bool bMet = meeting.arrive();
                                                    check();
                                                    const bool bDone = self.runNested(makeProvider(200,
                                                                                                   [&](TestAction&)
                                                                                                   {
                                                                                                       check();
                                                                                                       return BoolResult(true);
                                                                                                   }));
                                                    check();
                                                    return BoolResult(bMet && bDone, "alone");
                                                });
        const BoolResult started = bBackground ? action->run(core::eST_Asynchronous) : action->run(core::eST_Synchronous);
        const unsigned int after = getSettings();
        _mm_setcsr(before);
        std::fesetround(FE_TONEAREST);
        EXPECT_TRUE(started.getResult()) << started.getMessage();
        EXPECT_TRUE(action->wait().getResult());
        EXPECT_EQ(0, nbWrong.load()) << (bBackground ? "in the background" : "to the end");
        EXPECT_EQ(expected, after);
    }
    // And the next run has this thread's settings again.
    std::atomic<int> nbWrong{0};
    Meeting meeting(4);
    core::runProvider(makeProvider(4,
                                   [&](TestAction&)
                                   {
                                       nbWrong += getSettings() == before && std::fegetround() == FE_TONEAREST ? 0 : 1;
                                       return BoolResult(meeting.arrive());
                                   }));
    EXPECT_EQ(0, nbWrong.load());
}

// Holds a piece until its run stops, so that no thread gets beyond it before.
void waitUntilStopping(const TestAction& action)
{
    while (!core::detail::isStopping(action.getRunContext()))
    {
        std::this_thread::yield();
    }
}

struct PieceError : std::runtime_error
{
    explicit PieceError(int number) : std::runtime_error("piece"), m_number(number) {}
    int m_number;
};

TEST(Scheduler, AnErrorOfAPieceArrivesOnceAndUnchanged)
{
    for (const unsigned int nbThreads : {1U, 4U})
    {
        const Concurrency concurrency(nbThreads);
        std::atomic<int> nbLeaves{0};
        bool bFails = true;
        const TestActionPtr action = makeAction(makeTree({3, 10, 10},
                                                         [&](TestAction& leaf) -> BoolResult
                                                         {
                                                             const int number = ++nbLeaves;
                                                             if (bFails && number == 17)
                                                             {
                                                                 throw PieceError(17);
                                                             }
                                                             if (bFails && number > 17)
                                                             {
                                                                 waitUntilStopping(leaf);
                                                             }
                                                             return BoolResult(true);
                                                         }));
        try
        {
            core::executeAction(action);
            FAIL();
        }
        catch (const PieceError& e)
        {
            EXPECT_EQ(17, e.m_number);
        }
        // What had not begun was dropped: a thread has no more than one piece under way.
        EXPECT_LT(nbLeaves.load(), 17 + static_cast<int>(nbThreads));
        EXPECT_EQ(1, action->countHook("cleanOnFailure"));
        // The process is fit for the next run.
        nbLeaves = 0;
        bFails = false;
        core::executeAction(action);
        EXPECT_EQ(300, nbLeaves.load());
    }
}

TEST(Scheduler, WhatHasNotBegunWhenAPieceFailsIsLeftAlone)
{
    const Concurrency one(1);
    std::size_t nbPieces = 0;
    const auto provider = makeProvider(20, [&](TestAction&) { return BoolResult(++nbPieces < 3, "third"); });
    EXPECT_THROW(core::runProvider(provider), core::KOVISCoreException);
    EXPECT_EQ(3U, nbPieces);
    EXPECT_EQ(2U, provider->m_nbNotified);
    EXPECT_TRUE(provider->m_bCleared);
    for (std::size_t i = 0; i < provider->m_actions.size(); ++i)
    {
        const eActionState expected = i < 2 ? eActionState::done : i == 2 ? eActionState::failed : eActionState::idle;
        EXPECT_EQ(expected, provider->m_actions[i]->getState()) << i;
        EXPECT_EQ(i > 2, provider->m_actions[i]->getHooks().empty()) << i;
    }
}

TEST(Scheduler, TheFirstErrorWins)
{
    const Concurrency concurrency(2);
    for (int i = 0; i < 20; ++i)
    {
        Meeting meeting(2);
        std::atomic<int> nbPieces{0};
        const auto provider = makeProvider(2,
                                           [&](TestAction& action) -> BoolResult
                                           {
                                               const int piece = nbPieces++;
                                               if (!meeting.arrive())
                                               {
                                                   return BoolResult(false, "alone");
                                               }
                                               if (piece == 0)
                                               {
                                                   throw PieceError(0);
                                               }
                                               waitUntilStopping(action);
                                               throw std::logic_error("too late");
                                           });
        EXPECT_THROW(core::runProvider(provider), PieceError);
        EXPECT_TRUE(provider->m_bCleared);
        // The one failed, and the other one did not get to its end.
        std::vector<eActionState> states{provider->m_actions[0]->getState(), provider->m_actions[1]->getState()};
        std::sort(states.begin(), states.end());
        EXPECT_EQ((std::vector<eActionState>{eActionState::failed, eActionState::cancelled}), states);
    }
}

TEST(Scheduler, AMessageOfAPieceArrivesUnchanged)
{
    const Concurrency concurrency(3);
    const TestActionPtr action =
        makeAction(makeTree({2, 50}, [](TestAction&) { return BoolResult(false, "the image is too small"); }));
    try
    {
        core::executeAction(action);
        FAIL();
    }
    catch (const core::KOVISCoreException& e)
    {
        EXPECT_STREQ("the image is too small", e.what());
    }
}

TEST(Scheduler, ErrorsOfAProviderAreErrorsOfTheRun)
{
    const auto good = [](TestAction&) { return BoolResult(true); };
    const auto getError = [](const boost::shared_ptr<ListProvider>& provider) -> std::string
    {
        try
        {
            core::runProvider(provider);
        }
        catch (const core::KOVISCoreException& e)
        {
            return e.what();
        }
        return "none";
    };
    auto provider = makeProvider(10, good);
    provider->m_failAt = 5;
    provider->m_failure = "no sixth piece";
    EXPECT_EQ("no sixth piece", getError(provider));
    EXPECT_TRUE(provider->m_bCleared);
    provider = makeProvider(10, good);
    provider->m_failAt = 0;
    EXPECT_THAT(getError(provider), HasSubstr("could not give its next action"));
    provider = makeProvider(10, good);
    provider->m_emptyAt = 3;
    EXPECT_THAT(getError(provider), HasSubstr("gave a request without an action"));
    provider = makeProvider(10, good);
    provider->m_notifyFailure = "not now";
    EXPECT_EQ("not now", getError(provider));
}

TEST(Scheduler, AnActionGivenTwiceIsRefused)
{
    const Concurrency concurrency(2);
    Gate gate;
    const TestActionPtr action = makeAction([&](TestAction&) { return BoolResult(gate.wait()); });
    EXPECT_TRUE(action->run(core::eST_Asynchronous).getResult());
    const auto provider = boost::make_shared<core::SingleActionProvider>();
    EXPECT_TRUE(provider->init(action).getResult());
    try
    {
        core::runProvider(provider);
        ADD_FAILURE();
    }
    catch (const core::KOVISCoreException& e)
    {
        EXPECT_THAT(e.what(), HasSubstr("is running already"));
    }
    gate.open();
    EXPECT_TRUE(action->wait().getResult());
}

TEST(Scheduler, CancellationDropsWhatHasNotBegunAndWaitsForTheRest)
{
    for (const unsigned int nbThreads : {1U, 3U})
    {
        const Concurrency concurrency(nbThreads);
        Gate gate;
        Meeting begun(nbThreads + 1);
        std::atomic<unsigned int> nbBegun{0};
        std::atomic<unsigned int> nbEnded{0};
        const auto below = makeProvider(g_nbMany,
                                        [&](TestAction&)
                                        {
                                            if (++nbBegun <= nbThreads)
                                            {
                                                begun.arrive();
                                            }
                                            const bool bOpened = gate.wait();
                                            ++nbEnded;
                                            return BoolResult(bOpened);
                                        });
        TestActionPtr middle;
        const TestActionPtr action = makeNested(1,
                                                [&](TestAction& self)
                                                {
                                                    middle = boost::static_pointer_cast<TestAction>(self.shared_from_this());
                                                    return BoolResult(self.runNested(below));
                                                });
        EXPECT_TRUE(action->run(core::eST_Asynchronous).getResult());
        EXPECT_TRUE(begun.arrive());
        action->requestCancellation();
        EXPECT_TRUE(below->m_bCancelled.load());
        EXPECT_FALSE(below->hasPendingAction());
        EXPECT_EQ(eActionState::running, action->getState());
        EXPECT_EQ(0U, nbEnded.load());
        gate.open();
        EXPECT_EQ("Action kovis::test::TestAction was cancelled", action->wait().getMessage());
        EXPECT_EQ(eActionState::cancelled, action->getState());
        EXPECT_EQ(nbThreads, nbBegun.load());
        EXPECT_EQ(nbThreads, nbEnded.load());
        EXPECT_TRUE(below->m_bCleared);
        EXPECT_EQ(0U, below->m_nbNotified);
        EXPECT_LT(action->getProgress(), 1.0);
        EXPECT_EQ(1, action->countHook("cleanOnCancellation"));

        // What is below says so too.
        EXPECT_EQ(eActionState::cancelled, middle->getState());
        EXPECT_THAT(middle->wait().getMessage(), HasSubstr("was cancelled"));
        EXPECT_EQ(1, middle->countHook("cleanOnCancellation"));
        unsigned int nbCancelled = 0;
        for (const TestActionPtr& leaf : below->m_actions)
        {
            nbCancelled += leaf->getState() == eActionState::cancelled ? 1 : 0;
            EXPECT_TRUE(leaf->getState() == eActionState::cancelled || leaf->getHooks().empty());
        }
        EXPECT_EQ(nbThreads, nbCancelled);
    }
}

TEST(Scheduler, CancellationOfAPieceCancelsItsRun)
{
    const Concurrency concurrency(2);
    std::atomic<int> nbPieces{0};
    const TestActionPtr action = makeNested(g_nbMany,
                                            [&](TestAction& self)
                                            {
                                                const int number = ++nbPieces;
                                                if (number == 10)
                                                {
                                                    self.requestCancellation();
                                                }
                                                if (number > 10)
                                                {
                                                    waitUntilStopping(self);
                                                }
                                                return BoolResult(true);
                                            });
    EXPECT_THAT(action->run(core::eST_Synchronous).getMessage(), HasSubstr("was cancelled"));
    EXPECT_LE(nbPieces.load(), 11);
}

TEST(Scheduler, AProviderRunByHandSaysThatItWasCancelled)
{
    const auto provider = makeProvider(10,
                                       [](TestAction& self)
                                       {
                                           self.requestCancellation();
                                           return BoolResult(true);
                                       });
    try
    {
        core::runProvider(provider);
        FAIL();
    }
    catch (const core::KOVISCoreException& e)
    {
        EXPECT_STREQ("The actions of a provider were cancelled", e.what());
    }
}

TEST(Scheduler, ARunInsideARun)
{
    const Concurrency concurrency(3);
    std::atomic<int> nbLeaves{0};
    core::executeAction(makeAction(makeTree({6},
                                            [&](TestAction&)
                                            {
                                                // Not given to this run: a run of its own.
                                                core::executeAction(makeAction(makeTree({4, 4},
                                                                                        [&](TestAction&)
                                                                                        {
                                                                                            ++nbLeaves;
                                                                                            return BoolResult(true);
                                                                                        })));
                                                return BoolResult(true);
                                            })));
    EXPECT_EQ(6 * 16, nbLeaves.load());
}

TEST(Scheduler, AThreadThatWaitsHelpsNoOtherRun)
{
    // One run has the only worker, and its calling thread waits for that; another run is then alone with its own thread.
    const Concurrency concurrency(2);
    Meeting meeting(2);
    Gate waiting;
    Gate gate;
    std::thread caller(
        [&]
        {
            const std::thread::id self = std::this_thread::get_id();
            core::runProvider(makeProvider(2,
                                           [&](TestAction&)
                                           {
                                               const bool bMet = meeting.arrive();
                                               if (std::this_thread::get_id() == self)
                                               {
                                                   waiting.open();
                                                   return BoolResult(bMet);
                                               }
                                               return BoolResult(gate.wait());
                                           }));
        });
    EXPECT_TRUE(waiting.wait());
    std::mutex mutex;
    std::set<std::thread::id> threads;
    core::runProvider(makeProvider(200,
                                   [&](TestAction&)
                                   {
                                       std::this_thread::sleep_for(std::chrono::microseconds(100));
                                       const std::lock_guard<std::mutex> lock(mutex);
                                       threads.insert(std::this_thread::get_id());
                                       return BoolResult(true);
                                   }));
    EXPECT_EQ(std::set<std::thread::id>{std::this_thread::get_id()}, threads);
    gate.open();
    caller.join();
}

TEST(Scheduler, MoreCallersThanPlacesDoNotWaitForEachOther)
{
    // All runs are under way at once, each on its own thread at least.
    constexpr unsigned int nbCallers = 10;
    const Concurrency concurrency(2);
    Meeting meeting(nbCallers);
    std::atomic<int> nbAlone{0};
    std::vector<std::thread> callers;
    for (unsigned int i = 0; i < nbCallers; ++i)
    {
        callers.emplace_back(
            [&]
            {
                const std::thread::id self = std::this_thread::get_id();
                std::atomic<bool> bMet{false};
                core::runProvider(makeProvider(4,
                                               [&](TestAction&)
                                               {
                                                   if (std::this_thread::get_id() == self && !bMet.exchange(true))
                                                   {
                                                       nbAlone += meeting.arrive() ? 0 : 1;
                                                   }
                                                   return BoolResult(true);
                                               }));
                // The worker may have had all four pieces before this thread came to one.
                if (!bMet.exchange(true))
                {
                    nbAlone += meeting.arrive() ? 0 : 1;
                }
            });
    }
    for (std::thread& caller : callers)
    {
        caller.join();
    }
    EXPECT_EQ(0, nbAlone.load());
}

TEST(Scheduler, AThousandRunsFromSeveralThreads)
{
    const Concurrency concurrency(4);
    constexpr int nbCallers = 8;
    constexpr int nbRuns = 125;
    std::atomic<int> nbLeaves{0};
    std::atomic<int> nbFailed{0};
    std::atomic<int> nbWrong{0};
    const TestAction::Work leaf = [&](TestAction&)
    {
        ++nbLeaves;
        return BoolResult(true);
    };
    std::vector<std::thread> callers;
    for (int caller = 0; caller < nbCallers; ++caller)
    {
        callers.emplace_back(
            [&, caller]
            {
                for (int i = 0; i < nbRuns; ++i)
                {
                    // Some fail, some are in the background, the others are as most are.
                    const bool bFails = i % 10 == caller;
                    const TestActionPtr action =
                        makeAction(makeTree({2, 3, 4}, bFails ? [](TestAction&) -> BoolResult { throw PieceError(5); } : leaf));
                    try
                    {
                        if (i % 3 == 0)
                        {
                            nbWrong += action->run(core::eST_Asynchronous).getResult() ? 0 : 1;
                            action->getRunResult();
                        }
                        else
                        {
                            core::executeAction(action);
                        }
                        nbWrong += action->getState() == eActionState::done && !bFails ? 0 : 1;
                    }
                    catch (const PieceError& e)
                    {
                        ++nbFailed;
                        nbWrong += e.m_number == 5 && bFails ? 0 : 1;
                    }
                }
            });
    }
    for (std::thread& caller : callers)
    {
        caller.join();
    }
    int nbExpectedFailed = 0;
    for (int caller = 0; caller < nbCallers; ++caller)
    {
        for (int i = 0; i < nbRuns; ++i)
        {
            nbExpectedFailed += i % 10 == caller ? 1 : 0;
        }
    }
    EXPECT_EQ(nbExpectedFailed, nbFailed.load());
    EXPECT_EQ(0, nbWrong.load());
    EXPECT_EQ((nbCallers * nbRuns - nbExpectedFailed) * 24, nbLeaves.load());
}
} // namespace
