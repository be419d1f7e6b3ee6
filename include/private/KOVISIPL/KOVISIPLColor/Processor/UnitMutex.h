#pragma once

#include <boost/thread/mutex.hpp>

/// A mutex of one source file, made at its first use. Put it into an unnamed namespace: no two files share one.
#define KOVIS_UNIT_MUTEX(NAME)              \
    struct NAME                             \
    {                                       \
        static boost::mutex& get()          \
        {                                   \
            static boost::mutex g_mutex;    \
            return g_mutex;                 \
        }                                   \
    }
