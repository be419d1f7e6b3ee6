#pragma once

#include "KOVIS/KOVISSerialization/BaseArchive.h"
#include "KOVIS/KOVISSerialization/KOVISSerializationExport.h"

#include <iosfwd>
#include <memory>
#include <string>

namespace kovis
{
/// Writes an archive as JSON text, UTF-8 (docs/persistence.md tells the format): an array of sections in the order of writing,
/// each an object of "section", its name, "items", the values by their keys, and "sections", the sections that were opened within
/// it. Numbers are written so that they are read back to the bit; NaN and infinities are texts. The text depends neither on the
/// locale nor on the rounding mode. What it holds is limited by JsonArchiveLimits.
class KOVISSERIALIZATION_EXPORT JsonOArchive : public BaseOArchive
{
public:
    /// The stream must live as long as this object. Each outermost section is written when it is closed.
    explicit JsonOArchive(std::ostream& stream);
    /// Does what finish does where that was not called; a failure is then only logged.
    ~JsonOArchive() override;

    /// Throws KOVISSerializationException for a name that is too long or no UTF-8, and for too many or too deep sections.
    void beginSection(const std::string& sectionName) override;
    /// Throws KOVISSerializationException if no section is open.
    void endSection() override;
    /// Throws KOVISSerializationException outside all sections, for a key that the section has, for a key or text that is too
    /// long or no UTF-8, and for too many items or numbers.
    void writeItem(const std::string& key, const ArchiveValue& value) override;

    /// Ends the text; nothing can be written afterwards. Throws KOVISSerializationException while a section is open, if the
    /// text has become too long, and if the stream has failed.
    void finish();

private:
    struct Text;
    std::unique_ptr<Text> m_text;
};
} // namespace kovis
