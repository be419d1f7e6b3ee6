#include "KOVIS/KOVISCore/BaseAction.h"

#include "KOVIS/KOVISCore/ActionRunner.h"
#include "KOVIS/KOVISCore/BackgroundRun.h"
#include "KOVIS/KOVISCore/CoreMessages.h"
#include "KOVIS/KOVISCore/RunState.h"

#include <boost/make_shared.hpp>

#include <exception>

namespace kovis::core
{
namespace
{
// A refused or failed run as a result.
BoolResult refuse(const std::string& message, unsigned int line)
{
    detail::logError(message, SourcePlace{"kovis::BoolResult kovis::core::BaseAction::run(const kovis::core::eSynchroType&)",
                                          "KOVIS/KOVISCore/BaseAction.cpp", line});
    return BoolResult(false, message);
}

BoolResult toResult(const RunOutcome& outcome, const BaseAction& action)
{
    if (outcome.m_state == eActionState::idle)
    {
        return BoolResult(false, detail::coreText(eCoreMessage::eCM_NeverRun, action.getClassName()));
    }
    return BoolResult(outcome.m_state == eActionState::done, outcome.m_message);
}
} // namespace

BaseAction::BaseAction() : m_runState(boost::make_shared<RunState>()) {}

BaseAction::~BaseAction() = default;

BoolResult BaseAction::run(const eSynchroType& synchroType)
{
    const boost::shared_ptr<BaseAction> self = weak_from_this().lock();
    if (!self)
    {
        return refuse(detail::coreText(eCoreMessage::eCM_NotShared, getClassName()), __LINE__);
    }
    if (synchroType == eST_Synchronous)
    {
        RunOutcome outcome;
        if (!detail::ActionRunner::runFirst(self, outcome))
        {
            return refuse(detail::coreText(eCoreMessage::eCM_AlreadyRunning, getClassName()), __LINE__);
        }
        return toResult(outcome, *this);
    }
    if (synchroType != eST_Asynchronous)
    {
        return refuse(detail::coreText(eCoreMessage::eCM_UnknownSynchroType, getClassName(), static_cast<int>(synchroType)),
                      __LINE__);
    }
    try
    {
        if (!detail::BackgroundRun::start(self))
        {
            return refuse(detail::coreText(eCoreMessage::eCM_AlreadyRunning, getClassName()), __LINE__);
        }
    }
    catch (const std::exception& e)
    {
        return refuse(detail::coreText(eCoreMessage::eCM_BackgroundStartFailed, getClassName(), e.what()), __LINE__);
    }
    return BoolResult(true);
}

eActionState BaseAction::getState() const
{
    return m_runState->getState();
}

BoolResult BaseAction::wait() const
{
    if (m_runState->isHookThread())
    {
        return BoolResult(false, detail::coreText(eCoreMessage::eCM_WaitInsideRun, getClassName()));
    }
    RunOutcome outcome;
    m_runState->waitForOutcome(nullptr, outcome);
    return toResult(outcome, *this);
}

BoolResult BaseAction::waitFor(const std::chrono::milliseconds& duration) const
{
    RunOutcome outcome;
    if (!m_runState->waitForOutcome(&duration, outcome))
    {
        return BoolResult(false, detail::coreText(eCoreMessage::eCM_StillRunning, getClassName(), duration.count()));
    }
    return toResult(outcome, *this);
}

double BaseAction::getProgress() const
{
    return m_runState->getProgress();
}

void BaseAction::requestCancellation()
{
    m_runState->cancel(*this);
}

BoolResult BaseAction::getRunResult() const
{
    if (m_runState->isHookThread())
    {
        return BoolResult(false, detail::coreText(eCoreMessage::eCM_WaitInsideRun, getClassName()));
    }
    RunOutcome outcome;
    m_runState->waitForOutcome(nullptr, outcome);
    if (outcome.m_error)
    {
        std::rethrow_exception(outcome.m_error);
    }
    return toResult(outcome, *this);
}

void BaseAction::cleanOnErrorDerived(const eCleanReason&)
{
    clearOutputData();
}

void BaseAction::requestCancellationdDerived() {}

void BaseAction::clearIntermediateData() {}

detail::RunContext& BaseAction::getRunContext() const
{
    if (detail::RunContext* const context = m_runState->getContext())
    {
        return *context;
    }
    detail::throwCoreMessage(eCoreMessage::eCM_OutsideRun,
                             SourcePlace{"kovis::core::detail::RunContext& kovis::core::BaseAction::getRunContext() const",
                                         "KOVIS/KOVISCore/BaseAction.cpp", __LINE__},
                             getClassName());
}

double BaseAction::getProgressShare() const
{
    return getRunContext().getShare();
}

BaseComplexAction::BaseComplexAction() = default;

BaseComplexAction::~BaseComplexAction() = default;

bool BaseComplexAction::isComplexAction() const
{
    return true;
}
} // namespace kovis::core
