#include "KOVIS/KOVISUtil/MessageTable.h"

#include "KOVIS/KOVISUtil/LogMessageManager.h"

#include <boost/thread/lock_guard.hpp>
#include <boost/thread/mutex.hpp>

namespace kovis
{
namespace
{
// One lock for all tables: they are entered once each, and asked for only when a message is formed.
boost::mutex& getTableMutex()
{
    static auto* const g_mutex = new boost::mutex();
    return *g_mutex;
}
} // namespace

bool MessageTable::enter()
{
    const boost::lock_guard<boost::mutex> lock(getTableMutex());
    if (m_bEntered)
    {
        return true;
    }
    LogMessageManager* const manager = LogMessageManager::getInstance(m_managerName);
    for (std::size_t i = 0; i < m_nbTexts; ++i)
    {
        manager->addMessage(m_domainKey, m_texts[i].m_number, m_texts[i].m_text);
    }
    m_bEntered = true;
    return true;
}

void MessageTable::withdraw()
{
    const boost::lock_guard<boost::mutex> lock(getTableMutex());
    if (m_bEntered)
    {
        LogMessageManager::getInstance(m_managerName)->removeMessages(m_domainKey);
        m_bEntered = false;
    }
}

MessageTableHolder::MessageTableHolder(MessageTable& table) : m_table(table)
{
    m_table.enter();
}

MessageTableHolder::~MessageTableHolder()
{
    m_table.withdraw();
}
} // namespace kovis
