#pragma once

#include "KOVIS/KOVISCore/BaseAction.h"
#include "KOVIS/KOVISCore/RunContext.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <string>
#include <thread>

namespace kovis::core
{
/// How a run of an action ended.
struct RunOutcome
{
    eActionState m_state = eActionState::idle;
    std::exception_ptr m_error; ///< only for failed
    std::string m_message;      ///< empty for done
};

/// The state of an action's runs, as it is watched from outside. Safe from any thread.
class BaseAction::RunState
{
public:
    /// Begins a run as that part; false if one is under way. The part must live until finish.
    bool begin(detail::RunContext& context);
    /// Ends the run. Waits for who is asking for cancellation, so that the part may be destroyed afterwards.
    void finish(RunOutcome outcome);

    /// Tells which thread the hooks are called on.
    void setHookThread(const std::thread::id& thread) { m_hookThread.store(thread, std::memory_order_relaxed); }
    bool isHookThread() const { return m_hookThread.load(std::memory_order_relaxed) == std::this_thread::get_id(); }

    eActionState getState() const;
    double getProgress() const;
    /// The part of the run that is under way, or null. Only inside its hooks.
    detail::RunContext* getContext() const;

    /// Cancels the run that is under way and calls `action`'s hook, once per run.
    void cancel(BaseAction& action);

    /// Waits until no run is under way and copies how the last one ended; false when the time is over before.
    /// With no duration it waits as long as it takes.
    bool waitForOutcome(const std::chrono::milliseconds* duration, RunOutcome& outcome) const;

private:
    mutable std::mutex m_mutex;
    mutable std::condition_variable m_changed;
    RunOutcome m_outcome;
    detail::RunContext* m_context = nullptr;
    double m_finalProgress = 0.0;
    bool m_bCancelAsked = false;
    bool m_bAsking = false;
    std::atomic<std::thread::id> m_hookThread{};
};
} // namespace kovis::core
