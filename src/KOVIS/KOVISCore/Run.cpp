#include "KOVIS/KOVISCore/Run.h"

#include <algorithm>
#include <utility>

namespace kovis::core::detail
{
Run::Run(unsigned int nbThreads) : m_nbThreads(nbThreads) {}

bool Run::fail(const std::exception_ptr& error)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (isStopping())
    {
        return false;
    }
    m_error = error;
    m_stop.store(eStop::failed, std::memory_order_release);
    return true;
}

void Run::cancel()
{
    std::vector<ActionProviderPtr> providers;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (isStopping())
        {
            return;
        }
        m_stop.store(eStop::cancelled, std::memory_order_release);
        providers = m_providers;
    }
    for (const ActionProviderPtr& provider : providers)
    {
        provider->requestCancellationDerived();
    }
}

std::exception_ptr Run::getError() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_error;
}

std::exception_ptr Run::takeError()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_error, nullptr);
}

bool Run::enterProvider(const ActionProviderPtr& provider)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (isStopping())
    {
        return false;
    }
    m_providers.push_back(provider);
    return true;
}

void Run::leaveProvider(const ActionProviderPtr& provider)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = std::find(m_providers.begin(), m_providers.end(), provider);
    if (found != m_providers.end())
    {
        m_providers.erase(found);
    }
}
} // namespace kovis::core::detail
