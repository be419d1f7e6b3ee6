#pragma once

#include "KOVIS/KOVISCore/BaseAction.h"
#include "KOVIS/KOVISCore/BaseActionProvider.h"
#include "KOVIS/KOVISCore/KOVISCoreExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::core
{
// Threads: the pieces of all runs share one arena per limit of setMaxConcurrency. Up to four threads that call at once are helped by
// its workers; a further caller converts alone, on its own thread, and never waits for the others. Background runs start from threads
// of their own, for which TBB's limit of the process (max_allowed_parallelism) is raised to twice the concurrency.

/// Runs everything that a provider gives, to the end, on the calling thread and the workers, for who drives a level by hand.
/// What fails inside comes out as one exception: the first one wins, what has not begun is dropped, what has is waited for.
/// A step of a run gives nested work to its run instead, by runNestedProvider. Throws KOVISCoreException for an empty pointer.
KOVISCORE_EXPORT void runProvider(const ActionProviderPtr& provider);

/// Runs an action to the end on the calling thread and the workers. Throws what the run failed with: an exception that was thrown
/// inside unchanged, a failure without one as a KOVISCoreException with its message; a cancelled run throws one that says so.
/// Throws KOVISCoreException for an empty pointer and for an action whose run is under way.
KOVISCORE_EXPORT void executeAction(const boost::shared_ptr<BaseAction>& action);

/// Limits the threads that take part in runs, the calling one included; 0 asks for as many as the computer has processors, which
/// is the default, and more than 256 counts as 256. Takes effect for runs that start afterwards. With 1, a run stays on its own
/// thread.
KOVISCORE_EXPORT void setMaxConcurrency(unsigned int nbThreads);
KOVISCORE_EXPORT unsigned int getMaxConcurrency();

namespace detail
{
/// Runs a provider's actions as a part of a run; `share` is the part of the run's progress that they are. Returns when they have
/// ended, also after a failure or a cancellation, which the run context then holds; false then, and the caller's result counts
/// for nothing any more. A provider of one pending action runs on the calling thread; the threads that wait help with the same
/// run.
KOVISCORE_EXPORT bool runNestedProvider(const ActionProviderPtr& provider, RunContext& context, double share);

/// Whether the run is to stop: cancelled or failed.
KOVISCORE_EXPORT bool isStopping(const RunContext& context);

/// Adds a finished part of the progress. What an action has not added when it is done is added then.
KOVISCORE_EXPORT void addProgress(RunContext& context, double share);
} // namespace detail
} // namespace kovis::core
