#pragma once

namespace kovis::core::detail
{
/// Work that several threads do together.
class PullJob
{
public:
    /// Works until nothing is left. Called once on each thread that takes part; `worker` counts them from 0, the calling thread.
    virtual void pull(unsigned int worker) noexcept = 0;

protected:
    ~PullJob() = default;
};

/// Work that is done in the background.
class BackgroundJob
{
public:
    virtual ~BackgroundJob();
    virtual void runInBackground() noexcept = 0;
};

/// Threads of the process at most that one run uses.
constexpr unsigned int g_greatestConcurrency = 256;

/// Does a job on the calling thread and on up to nbTasks - 1 workers, of nbThreads - 1 that there are for all runs; returns when
/// all have ended. `run` tells runs apart: while a thread waits it helps with that run alone. The workers have the floating-point
/// settings of the calling thread. `nbThreads` is from 1 to g_greatestConcurrency, and the same all through a run.
void pullInArena(PullJob& job, unsigned int nbTasks, unsigned int nbThreads, const void* run);

/// Does a job on a thread of the background, where it counts as the calling thread of its run, with the floating-point settings
/// that this thread has now. At most nbThreads jobs go on at once. Takes the job over, and deletes it at its end.
void enqueueInBackground(BackgroundJob* job, unsigned int nbThreads);
} // namespace kovis::core::detail
