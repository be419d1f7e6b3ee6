#pragma once

#include "KOVIS/KOVISCore/BasePriority.h"
#include "KOVIS/KOVISCore/KOVISCoreExport.h"
#include "KOVIS/KOVISSerialization/BaseSerializationObject.h"
#include "KOVIS/KOVISUtil/Guid.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/enable_shared_from_this.hpp>

#include <chrono>

namespace kovis::core
{
namespace detail
{
class RunContext;
class ActionRunner;
class BackgroundRun;
} // namespace detail

/// How run() starts an action.
enum eSynchroType : int
{
    eST_Synchronous = 0, ///< run() returns when the run has ended
    eST_Asynchronous = 1 ///< run() starts the run and comes back
};

/// State of an action.
enum class eActionState
{
    idle, ///< not started
    running,
    done,
    failed,
    cancelled
};

/// A piece of work that can be run to the end, run in the background, watched and cancelled.
///
/// A background run keeps its action alive until it ends, and takes the floating-point settings of the thread that started it
/// with it. A program waits for its background runs before main ends. The watching operations may be called from any thread at
/// any time.
///
/// The hooks of a run, in this order: syncInputDataDerived, runDerived, syncOutputDataDerived; for a run that failed or was
/// cancelled cleanOnErrorDerived; clearIntermediateData. All on the thread of the run.
class KOVISCORE_EXPORT BaseAction : public BaseSerializationObject, public boost::enable_shared_from_this<BaseAction>
{
public:
    /// Why cleanOnErrorDerived is called.
    enum eCleanReason
    {
        eCR_Failure = 0,
        eCR_Cancellation = 1
    };

    ~BaseAction() override;

    /// Starts a run. Fails, with a message, if no shared pointer owns the action or if a run of it is under way.
    /// With eST_Synchronous the result tells how the run went; with eST_Asynchronous only whether it could be started.
    BoolResult run(const eSynchroType& synchroType);

    eActionState getState() const;
    /// Returns when no run is under way. True if the last run ended as done; false, with the message, if it failed or was
    /// cancelled ("... was cancelled"), or if none was started. Must not be called from inside the run that it waits for: on the
    /// thread of that run it is false with a message, on a thread that helps it would never return.
    BoolResult wait() const;
    /// The same with a limit; false with a message when the time is over and the run is still under way.
    BoolResult waitFor(const std::chrono::milliseconds& duration) const;
    /// From 0 to 1 over all steps of the run; never goes back, and is 1 only when the run is done.
    double getProgress() const;
    /// Asks the run to end: what has not begun is dropped, what has is waited for, and the run ends as cancelled. An action that
    /// runs as a piece of another one's run asks that whole run. Does nothing where no run is under way. Does not wait.
    void requestCancellation();
    /// Waits, then true for a run that is done; rethrows what a failed run failed with; false with a message for a cancelled one.
    BoolResult getRunResult() const;

    void setActionPriority(const BasePriority& priority) { m_priority = priority; }
    const BasePriority& getActionPriority() const { return m_priority; }

protected:
    BaseAction();

    // The hooks, in the order of their slots.
    virtual bool isComplexAction() const = 0;
    virtual void globalCleanDerived() = 0;
    /// Called once when the run ends as failed or cancelled, on the thread of the run. Calls clearOutputData here.
    virtual void cleanOnErrorDerived(const eCleanReason& reason);
    /// The work. Failure is a false result with a message or an exception.
    virtual BoolResult runDerived() = 0;
    /// Called once per run when cancellation of this action is asked for while it runs, on the asking thread. The providers that
    /// the run pulls from are told before. Must not wait for the run.
    virtual void requestCancellationdDerived();
    /// Makes input data available before the work, and output data after it, on the computer of that identifier.
    virtual BoolResult syncInputDataDerived(const Guid& computer) = 0;
    virtual BoolResult syncOutputDataDerived(const Guid& computer) = 0;
    virtual void clearInputData() = 0;
    virtual void clearIntermediateData();
    /// Drops the output data that the run has made; what its caller gave stays.
    virtual void clearOutputData() = 0;

    /// This action's part in the run; only inside the hooks of a run (outside it throws KOVISCoreException). Nested work is given
    /// to it.
    detail::RunContext& getRunContext() const;
    /// The part of the whole run's progress that this action stands for; only inside the hooks of a run, as above.
    double getProgressShare() const;

private:
    friend class detail::ActionRunner;
    friend class detail::BackgroundRun;
    class RunState;

    BasePriority m_priority;
    // Shared with a background run, which ends after it has let go of its action.
    boost::shared_ptr<RunState> m_runState;
};

/// An action that is made of other actions.
class KOVISCORE_EXPORT BaseComplexAction : public BaseAction
{
public:
    ~BaseComplexAction() override;

protected:
    BaseComplexAction();
    bool isComplexAction() const override;
};
} // namespace kovis::core
