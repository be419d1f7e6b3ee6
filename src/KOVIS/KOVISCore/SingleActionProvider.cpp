#include "KOVIS/KOVISCore/CoreMessages.h"

#include "KOVIS/KOVISCore/BaseActionProvider.h"

#include <boost/make_shared.hpp>

namespace kovis::core
{
SingleActionProvider::SingleActionProvider() = default;

SingleActionProvider::~SingleActionProvider() = default;

BoolResult SingleActionProvider::init(const boost::shared_ptr<BaseAction>& action)
{
    if (!action)
    {
        return BoolResult(false, detail::coreText(eCoreMessage::eCM_EmptyAction));
    }
    m_action = action;
    m_nbPendingActions.store(1, std::memory_order_release);
    return BoolResult(true);
}

BoolResult SingleActionProvider::queryNextAction(const BaseRequestOrigin&, boost::shared_ptr<BaseActionRequest>& request,
                                                 bool& bGiven, boost::shared_ptr<BaseSerializationObject>& data)
{
    data.reset();
    request.reset();
    // Whoever takes the count from 1 to 0 has the action.
    unsigned long pending = 1;
    bGiven = !isCancellationRequested() && m_nbPendingActions.compare_exchange_strong(pending, 0, std::memory_order_acq_rel);
    if (bGiven)
    {
        request = boost::make_shared<BaseActionRequest>(m_action, ElementsRange(0, 1), 1.0);
    }
    return BoolResult(true);
}

bool SingleActionProvider::hasPendingAction() const
{
    return !isCancellationRequested() && getNbPendingActions() > 0;
}

BoolResult SingleActionProvider::notifyDerived(const boost::shared_ptr<BaseActionRequest>&,
                                               const boost::shared_ptr<const BaseSerializationObject>&, bool& bFinished)
{
    bFinished = true;
    return BoolResult(true);
}

void SingleActionProvider::clearDerived()
{
    m_nbPendingActions.store(0, std::memory_order_release);
    m_action.reset();
}
} // namespace kovis::core
