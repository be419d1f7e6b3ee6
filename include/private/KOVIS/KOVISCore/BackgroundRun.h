#pragma once

#include "KOVIS/KOVISCore/BaseAction.h"
#include "KOVIS/KOVISCore/RunContext.h"
#include "KOVIS/KOVISCore/RunState.h"
#include "KOVIS/KOVISCore/TaskArena.h"

#include <boost/shared_ptr.hpp>

namespace kovis::core::detail
{
/// A run in the background: keeps its action alive until its hooks have been called.
class BackgroundRun final : public BackgroundJob
{
public:
    /// Starts a run of an action. False if a run of it is under way: then nothing happens. Throws where it cannot be started; the
    /// action's run has then ended as failed.
    static bool start(const boost::shared_ptr<BaseAction>& action);

    explicit BackgroundRun(const boost::shared_ptr<BaseAction>& action);
    ~BackgroundRun() override;

    void runInBackground() noexcept override;

private:
    boost::shared_ptr<BaseAction> m_action;
    boost::shared_ptr<BaseAction::RunState> m_state;
    Run m_run;
    RunContext m_context;
};
} // namespace kovis::core::detail
