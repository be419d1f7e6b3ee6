#pragma once

#include "KOVIS/KOVISUtil/LogMessageManager.h"
#include "KOVIS/KOVISUtil/MessageTable.h"

namespace kovis::imaproc::color
{
namespace details
{
/// The texts of one message domain, in the order of their numbers: g_domainKey and getMessages(). Specialised in the unit that
/// holds the table, by constants, for the table is asked for before the turn of that unit's initialisers.
template <class TDomain, class TEnable>
struct MsgMapRegistratorDerived;
} // namespace details

/// Enters the table TDerived into the module's message map, once.
template <class TDomain, class TDerived>
class MsgMapRegistrator
{
public:
    static bool registerMessageMap()
    {
        if (g_bAlreadyRegistred)
        {
            return true;
        }
        g_bAlreadyRegistred = true;
        LogMessageManager* const manager = LogMessageManager::getInstance("KOVISIPLColor");
        for (const MessageText& message : TDerived::getMessages())
        {
            manager->addMessage(TDerived::g_domainKey, message.m_number, message.m_text);
        }
        return true;
    }

    /// Takes the table out again. The manager outlives the module.
    static void withdrawMessageMap()
    {
        LogMessageManager::getInstance("KOVISIPLColor")->removeMessages(TDerived::g_domainKey);
        g_bAlreadyRegistred = false;
    }

private:
    static constinit bool g_bAlreadyRegistred; // written at load and unload alone
};

template <class TDomain, class TDerived>
constinit bool MsgMapRegistrator<TDomain, TDerived>::g_bAlreadyRegistred = false;

/// Enters a domain's table at load and withdraws it at unload: one static object in the table's unit.
template <class TDomain>
class MsgMapHolder
{
public:
    MsgMapHolder() { Registrator::registerMessageMap(); }
    ~MsgMapHolder() { Registrator::withdrawMessageMap(); }
    MsgMapHolder(const MsgMapHolder&) = delete;
    MsgMapHolder& operator=(const MsgMapHolder&) = delete;

private:
    using Registrator = MsgMapRegistrator<TDomain, details::MsgMapRegistratorDerived<TDomain, void>>;
};
} // namespace kovis::imaproc::color

/// Defines process() of a domain, forwarding to its table, and the table's holder. At global scope, after the table.
#define KOVIS_REGISTER_COLOR_MESSAGES(DOMAIN)                                                                                    \
    bool kovis::MessageMapRegistrator<kovis::imaproc::color::DOMAIN, void>::process()                                            \
    {                                                                                                                            \
        using kovis::imaproc::color::DOMAIN;                                                                                     \
        return kovis::imaproc::color::MsgMapRegistrator<                                                                         \
            DOMAIN, kovis::imaproc::color::details::MsgMapRegistratorDerived<DOMAIN, void>>::registerMessageMap();               \
    }                                                                                                                            \
    namespace                                                                                                                    \
    {                                                                                                                            \
    const kovis::imaproc::color::MsgMapHolder<kovis::imaproc::color::DOMAIN> g_messageMapHolder;                                 \
    }                                                                                                                            \
    static_assert(true)
