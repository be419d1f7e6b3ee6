#pragma once

#include "KOVIS/KOVISCore/BaseAction.h"
#include "KOVIS/KOVISCore/RunContext.h"
#include "KOVIS/KOVISCore/RunState.h"

#include <boost/shared_ptr.hpp>

#include <exception>
#include <string>

namespace kovis::core::detail
{
/// Runs one action's hooks inside a run: the same frame for the action that a run was started with and for all below it.
class ActionRunner
{
public:
    /// Runs an action as the start of a new run, on this thread. False if a run of it is under way: then nothing happens.
    static bool runFirst(const boost::shared_ptr<BaseAction>& action, RunOutcome& outcome);

    /// Runs an action as a piece of a run; `parent` is the part that it belongs to. True if it is done.
    static bool runPiece(const boost::shared_ptr<BaseAction>& action, RunContext& parent, double share);

    /// Calls the hooks of an action whose state has begun with this context.
    static RunOutcome callHooks(BaseAction& action, RunContext& context);

    /// The message of what is stored; `action` is named where it has none.
    static std::string getMessage(const std::exception_ptr& error, const BaseAction& action);

private:
    static bool work(BaseAction& action, RunContext& context);
    static void clean(BaseAction& action, bool bCancelled) noexcept;
};
} // namespace kovis::core::detail
