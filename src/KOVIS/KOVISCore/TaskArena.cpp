// The one source that knows TBB. It is compiled without thread-sanitizer instrumentation, as the distribution's TBB is, and tells
// the sanitizer where work changes hands instead. So it shares no inline code with other units that would need the
// instrumentation.
#include "KOVIS/KOVISCore/TaskArena.h"

#include <oneapi/tbb/global_control.h>
#include <oneapi/tbb/task_arena.h>
#include <oneapi/tbb/task_group.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>

#ifdef KOVIS_TSAN
extern "C" void __tsan_acquire(void* address);
extern "C" void __tsan_release(void* address);
#endif

namespace kovis::core::detail
{
namespace
{
void acquireFrom([[maybe_unused]] void* address)
{
#ifdef KOVIS_TSAN
    __tsan_acquire(address);
#endif
}

void releaseTo([[maybe_unused]] void* address)
{
#ifdef KOVIS_TSAN
    __tsan_release(address);
#endif
}

// Callers of the arena at once; more would make the search for work slow. Who finds no place works alone.
constexpr int g_nbCallerPlaces = 4;

struct Arenas
{
    explicit Arenas(int nbThreads)
        : m_nbPlaces(nbThreads < g_nbCallerPlaces ? nbThreads : g_nbCallerPlaces),
          m_pieces(nbThreads - 1 + m_nbPlaces, static_cast<unsigned int>(m_nbPlaces)),
          m_background(nbThreads, 0)
    {
    }

    const int m_nbPlaces;
    int m_nbCallers = 0;
    tbb::task_arena m_pieces;     // the pieces of all runs
    tbb::task_arena m_background; // threads that a background run starts from
};

// For all that follows; a mutex and no atomics, as the sanitizer sees no atomics of this unit.
std::mutex g_mutex;
Arenas* g_arenas[g_greatestConcurrency + 1];
tbb::global_control* g_control = nullptr;
unsigned int g_controlled = 0;

// TBB has a worker for each processor but one. A background run needs a thread beside those that help it, and more threads than
// processors may be asked for.
void provideThreads(unsigned int nbThreads)
{
    if (nbThreads > g_controlled)
    {
        // The greater limit before the smaller one goes.
        auto* const control = new tbb::global_control(tbb::global_control::max_allowed_parallelism, std::size_t{2} * nbThreads);
        delete g_control;
        g_control = control;
        g_controlled = nbThreads;
    }
}

// Arenas are kept for the life of the process: runs may be under way in them, also while it ends. Under the lock.
Arenas& getArenas(unsigned int nbThreads)
{
    Arenas*& arenas = g_arenas[nbThreads];
    if (arenas == nullptr)
    {
        provideThreads(nbThreads);
        arenas = new Arenas(static_cast<int>(nbThreads));
    }
    return *arenas;
}

// A caller's place in the arena of the pieces, if there is one left.
class CallerPlace
{
public:
    explicit CallerPlace(unsigned int nbThreads)
    {
        const std::lock_guard<std::mutex> lock(g_mutex);
        Arenas& arenas = getArenas(nbThreads);
        if (arenas.m_nbCallers < arenas.m_nbPlaces)
        {
            ++arenas.m_nbCallers;
            m_arenas = &arenas;
        }
    }
    ~CallerPlace()
    {
        if (m_arenas != nullptr)
        {
            const std::lock_guard<std::mutex> lock(g_mutex);
            --m_arenas->m_nbCallers;
        }
    }
    CallerPlace(const CallerPlace&) = delete;
    CallerPlace& operator=(const CallerPlace&) = delete;

    tbb::task_arena* getArena() const { return m_arenas != nullptr ? &m_arenas->m_pieces : nullptr; }

private:
    Arenas* m_arenas = nullptr;
};

tbb::task_arena& getBackgroundArena(unsigned int nbThreads)
{
    const std::lock_guard<std::mutex> lock(g_mutex);
    return getArenas(nbThreads).m_background;
}

// Whose work this thread does in the arena, if any.
thread_local const void* t_run = nullptr;

class RunOnThread
{
public:
    explicit RunOnThread(const void* run) : m_before(t_run) { t_run = run; }
    ~RunOnThread() { t_run = m_before; }
    RunOnThread(const RunOnThread&) = delete;
    RunOnThread& operator=(const RunOnThread&) = delete;

private:
    const void* m_before;
};

void pullAsTask(PullJob& job, unsigned int worker, const void* run)
{
    acquireFrom(&job);
    {
        const RunOnThread onThread(run);
        job.pull(worker);
    }
    releaseTo(&job);
}

// A context of this kind has the floating-point settings of the thread that makes it, and its tasks run under them.
constexpr auto g_contextKind = tbb::task_group_context::isolated;
constexpr std::uintptr_t g_contextTraits = tbb::task_group_context::default_traits | tbb::task_group_context::fp_settings;

void pullTogether(PullJob& job, unsigned int nbTasks, const void* run, tbb::task_group_context& context)
{
    tbb::task_group group(context);
    releaseTo(&job);
    for (unsigned int worker = 1; worker < nbTasks; ++worker)
    {
        group.run([&job, worker, run] { pullAsTask(job, worker, run); });
    }
    group.run_and_wait([&job, run] { pullAsTask(job, 0, run); });
    acquireFrom(&job);
}
} // namespace

BackgroundJob::~BackgroundJob() = default;

void pullInArena(PullJob& job, unsigned int nbTasks, unsigned int nbThreads, const void* run)
{
    if (nbTasks <= 1 || nbThreads <= 1)
    {
        job.pull(0);
        return;
    }
    // Before the arena is entered, which changes the settings.
    tbb::task_group_context context(g_contextKind, g_contextTraits);
    if (t_run == run)
    {
        pullTogether(job, nbTasks, run, context);
        return;
    }
    const CallerPlace place(nbThreads);
    if (tbb::task_arena* const arena = place.getArena())
    {
        arena->execute([&] { tbb::this_task_arena::isolate([&] { pullTogether(job, nbTasks, run, context); }); });
    }
    else
    {
        job.pull(0);
    }
}

void enqueueInBackground(BackgroundJob* job, unsigned int nbThreads)
{
    tbb::task_arena& arena = getBackgroundArena(nbThreads);
    auto context = std::make_unique<tbb::task_group_context>(g_contextKind, g_contextTraits);
    releaseTo(job);
    arena.enqueue(
        [job, taken = context.get()]
        {
            const std::unique_ptr<tbb::task_group_context> held(taken);
            acquireFrom(job);
            tbb::task_group group(*held);
            group.run_and_wait([job] { job->runInBackground(); });
            delete job;
        });
    (void)context.release();
}
} // namespace kovis::core::detail
