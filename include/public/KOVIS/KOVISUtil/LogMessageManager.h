#pragma once

#include "KOVIS/KOVISUtil/KOVISUtilExport.h"

#include <boost/thread/mutex.hpp>

#include <map>
#include <string>
#include <utility>

namespace kovis
{
/// The message texts of one library, by domain key and number. A domain key is the mangled name of the domain's type.
/// All operations are safe from any thread.
class KOVISUTIL_EXPORT LogMessageManager
{
public:
    /// The manager of that name; made at the first request, lives as long as the process.
    static LogMessageManager* getInstance(const std::string& name);

    LogMessageManager(const LogMessageManager&) = delete;
    LogMessageManager& operator=(const LogMessageManager&) = delete;

    /// Enters a text; a text that is there already under that key and number is replaced.
    void addMessage(const std::string& domainKey, int number, const std::string& text);

    /// Drops all texts of a domain, for a library that is unloaded.
    void removeMessages(const std::string& domainKey);

    /// The text, a boost::format pattern. Throws KOVISUtilException for a key and number without a text.
    std::string getMessage(const std::string& domainKey, int number) const;

    /// Number of texts that are entered under a domain key.
    unsigned long getNbMessages(const std::string& domainKey) const;

    const std::string& getName() const { return m_name; }

private:
    explicit LogMessageManager(const std::string& name);
    ~LogMessageManager();

    const std::string m_name;
    mutable boost::mutex m_mutex;
    std::map<std::pair<std::string, int>, std::string> m_messages;
};
} // namespace kovis
