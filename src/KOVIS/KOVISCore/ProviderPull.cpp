#include "KOVIS/KOVISCore/ProviderPull.h"

#include "KOVIS/KOVISCore/ActionRunner.h"
#include "KOVIS/KOVISCore/CoreMessages.h"

#include <exception>

namespace kovis::core::detail
{
namespace
{
SourcePlace getPlace(unsigned int line)
{
    return SourcePlace{"bool kovis::core::detail::ProviderPull::pullOne(const BaseRequestOrigin&)",
                       "KOVIS/KOVISCore/ProviderPull.cpp", line};
}
} // namespace

void ProviderPull::pull(unsigned int worker) noexcept
{
    try
    {
        const BaseRequestOrigin origin(worker);
        while (!m_context.isStopping() && pullOne(origin))
        {
        }
    }
    catch (...)
    {
        m_context.fail(std::current_exception());
    }
}

bool ProviderPull::pullOne(const BaseRequestOrigin& origin)
{
    boost::shared_ptr<BaseActionRequest> request;
    boost::shared_ptr<BaseSerializationObject> data;
    bool bGiven = false;
    const BoolResult queried = m_provider->queryNextAction(origin, request, bGiven, data);
    if (!queried.getResult())
    {
        m_context.fail(queried.getMessage().empty() ? coreText(eCoreMessage::eCM_QueryFailed) : queried.getMessage(),
                       getPlace(__LINE__));
        return false;
    }
    if (!bGiven)
    {
        return false;
    }
    if (!request || !request->getAction())
    {
        m_context.fail(coreText(eCoreMessage::eCM_EmptyRequest), getPlace(__LINE__));
        return false;
    }
    // What was given out while the run stopped is dropped: it has not begun.
    if (m_context.isStopping() || !ActionRunner::runPiece(request->getAction(), m_context, m_share * request->getShare()))
    {
        return false;
    }
    bool bFinished = false;
    const BoolResult notified = m_provider->notifyDerived(request, data, bFinished);
    if (!notified.getResult())
    {
        m_context.fail(notified.getMessage().empty()
                           ? coreText(eCoreMessage::eCM_NotifyFailed, request->getAction()->getClassName())
                           : notified.getMessage(),
                       getPlace(__LINE__));
        return false;
    }
    return true;
}
} // namespace kovis::core::detail
