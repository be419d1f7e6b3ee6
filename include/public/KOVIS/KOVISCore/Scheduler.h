#pragma once

#include "KOVIS/KOVISCore/BaseAction.h"
#include "KOVIS/KOVISCore/BaseActionProvider.h"
#include "KOVIS/KOVISCore/KOVISCoreExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::core
{
/// Runs everything that a provider gives, to the end, on the calling thread and the workers, for who drives a level by hand.
/// What fails inside comes out as one exception: the first one wins, what has not begun is dropped, what has is waited for.
/// A step of a run gives nested work to its run instead, by runNestedProvider.
KOVISCORE_EXPORT void runProvider(const ActionProviderPtr& provider);

/// Runs an action to the end on the calling thread and the workers. Throws what the run failed with: an exception that was thrown
/// inside unchanged, a failure without one as a KOVISCoreException with its message; a cancelled run throws one that says so.
/// Throws KOVISCoreException for an empty pointer and for an action whose run is under way.
KOVISCORE_EXPORT void executeAction(const boost::shared_ptr<BaseAction>& action);

/// Limits the threads that take part in runs, the calling one included; 0 asks for as many as the computer has processors, which is
/// the default. Takes effect for runs that start afterwards.
KOVISCORE_EXPORT void setMaxConcurrency(unsigned int nbThreads);
KOVISCORE_EXPORT unsigned int getMaxConcurrency();

namespace detail
{
/// Runs a provider's actions as a part of a run; `share` is the part of the run's progress that they are. Returns when they have
/// ended, also after a failure or a cancellation, which the run context then holds; false then.
KOVISCORE_EXPORT bool runNestedProvider(const ActionProviderPtr& provider, RunContext& context, double share);

/// Whether the run is to stop: cancelled or failed.
KOVISCORE_EXPORT bool isStopping(const RunContext& context);

/// Adds a finished part of the progress.
KOVISCORE_EXPORT void addProgress(RunContext& context, double share);
} // namespace detail
} // namespace kovis::core
