#include "KOVIS/KOVISCore/ActionRunner.h"

#include "KOVIS/KOVISCore/ComputerInfoPool.h"
#include "KOVIS/KOVISCore/CoreMessages.h"
#include "KOVIS/KOVISCore/Scheduler.h"

#include <thread>

namespace kovis::core::detail
{
namespace
{
const char* const g_file = "KOVIS/KOVISCore/ActionRunner.cpp";

// True for a good result; otherwise the run fails with its message.
bool accept(const BoolResult& result, const BaseAction& action, RunContext& context)
{
    if (result.getResult())
    {
        return true;
    }
    // A hook that was cut short by the run's end has nothing to add to the reason of that.
    if (!context.isInterrupted() && !context.isStopping())
    {
        context.fail(result.getMessage().empty() ? coreText(eCoreMessage::eCM_NoReason, action.getClassName())
                                                 : result.getMessage(),
                     SourcePlace{"bool kovis::core::detail::ActionRunner::work(BaseAction&, RunContext&)", g_file, __LINE__});
    }
    return false;
}
} // namespace

bool ActionRunner::work(BaseAction& action, RunContext& context)
{
    const Guid& computer = ComputerInfoPool::getInstance().getLocalComputerInfo().getId();
    if (!accept(action.syncInputDataDerived(computer), action, context) || !accept(action.runDerived(), action, context) ||
        context.isInterrupted() || context.isFailed() || context.getRun().isCancelled())
    {
        return false;
    }
    return accept(action.syncOutputDataDerived(computer), action, context);
}

void ActionRunner::clean(BaseAction& action, bool bCancelled) noexcept
{
    const auto tryTo = [&action](const auto& hook)
    {
        try
        {
            hook();
        }
        catch (...)
        {
            // The run has its reason already; this one can only be told.
            const SourcePlace place{"void kovis::core::detail::ActionRunner::clean(BaseAction&, bool)", g_file, __LINE__};
            logError(
                coreText(eCoreMessage::eCM_CleaningFailed, action.getClassName(), getMessage(std::current_exception(), action)),
                place);
        }
    };
    tryTo([&] { action.cleanOnErrorDerived(bCancelled ? BaseAction::eCR_Cancellation : BaseAction::eCR_Failure); });
    tryTo([&] { action.clearIntermediateData(); });
}

RunOutcome ActionRunner::callHooks(BaseAction& action, RunContext& context)
{
    action.m_runState->setHookThread(std::this_thread::get_id());
    if (!context.isStopping())
    {
        try
        {
            if (work(action, context))
            {
                action.clearIntermediateData();
                if (!context.getRun().isCancelled())
                {
                    context.completeProgress();
                    return RunOutcome{eActionState::done, {}, {}};
                }
            }
        }
        catch (...)
        {
            context.fail(std::current_exception());
        }
    }
    const bool bCancelled = !context.isFailed();
    clean(action, bCancelled);
    if (bCancelled)
    {
        return RunOutcome{eActionState::cancelled, {}, coreText(eCoreMessage::eCM_Cancelled, action.getClassName())};
    }
    const std::exception_ptr error = context.getRun().getError();
    return RunOutcome{eActionState::failed, error, getMessage(error, action)};
}

bool ActionRunner::runFirst(const boost::shared_ptr<BaseAction>& action, RunOutcome& outcome)
{
    Run run(getMaxConcurrency());
    RunContext context(run);
    if (!action->m_runState->begin(context))
    {
        return false;
    }
    outcome = callHooks(*action, context);
    action->m_runState->finish(outcome);
    return true;
}

bool ActionRunner::runPiece(const boost::shared_ptr<BaseAction>& action, RunContext& parent, double share)
{
    RunContext context(parent, share);
    if (!action->m_runState->begin(context))
    {
        parent.fail(
            coreText(eCoreMessage::eCM_AlreadyRunning, action->getClassName()),
            SourcePlace{
                "bool kovis::core::detail::ActionRunner::runPiece(const boost::shared_ptr<BaseAction>&, RunContext&, double)",
                g_file, __LINE__});
        return false;
    }
    RunOutcome outcome = callHooks(*action, context);
    const bool bDone = outcome.m_state == eActionState::done;
    action->m_runState->finish(std::move(outcome));
    return bDone;
}

std::string ActionRunner::getMessage(const std::exception_ptr& error, const BaseAction& action)
{
    try
    {
        std::rethrow_exception(error);
    }
    catch (const std::exception& e)
    {
        return e.what();
    }
    catch (...)
    {
        return coreText(eCoreMessage::eCM_UnknownException, action.getClassName());
    }
}
} // namespace kovis::core::detail
