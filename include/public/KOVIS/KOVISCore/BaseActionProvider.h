#pragma once

#include "KOVIS/KOVISCore/BaseAction.h"
#include "KOVIS/KOVISCore/BaseRequestOrigin.h"
#include "KOVIS/KOVISCore/KOVISCoreExport.h"
#include "KOVIS/KOVISUtil/ElementsRange.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"

#include <boost/shared_ptr.hpp>

#include <atomic>

namespace kovis::core
{
/// One piece of work that a provider has given out.
class KOVISCORE_EXPORT BaseActionRequest
{
public:
    BaseActionRequest(const boost::shared_ptr<BaseAction>& action, const ElementsRange& range, double share)
        : m_action(action), m_range(range), m_share(share)
    {
    }
    virtual ~BaseActionRequest();

    const boost::shared_ptr<BaseAction>& getAction() const { return m_action; }
    /// The elements of the work that the action covers.
    const ElementsRange& getRange() const { return m_range; }
    /// The part of the provider's whole work that this piece is, from 0 to 1.
    double getShare() const { return m_share; }

private:
    boost::shared_ptr<BaseAction> m_action;
    ElementsRange m_range;
    double m_share;
};

/// A source of actions, from which the framework pulls on several threads at once until it is empty. Each action that was given
/// out is run once and, when it is done, notified. Of a run that fails or is cancelled, what was given out and has not begun is
/// dropped, and clearDerived is called when all that has begun has ended.
class KOVISCORE_EXPORT BaseActionProvider
{
public:
    virtual ~BaseActionProvider();
    BaseActionProvider(const BaseActionProvider&) = delete;
    BaseActionProvider& operator=(const BaseActionProvider&) = delete;

    /// Gives the next action. `bGiven` tells whether there was one; the last argument takes data that the action's run on another
    /// computer would need, and stays empty here. False, with a message, if the next action could not be made.
    /// Safe to call from several threads at once.
    virtual BoolResult queryNextAction(const BaseRequestOrigin& origin, boost::shared_ptr<BaseActionRequest>& request,
                                       bool& bGiven, boost::shared_ptr<BaseSerializationObject>& data) = 0;
    /// Whether queryNextAction would still give an action.
    virtual bool hasPendingAction() const = 0;
    /// Tells that a request's action is done. `bFinished` tells whether it was the last one. Safe to call from several threads at
    /// once.
    virtual BoolResult notifyDerived(const boost::shared_ptr<BaseActionRequest>& request,
                                     const boost::shared_ptr<const BaseSerializationObject>& data, bool& bFinished) = 0;
    /// Drops what the provider holds; no action is pending afterwards.
    virtual void clearDerived() = 0;
    /// From now on no action is given out. Safe to call from any thread.
    virtual void requestCancellationDerived();

    /// Upper bound of the actions still pending, so that no more workers are woken than there is work for: with 0 or 1 the
    /// provider is emptied on the calling thread.
    unsigned long getNbPendingActions() const { return m_nbPendingActions.load(std::memory_order_relaxed); }

protected:
    BaseActionProvider();

    bool isCancellationRequested() const { return m_bCancelled.load(std::memory_order_acquire); }
    std::atomic<unsigned long> m_nbPendingActions{0};

private:
    std::atomic<bool> m_bCancelled{false};
};

using ActionProviderPtr = boost::shared_ptr<BaseActionProvider>;

/// A provider of just one action.
class KOVISCORE_EXPORT SingleActionProvider : public BaseActionProvider
{
public:
    SingleActionProvider();
    ~SingleActionProvider() override;

    /// False, with a message, for an empty pointer.
    BoolResult init(const boost::shared_ptr<BaseAction>& action);

    BoolResult queryNextAction(const BaseRequestOrigin& origin, boost::shared_ptr<BaseActionRequest>& request, bool& bGiven,
                               boost::shared_ptr<BaseSerializationObject>& data) override;
    bool hasPendingAction() const override;
    BoolResult notifyDerived(const boost::shared_ptr<BaseActionRequest>& request,
                             const boost::shared_ptr<const BaseSerializationObject>& data, bool& bFinished) override;
    void clearDerived() override;

private:
    boost::shared_ptr<BaseAction> m_action;
};
} // namespace kovis::core
