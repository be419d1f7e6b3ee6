#include "KOVIS/KOVISUtil/BaseException.h"

#include <boost/make_shared.hpp>

namespace kovis
{
namespace
{
std::string toString(const char* text)
{
    return text != nullptr ? std::string(text) : std::string();
}
} // namespace

BaseException::BaseException() = default;

BaseException::BaseException(const std::string& message, const char* function, const char* file, unsigned int line)
    : m_message(message), m_function(toString(function)), m_file(toString(file)), m_line(line)
{
}

BaseException::BaseException(const std::string& message, const char* function, const char* file, unsigned int line,
                             const BaseException& cause)
    : BaseException(message, function, file, line)
{
    m_cause = boost::make_shared<const BaseException>(cause);
}

BaseException::BaseException(const std::string& message, const char* function, const char* file, unsigned int line,
                             const std::exception& cause)
    : BaseException(message, function, file, line)
{
    // Seen as std::exception, the cause may still be one of ours, with a place and a cause of its own.
    if (const auto* const base = dynamic_cast<const BaseException*>(&cause))
    {
        m_cause = boost::make_shared<const BaseException>(*base);
    }
    else
    {
        m_cause = boost::make_shared<const BaseException>(BaseException(toString(cause.what()), "", "", 0));
    }
}

BaseException::BaseException(const BaseException&) = default;
BaseException& BaseException::operator=(const BaseException&) = default;
BaseException::~BaseException() = default;

const char* BaseException::what() const noexcept
{
    return m_message.c_str();
}

std::string BaseException::getFullMessage() const
{
    std::string text = m_message;
    if (!m_function.empty() || !m_file.empty())
    {
        text += "\n    at " + m_function + " (" + m_file + ":" + std::to_string(m_line) + ")";
    }
    if (m_cause)
    {
        text += "\ncaused by: " + m_cause->getFullMessage();
    }
    return text;
}

UnHandleException::UnHandleException() : BaseException("Exception of unknown type", "", "", 0) {}
UnHandleException::~UnHandleException() = default;

KOVIS_DEFINE_EXCEPTION(KOVISUtilException);
} // namespace kovis
