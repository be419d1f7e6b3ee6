#pragma once

#include "KOVIS/KOVISCore/BaseAction.h"
#include "KOVIS/KOVISCore/BaseActionProvider.h"
#include "KOVIS/KOVISCore/Scheduler.h"

#include <boost/make_shared.hpp>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace kovis::test
{
/// An action whose work is a function, and that writes down which hooks were called.
class TestAction : public core::BaseComplexAction
{
public:
    using Work = std::function<BoolResult(TestAction&)>;

    TestAction() = default;
    explicit TestAction(Work work) : m_work(std::move(work)) {}

    // What tests look at.
    std::vector<std::string> getHooks() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_hooks;
    }
    long countHook(const std::string& hook) const
    {
        long count = 0;
        for (const std::string& called : getHooks())
        {
            count += called == hook ? 1 : 0;
        }
        return count;
    }

    // What tests set.
    Work m_work;
    std::string m_inputFailure;
    std::string m_outputFailure;
    bool m_bCleanThrows = false;
    std::function<void()> m_onCancel;

    using core::BaseComplexAction::getProgressShare;
    using core::BaseComplexAction::getRunContext;

    /// Runs a provider as all of this action's work.
    bool runNested(const core::ActionProviderPtr& provider)
    {
        return core::detail::runNestedProvider(provider, getRunContext(), getProgressShare());
    }

    const std::string& getClassName() const override
    {
        static const std::string name = "kovis::test::TestAction";
        return name;
    }
    BaseDynamicObject* createNew() const override { return new TestAction(); }
    DynamicObjectPtr createShared() const override { return boost::make_shared<TestAction>(); }
    bool hasCopySupport() const override { return false; }
    BaseDynamicObject* duplicate() const override { return nullptr; }
    DynamicObjectPtr duplicateShared() const override { return {}; }
    void copy(const BaseDynamicObject&) override {}
    BoolResult write(BaseOArchive&) const override { return BoolResult(true); }
    BoolResult read(BaseIArchive&) override { return BoolResult(true); }

protected:
    void globalCleanDerived() override { note("globalClean"); }
    void cleanOnErrorDerived(const eCleanReason& reason) override
    {
        note(reason == eCR_Cancellation ? "cleanOnCancellation" : "cleanOnFailure");
        if (m_bCleanThrows)
        {
            throw std::runtime_error("cleaning failed");
        }
    }
    BoolResult runDerived() override
    {
        note("run");
        return m_work ? m_work(*this) : BoolResult(true);
    }
    void requestCancellationdDerived() override
    {
        note("requestCancellation");
        if (m_onCancel)
        {
            m_onCancel();
        }
    }
    BoolResult syncInputDataDerived(const Guid& computer) override
    {
        note(computer.isNil() ? "syncInput of nobody" : "syncInput");
        return BoolResult(m_inputFailure.empty(), m_inputFailure);
    }
    BoolResult syncOutputDataDerived(const Guid& computer) override
    {
        note(computer.isNil() ? "syncOutput of nobody" : "syncOutput");
        return BoolResult(m_outputFailure.empty(), m_outputFailure);
    }
    void clearInputData() override { note("clearInput"); }
    void clearIntermediateData() override { note("clearIntermediate"); }
    void clearOutputData() override { note("clearOutput"); }

private:
    void note(const char* hook)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_hooks.emplace_back(hook);
    }

    mutable std::mutex m_mutex;
    std::vector<std::string> m_hooks;
};

using TestActionPtr = boost::shared_ptr<TestAction>;

inline TestActionPtr makeAction(TestAction::Work work = {})
{
    return boost::make_shared<TestAction>(std::move(work));
}

/// A provider that gives a list of actions, in equal shares.
class ListProvider : public core::BaseActionProvider
{
public:
    explicit ListProvider(std::vector<TestActionPtr> actions) : m_actions(std::move(actions))
    {
        m_nbPendingActions = m_actions.size();
    }

    BoolResult queryNextAction(const core::BaseRequestOrigin& origin, boost::shared_ptr<core::BaseActionRequest>& request,
                               bool& bGiven, boost::shared_ptr<BaseSerializationObject>&) override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_greatestWorker = std::max(m_greatestWorker, origin.getWorker());
        bGiven = m_next < m_actions.size() && !isCancellationRequested();
        if (!bGiven)
        {
            return BoolResult(true);
        }
        if (m_next == m_failAt)
        {
            return BoolResult(false, m_failure);
        }
        if (m_next == m_emptyAt)
        {
            return BoolResult(true);
        }
        request = boost::make_shared<core::BaseActionRequest>(m_actions[m_next], ElementsRange(m_next, m_next + 1),
                                                              m_bShares ? 1.0 / static_cast<double>(m_actions.size()) : 0.0);
        ++m_next;
        --m_nbPendingActions;
        return BoolResult(true);
    }
    bool hasPendingAction() const override { return getNbPendingActions() > 0 && !isCancellationRequested(); }
    BoolResult notifyDerived(const boost::shared_ptr<core::BaseActionRequest>&,
                             const boost::shared_ptr<const BaseSerializationObject>&, bool& bFinished) override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        ++m_nbNotified;
        bFinished = m_nbNotified == m_actions.size();
        return BoolResult(m_notifyFailure.empty(), m_notifyFailure);
    }
    void clearDerived() override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_bCleared = true;
        m_next = m_actions.size();
        m_nbPendingActions = 0;
    }
    void requestCancellationDerived() override
    {
        core::BaseActionProvider::requestCancellationDerived();
        m_bCancelled = true;
    }

    std::vector<TestActionPtr> m_actions;
    std::size_t m_failAt = ~std::size_t{0};
    std::size_t m_emptyAt = ~std::size_t{0};
    std::string m_failure;
    std::string m_notifyFailure;
    bool m_bShares = true;
    std::size_t m_nbNotified = 0;
    unsigned int m_greatestWorker = 0;
    bool m_bCleared = false;
    std::atomic<bool> m_bCancelled{false};

private:
    std::mutex m_mutex;
    std::size_t m_next = 0;
};

inline boost::shared_ptr<ListProvider> makeProvider(std::size_t nbActions, const TestAction::Work& work)
{
    std::vector<TestActionPtr> actions;
    for (std::size_t i = 0; i < nbActions; ++i)
    {
        actions.push_back(makeAction(work));
    }
    return boost::make_shared<ListProvider>(std::move(actions));
}

/// An action that runs a provider of `nbActions` actions, all with that work.
inline TestActionPtr makeNested(std::size_t nbActions, const TestAction::Work& work)
{
    return makeAction([nbActions, work](TestAction& action)
                      { return BoolResult(action.runNested(makeProvider(nbActions, work))); });
}

/// The work of an action above leaves: a tree with `nbPieces[0]` pieces, each of `nbPieces[1]` pieces, and so on.
inline TestAction::Work makeTree(const std::vector<std::size_t>& nbPieces, const TestAction::Work& leaf)
{
    TestAction::Work work = leaf;
    for (std::size_t level = nbPieces.size(); level > 0; --level)
    {
        work = [count = nbPieces[level - 1], below = work](TestAction& action)
        { return BoolResult(action.runNested(makeProvider(count, below))); };
    }
    return work;
}

/// Something that threads wait for. Gives up after a time that no working run comes near to.
class Gate
{
public:
    void open()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_bOpen = true;
        m_changed.notify_all();
    }
    bool wait()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::seconds(60), [this] { return m_bOpen; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_bOpen = false;
};

/// Opens when `nbThreads` different callers have arrived.
class Meeting
{
public:
    explicit Meeting(unsigned int nbThreads) : m_nbMissing(nbThreads) {}
    bool arrive()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (m_nbMissing > 0 && --m_nbMissing == 0)
        {
            m_changed.notify_all();
        }
        return m_changed.wait_for(lock, std::chrono::seconds(60), [this] { return m_nbMissing == 0; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    unsigned int m_nbMissing;
};

/// Limits the threads of runs for the life of the object.
class Concurrency
{
public:
    explicit Concurrency(unsigned int nbThreads) { core::setMaxConcurrency(nbThreads); }
    ~Concurrency() { core::setMaxConcurrency(0); }
    Concurrency(const Concurrency&) = delete;
    Concurrency& operator=(const Concurrency&) = delete;
};
} // namespace kovis::test
