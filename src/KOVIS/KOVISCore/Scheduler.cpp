#include "KOVIS/KOVISCore/Scheduler.h"

#include "KOVIS/KOVISCore/ActionRunner.h"
#include "KOVIS/KOVISCore/ComputerInfoPool.h"
#include "KOVIS/KOVISCore/CoreMessages.h"
#include "KOVIS/KOVISCore/ProviderPull.h"
#include "KOVIS/KOVISCore/RunContext.h"
#include "KOVIS/KOVISCore/TaskArena.h"

#include <algorithm>
#include <atomic>
#include <exception>

namespace kovis::core
{
namespace
{
const char* const g_file = "KOVIS/KOVISCore/Scheduler.cpp";

std::atomic<unsigned int> g_maxConcurrency{0};

// A provider's stay in the list of those that a cancellation reaches.
class EnteredProvider
{
public:
    EnteredProvider(const ActionProviderPtr& provider, detail::Run& run)
        : m_provider(provider), m_run(run), m_bEntered(run.enterProvider(provider))
    {
    }
    ~EnteredProvider()
    {
        if (m_bEntered)
        {
            m_run.leaveProvider(m_provider);
        }
    }
    EnteredProvider(const EnteredProvider&) = delete;
    EnteredProvider& operator=(const EnteredProvider&) = delete;

    bool isEntered() const { return m_bEntered; }

private:
    const ActionProviderPtr& m_provider;
    detail::Run& m_run;
    const bool m_bEntered;
};
} // namespace

void runProvider(const ActionProviderPtr& provider)
{
    const SourcePlace place{"void kovis::core::runProvider(const ActionProviderPtr&)", g_file, __LINE__};
    detail::Run run(getMaxConcurrency());
    detail::RunContext context(run);
    if (!provider)
    {
        detail::throwCoreMessage(eCoreMessage::eCM_EmptyProvider, place);
    }
    if (!detail::runNestedProvider(provider, context, 1.0))
    {
        if (const std::exception_ptr error = run.takeError())
        {
            std::rethrow_exception(error);
        }
        detail::throwCoreMessage(eCoreMessage::eCM_ProviderCancelled, place);
    }
}

void executeAction(const boost::shared_ptr<BaseAction>& action)
{
    const SourcePlace place{"void kovis::core::executeAction(const boost::shared_ptr<BaseAction>&)", g_file, __LINE__};
    if (!action)
    {
        detail::throwCoreMessage(eCoreMessage::eCM_EmptyAction, place);
    }
    RunOutcome outcome;
    if (!detail::ActionRunner::runFirst(action, outcome))
    {
        detail::throwCoreMessage(eCoreMessage::eCM_AlreadyRunning, place, action->getClassName());
    }
    if (outcome.m_error)
    {
        std::rethrow_exception(outcome.m_error);
    }
    if (outcome.m_state != eActionState::done)
    {
        throw KOVISCoreException(outcome.m_message, place.m_function, place.m_file, place.m_line);
    }
}

void setMaxConcurrency(unsigned int nbThreads)
{
    g_maxConcurrency.store(std::min(nbThreads, detail::g_greatestConcurrency), std::memory_order_relaxed);
}

unsigned int getMaxConcurrency()
{
    const unsigned int nbThreads = g_maxConcurrency.load(std::memory_order_relaxed);
    if (nbThreads != 0)
    {
        return nbThreads;
    }
    const hard::ComputerDescription& computer = ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription();
    return std::clamp(computer.getProcessorDescription().getNbProcessors(), 1U, detail::g_greatestConcurrency);
}

namespace detail
{
bool runNestedProvider(const ActionProviderPtr& provider, RunContext& context, double share)
{
    if (!provider)
    {
        context.fail(coreText(eCoreMessage::eCM_EmptyProvider),
                     SourcePlace{"bool kovis::core::detail::runNestedProvider(const ActionProviderPtr&, RunContext&, double)",
                                 g_file, __LINE__});
        context.markInterrupted();
        return false;
    }
    Run& run = context.getRun();
    const double before = context.getAdded();
    {
        const EnteredProvider entered(provider, run);
        if (entered.isEntered())
        {
            ProviderPull pull(provider, context, share);
            const unsigned long nbPending = provider->getNbPendingActions();
            const unsigned int nbThreads = run.getNbThreads();
            const auto nbTasks = static_cast<unsigned int>(std::min<unsigned long>(nbPending, nbThreads));
            pullInArena(pull, nbTasks, nbThreads, &run);
        }
    }
    if (run.isStopping())
    {
        context.markInterrupted();
        provider->clearDerived();
        return false;
    }
    context.addProgress(share - (context.getAdded() - before));
    return true;
}

bool isStopping(const RunContext& context)
{
    return context.isStopping();
}

void addProgress(RunContext& context, double share)
{
    context.addProgress(share);
}
} // namespace detail
} // namespace kovis::core
