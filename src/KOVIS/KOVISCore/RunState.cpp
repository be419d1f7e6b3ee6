#include "KOVIS/KOVISCore/RunState.h"

#include <algorithm>
#include <utility>

namespace kovis::core
{
bool BaseAction::RunState::begin(detail::RunContext& context)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_outcome.m_state == eActionState::running)
    {
        return false;
    }
    m_outcome = RunOutcome{eActionState::running, {}, {}};
    m_context = &context;
    m_finalProgress = 0.0;
    m_bCancelAsked = false;
    return true;
}

void BaseAction::RunState::finish(RunOutcome outcome)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_bAsking; });
    m_finalProgress = outcome.m_state == eActionState::done ? 1.0 : m_context->getProgress();
    m_context = nullptr;
    m_hookThread.store(std::thread::id(), std::memory_order_relaxed);
    m_outcome = std::move(outcome);
    // Under the lock: whoever waits may destroy this object as soon as the lock is free.
    m_changed.notify_all();
}

eActionState BaseAction::RunState::getState() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_outcome.m_state;
}

double BaseAction::RunState::getProgress() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_context != nullptr ? m_context->getProgress() : m_finalProgress;
}

detail::RunContext* BaseAction::RunState::getContext() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_context;
}

void BaseAction::RunState::cancel(BaseAction& action)
{
    detail::RunContext* context = nullptr;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_context == nullptr || m_bCancelAsked)
        {
            return;
        }
        m_bCancelAsked = true;
        m_bAsking = true;
        context = m_context;
    }
    // Without the lock, for the hook may ask for the state. The run's end waits for this.
    struct Asked
    {
        RunState& m_state;
        ~Asked()
        {
            const std::lock_guard<std::mutex> lock(m_state.m_mutex);
            m_state.m_bAsking = false;
            m_state.m_changed.notify_all();
        }
    } const asked{*this};
    context->getRun().cancel();
    action.requestCancellationdDerived();
}

bool BaseAction::RunState::waitForOutcome(const std::chrono::milliseconds* duration, RunOutcome& outcome) const
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto isOver = [this] { return m_outcome.m_state != eActionState::running; };
    if (duration == nullptr)
    {
        m_changed.wait(lock, isOver);
    }
    else
    {
        // A year is as good as for ever and overflows no clock.
        constexpr std::chrono::milliseconds longest = std::chrono::hours(24 * 365);
        const std::chrono::milliseconds limit = std::clamp(*duration, std::chrono::milliseconds(0), longest);
        if (!m_changed.wait_for(lock, limit, isOver))
        {
            return false;
        }
    }
    outcome = m_outcome;
    return true;
}
} // namespace kovis::core
