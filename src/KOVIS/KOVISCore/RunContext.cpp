#include "KOVIS/KOVISCore/RunContext.h"

#include "KOVIS/KOVISCore/CoreMessages.h"

#include <algorithm>

namespace kovis::core::detail
{
namespace
{
// The greatest value below 1.
constexpr double g_almostDone = 0.99999999999999989;

// A share comes from outside: NaN and negative values count as nothing.
double toShare(double share)
{
    return share > 0.0 ? std::min(share, 1.0) : 0.0;
}
} // namespace

RunContext::RunContext(Run& run) : m_run(run), m_parent(nullptr), m_share(1.0) {}

RunContext::RunContext(RunContext& parent, double share) : m_run(parent.m_run), m_parent(&parent), m_share(toShare(share)) {}

void RunContext::fail(const std::exception_ptr& error)
{
    if (m_run.fail(error))
    {
        for (RunContext* context = this; context != nullptr; context = context->m_parent)
        {
            context->m_bFailed.store(true, std::memory_order_release);
        }
    }
}

void RunContext::fail(const std::string& message, const SourcePlace& place)
{
    if (!isStopping())
    {
        logError(message, place);
    }
    fail(std::make_exception_ptr(KOVISCoreException(message, place.m_function, place.m_file, place.m_line)));
}

void RunContext::addProgress(double share)
{
    const double added = toShare(share);
    if (added == 0.0)
    {
        return;
    }
    for (RunContext* context = this; context != nullptr; context = context->m_parent)
    {
        context->m_added.fetch_add(added, std::memory_order_relaxed);
    }
}

void RunContext::completeProgress()
{
    addProgress(m_share - getAdded());
}

double RunContext::getProgress() const
{
    return m_share > 0.0 ? std::min(getAdded() / m_share, g_almostDone) : 0.0;
}
} // namespace kovis::core::detail
