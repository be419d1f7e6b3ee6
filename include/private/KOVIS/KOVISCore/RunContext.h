#pragma once

#include "KOVIS/KOVISCore/Run.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <atomic>
#include <exception>
#include <string>

namespace kovis::core::detail
{
/// The part of one action in a run: what it has done of it, and how it goes. Parts form a tree as the actions do; a part outlives
/// those below it. Safe from any thread.
class RunContext
{
public:
    /// The part of the action that the run was started with.
    explicit RunContext(Run& run);
    /// The part of an action below; `share` is its part of the whole run's progress.
    RunContext(RunContext& parent, double share);
    RunContext(const RunContext&) = delete;
    RunContext& operator=(const RunContext&) = delete;

    Run& getRun() const { return m_run; }
    bool isStopping() const { return m_run.isStopping(); }
    double getShare() const { return m_share; }

    /// Ends the run with an error; this part and those above it have failed with it, if it is the first one.
    void fail(const std::exception_ptr& error);
    /// The same with a message, which becomes a KOVISCoreException and is logged.
    void fail(const std::string& message, const SourcePlace& place);
    /// Whether this part failed, in itself or below.
    bool isFailed() const { return m_bFailed.load(std::memory_order_acquire); }

    /// Work below this part was left undone because the run was stopping.
    void markInterrupted() { m_bInterrupted.store(true, std::memory_order_release); }
    bool isInterrupted() const { return m_bInterrupted.load(std::memory_order_acquire); }

    /// Adds to the progress of this part and of those above it. Takes nothing below 0 and no NaN.
    void addProgress(double share);
    /// What has been added, as a part of the whole run.
    double getAdded() const { return m_added.load(std::memory_order_relaxed); }
    /// Adds what is missing to this part's share.
    void completeProgress();
    /// What is done of this part, from 0 to less than 1: that all is done is for its end to say.
    double getProgress() const;

private:
    Run& m_run;
    RunContext* const m_parent;
    const double m_share;
    std::atomic<double> m_added{0.0};
    std::atomic<bool> m_bFailed{false};
    std::atomic<bool> m_bInterrupted{false};
};
} // namespace kovis::core::detail
