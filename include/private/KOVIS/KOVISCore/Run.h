#pragma once

#include "KOVIS/KOVISCore/BaseActionProvider.h"

#include <atomic>
#include <exception>
#include <mutex>
#include <vector>

namespace kovis::core::detail
{
/// What all actions of one run share: whether it goes on, what it failed with, and the providers that it pulls from.
/// Safe from any thread.
class Run
{
public:
    /// `nbThreads` is the number of threads that the run may use, the calling one included.
    explicit Run(unsigned int nbThreads);
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    unsigned int getNbThreads() const { return m_nbThreads; }

    bool isStopping() const { return m_stop.load(std::memory_order_acquire) != eStop::none; }
    bool isCancelled() const { return m_stop.load(std::memory_order_acquire) == eStop::cancelled; }

    /// Ends the run with an error. False if it was stopping before: then nothing changes, for the first reason wins.
    bool fail(const std::exception_ptr& error);
    /// Ends the run as cancelled, unless it was stopping before, and tells the providers.
    void cancel();
    /// What the run failed with; empty if it did not fail.
    std::exception_ptr getError() const;
    /// The same, and keeps none: whoever started the run is then the only one to hold it.
    std::exception_ptr takeError();

    /// Enters a provider for the time that it is pulled from, so that a cancellation reaches it. False, and nothing is entered,
    /// if the run is stopping.
    bool enterProvider(const ActionProviderPtr& provider);
    void leaveProvider(const ActionProviderPtr& provider);

private:
    enum class eStop
    {
        none,
        cancelled,
        failed
    };

    const unsigned int m_nbThreads;
    std::atomic<eStop> m_stop{eStop::none};
    mutable std::mutex m_mutex;
    std::exception_ptr m_error;
    std::vector<ActionProviderPtr> m_providers;
};
} // namespace kovis::core::detail
