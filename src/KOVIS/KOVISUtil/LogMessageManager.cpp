#include "KOVIS/KOVISUtil/LogMessageManager.h"

#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <boost/thread/lock_guard.hpp>

#include <limits>

namespace kovis
{
LogMessageManager* LogMessageManager::getInstance(const std::string& name)
{
    struct Managers
    {
        boost::mutex m_mutex;
        std::map<std::string, LogMessageManager*> m_byName;
    };
    // Never destroyed: libraries ask for texts, and withdraw theirs, from their own static destructors.
    static auto* const g_managers = new Managers();

    const boost::lock_guard<boost::mutex> lock(g_managers->m_mutex);
    LogMessageManager*& manager = g_managers->m_byName[name];
    if (manager == nullptr)
    {
        manager = new LogMessageManager(name);
    }
    return manager;
}

LogMessageManager::LogMessageManager(const std::string& name) : m_name(name) {}
LogMessageManager::~LogMessageManager() = default;

void LogMessageManager::addMessage(const std::string& domainKey, int number, const std::string& text)
{
    const boost::lock_guard<boost::mutex> lock(m_mutex);
    m_messages[std::make_pair(domainKey, number)] = text;
}

void LogMessageManager::removeMessages(const std::string& domainKey)
{
    const boost::lock_guard<boost::mutex> lock(m_mutex);
    const auto first = m_messages.lower_bound(std::make_pair(domainKey, std::numeric_limits<int>::min()));
    const auto last = m_messages.upper_bound(std::make_pair(domainKey, std::numeric_limits<int>::max()));
    m_messages.erase(first, last);
}

std::string LogMessageManager::getMessage(const std::string& domainKey, int number) const
{
    {
        const boost::lock_guard<boost::mutex> lock(m_mutex);
        const auto found = m_messages.find(std::make_pair(domainKey, number));
        if (found != m_messages.end())
        {
            return found->second;
        }
    }
    const SourcePlace place{"std::string kovis::LogMessageManager::getMessage(const std::string&, int) const",
                            "KOVIS/KOVISUtil/LogMessageManager.cpp", __LINE__};
    const LogMessageManager& utilManager = getKOVISUtilLogMessageManager();
    if (this == &utilManager && domainKey == typeid(eKOVISUtilErrors::domain).name())
    {
        // Asking this library's own table for the text of the failure could end here again.
        throw KOVISUtilException("No message " + std::to_string(number) + " in the domain " + domainKey + " of the manager " +
                                     m_name,
                                 place.m_function, place.m_file, place.m_line);
    }
    throwMessage<KOVISUtilException>(utilManager, getKOVISUtilLogger(), eKOVISUtilErrors::eUE_UnknownMessage, place, number,
                                     domainKey, m_name);
}

unsigned long LogMessageManager::getNbMessages(const std::string& domainKey) const
{
    const boost::lock_guard<boost::mutex> lock(m_mutex);
    unsigned long nbMessages = 0;
    for (auto it = m_messages.lower_bound(std::make_pair(domainKey, std::numeric_limits<int>::min()));
         it != m_messages.end() && it->first.first == domainKey; ++it)
    {
        ++nbMessages;
    }
    return nbMessages;
}
} // namespace kovis
