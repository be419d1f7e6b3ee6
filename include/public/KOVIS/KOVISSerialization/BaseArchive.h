#pragma once

#include "KOVIS/KOVISSerialization/ArchiveValue.h"
#include "KOVIS/KOVISSerialization/KOVISSerializationExport.h"

#include <map>
#include <string>

namespace kovis
{
/// What both directions of an archive share: sections, and the version of each class whose objects it holds.
/// An archive belongs to one thread at a time.
class KOVISSERIALIZATION_EXPORT BaseArchive
{
public:
    virtual ~BaseArchive();
    BaseArchive(const BaseArchive&) = delete;
    BaseArchive& operator=(const BaseArchive&) = delete;

    /// Opens a section; the items that follow lie in it until endSection. Use ArchiveSectionManager.
    virtual void beginSection(const std::string& sectionName) = 0;
    virtual void endSection() = 0;

    bool isClassVersionRegistred(const std::string& className) const;
    /// The registered version; 0 for a class that has none.
    unsigned int getRegisterClassVersion(const std::string& className) const;
    void registerClassVersion(const std::string& className, unsigned int version);

protected:
    BaseArchive();

private:
    std::map<std::string, unsigned int> m_classVersions;
};

/// The writing direction.
class KOVISSERIALIZATION_EXPORT BaseOArchive : public BaseArchive
{
public:
    ~BaseOArchive() override;

    /// Writes a value into the open section. A key stands once in a section.
    virtual void writeItem(const std::string& key, const ArchiveValue& value) = 0;

protected:
    BaseOArchive();
};

/// The reading direction. Sections are read in the order in which they were written, items of a section in any order. A section
/// or item that is missing, of another kind or out of its kind's range throws KOVISSerializationException with section and key.
class KOVISSERIALIZATION_EXPORT BaseIArchive : public BaseArchive
{
public:
    ~BaseIArchive() override;

    /// Reads a value of the open section. The kind that is wanted is the one that `value` holds on entry.
    virtual void readItem(const std::string& key, ArchiveValue& value) = 0;

    /// Where that key of the open section stands, for messages: section "...", key "...".
    virtual std::string getPlace(const std::string& key) const;

    /// Throws KOVISSerializationException for a value that was read and cannot be used: names the place and the reason.
    [[noreturn]] void refuseItem(const std::string& key, const std::string& reason) const;

protected:
    BaseIArchive();
};

/// A section that is open for the life of this object.
class KOVISSERIALIZATION_EXPORT ArchiveSectionManager
{
public:
    ArchiveSectionManager(BaseArchive& archive, const std::string& sectionName);
    ~ArchiveSectionManager();
    ArchiveSectionManager(const ArchiveSectionManager&) = delete;
    ArchiveSectionManager& operator=(const ArchiveSectionManager&) = delete;

private:
    BaseArchive& m_archive;
};
} // namespace kovis
