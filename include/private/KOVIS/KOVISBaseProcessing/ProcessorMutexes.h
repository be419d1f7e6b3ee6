#pragma once

#include <boost/thread/mutex.hpp>

namespace kovis::processor
{
// The mutexes of the static caches of processor classes. TOwner is the class, or a type of an unnamed namespace for a unit that
// has instances of its own; each owner has mutexes of its own, and no two caches share one.
#define KOVIS_CACHE_MUTEX(NAME)                                                                                                  \
    template <class TOwner>                                                                                                      \
    struct NAME                                                                                                                  \
    {                                                                                                                            \
        static boost::mutex& get()                                                                                               \
        {                                                                                                                        \
            static boost::mutex g_mutex;                                                                                         \
            return g_mutex;                                                                                                      \
        }                                                                                                                        \
    }

KOVIS_CACHE_MUTEX(VersionMutex);
KOVIS_CACHE_MUTEX(TypeNameMutex);
KOVIS_CACHE_MUTEX(ToolTipMutex);
KOVIS_CACHE_MUTEX(DispatchPolicyMutex);
KOVIS_CACHE_MUTEX(ForcedInstructionSetsMutex);

#undef KOVIS_CACHE_MUTEX

/// Makes the mutexes of a class while its library is loaded, so that none is made for the first time during a run. Returns true,
/// for a static to be initialised with.
template <class TOwner>
bool makeClassMutexes()
{
    VersionMutex<TOwner>::get();
    TypeNameMutex<TOwner>::get();
    ToolTipMutex<TOwner>::get();
    DispatchPolicyMutex<TOwner>::get();
    return true;
}

/// The same for a class with kernels.
template <class TOwner>
bool makeAlgorithmMutexes()
{
    makeClassMutexes<TOwner>();
    ForcedInstructionSetsMutex<TOwner>::get();
    return true;
}

/// The same for a unit that holds one form of a class's kernels.
template <class TOwner>
bool makeVariantMutexes()
{
    VersionMutex<TOwner>::get();
    TypeNameMutex<TOwner>::get();
    ToolTipMutex<TOwner>::get();
    ForcedInstructionSetsMutex<TOwner>::get();
    return true;
}
} // namespace kovis::processor
