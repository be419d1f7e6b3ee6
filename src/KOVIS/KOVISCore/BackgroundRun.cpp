#include "KOVIS/KOVISCore/BackgroundRun.h"

#include "KOVIS/KOVISCore/ActionRunner.h"
#include "KOVIS/KOVISCore/Scheduler.h"

#include <memory>

namespace kovis::core::detail
{
BackgroundRun::BackgroundRun(const boost::shared_ptr<BaseAction>& action)
    : m_action(action), m_state(action->m_runState), m_run(getMaxConcurrency()), m_context(m_run)
{
}

BackgroundRun::~BackgroundRun() = default;

bool BackgroundRun::start(const boost::shared_ptr<BaseAction>& action)
{
    auto job = std::make_unique<BackgroundRun>(action);
    if (!job->m_state->begin(job->m_context))
    {
        return false;
    }
    try
    {
        enqueueInBackground(job.get(), job->m_run.getNbThreads());
    }
    catch (...)
    {
        const std::exception_ptr error = std::current_exception();
        job->m_state->finish(RunOutcome{eActionState::failed, error, ActionRunner::getMessage(error, *action)});
        throw;
    }
    // It deletes itself at its end, which may have come already.
    (void)job.release();
    return true;
}

void BackgroundRun::runInBackground() noexcept
{
    RunOutcome outcome = ActionRunner::callHooks(*m_action, m_context);
    // This thread keeps nothing of the action and its error when the end is told: whoever waits for it may unload their code
    // then.
    (void)m_run.takeError();
    m_action.reset();
    m_state->finish(std::move(outcome));
}
} // namespace kovis::core::detail
