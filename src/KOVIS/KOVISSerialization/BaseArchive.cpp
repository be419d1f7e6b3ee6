#include "KOVIS/KOVISSerialization/BaseArchive.h"

#include "KOVIS/KOVISSerialization/SerializationMessages.h"

namespace kovis
{
BaseArchive::BaseArchive() = default;
BaseArchive::~BaseArchive() = default;

bool BaseArchive::isClassVersionRegistred(const std::string& className) const
{
    return m_classVersions.count(className) != 0;
}

unsigned int BaseArchive::getRegisterClassVersion(const std::string& className) const
{
    const auto found = m_classVersions.find(className);
    return found != m_classVersions.end() ? found->second : 0;
}

void BaseArchive::registerClassVersion(const std::string& className, unsigned int version)
{
    m_classVersions[className] = version;
}

BaseOArchive::BaseOArchive() = default;
BaseOArchive::~BaseOArchive() = default;

BaseIArchive::BaseIArchive() = default;
BaseIArchive::~BaseIArchive() = default;

std::string BaseIArchive::getPlace(const std::string& key) const
{
    return "key \"" + key + "\"";
}

void BaseIArchive::refuseItem(const std::string& key, const std::string& reason) const
{
    throwSerializationMessage(eKOVISSerializationMessage::eSM_Refused,
                              SourcePlace{"void kovis::BaseIArchive::refuseItem(const std::string&, const std::string&) const",
                                          "KOVIS/KOVISSerialization/BaseArchive", __LINE__},
                              getPlace(key), reason);
}

ArchiveSectionManager::ArchiveSectionManager(BaseArchive& archive, const std::string& sectionName) : m_archive(archive)
{
    m_archive.beginSection(sectionName);
}

ArchiveSectionManager::~ArchiveSectionManager()
{
    // A destructor may run while an exception is on its way, so a failure here can only be logged.
    try
    {
        m_archive.endSection();
    }
    catch (const std::exception& e)
    {
        try
        {
            formatAndLog(getKOVISSerializationLogMessageManager(), getKOVISSerializationLogger(), log4cplus::ERROR_LOG_LEVEL,
                         typeid(eKOVISSerializationMessage::domain).name(), eKOVISSerializationMessage::eSM_SectionNotClosed,
                         SourcePlace{"kovis::ArchiveSectionManager::~ArchiveSectionManager()",
                                     "KOVIS/KOVISSerialization/BaseArchive", __LINE__},
                         std::string(e.what()));
        }
        catch (const std::exception&)
        {
            // The log is out of order too; there is nobody left to tell.
        }
    }
}
} // namespace kovis
