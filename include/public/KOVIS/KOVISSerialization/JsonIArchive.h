#pragma once

#include "KOVIS/KOVISSerialization/BaseArchive.h"
#include "KOVIS/KOVISSerialization/JsonArchiveLimits.h"
#include "KOVIS/KOVISSerialization/KOVISSerializationExport.h"

#include <iosfwd>
#include <memory>
#include <string>

namespace kovis
{
/// Reads what JsonOArchive wrote. The text is taken for hostile: whatever it holds, it is read within the limits or refused with
/// a KOVISSerializationException that names section and key. Keys that nobody asks for are passed over.
class KOVISSERIALIZATION_EXPORT JsonIArchive : public BaseIArchive
{
public:
    /// Reads the whole stream, which holds one archive; it is not used afterwards. Throws KOVISSerializationException for a
    /// stream that cannot be read and for a text that is not an archive, doubled keys included, or is beyond the limits.
    explicit JsonIArchive(std::istream& stream, const JsonArchiveLimits& limits = JsonArchiveLimits());
    ~JsonIArchive() override;

    /// The next section must have this name. Throws KOVISSerializationException otherwise.
    void beginSection(const std::string& sectionName) override;
    /// What was not read of the section is passed over. Throws KOVISSerializationException if no section is open.
    void endSection() override;
    /// An integer is read as any integer kind that it fits; a number as float, rounded to the nearest, if it does not exceed the
    /// greatest one; as double likewise. Throws KOVISSerializationException as BaseIArchive tells.
    void readItem(const std::string& key, ArchiveValue& value) override;
    std::string getPlace(const std::string& key) const override;

    /// Whether another section follows in the open section, or in the archive where none is open.
    bool hasNextSection() const;
    /// The name of that section; empty if there is none.
    const std::string& getNextSectionName() const;

private:
    struct Tree;
    std::unique_ptr<Tree> m_tree;
};
} // namespace kovis
