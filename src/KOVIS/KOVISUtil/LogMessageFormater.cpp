#include "KOVIS/KOVISUtil/LogMessageFormater.h"

namespace kovis
{
LogMessageFormater::LogMessageFormater(const LogMessageManager& manager) : m_manager(manager) {}
LogMessageFormater::~LogMessageFormater() = default;

LogMessageFormater& LogMessageFormater::setMsgId(const std::string& domainKey, int number)
{
    m_format.parse(m_manager.getMessage(domainKey, number));
    m_bMessageSet = true;
    return *this;
}

std::string LogMessageFormater::string() const
{
    return m_bMessageSet ? m_stream.str() + m_format.str() : m_stream.str();
}
} // namespace kovis
