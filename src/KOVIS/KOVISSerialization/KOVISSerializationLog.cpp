#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"

#include "KOVIS/KOVISUtil/MessageTable.h"

namespace kovis
{
namespace
{
constexpr MessageText g_texts[] = {
    {eKOVISSerializationMessage::eSM_SectionNotClosed, "A section of an archive could not be closed: %s"},
    {eKOVISSerializationMessage::eSM_NoValue, "Item \"%s\" has no place for its value: give the address of a variable"},
    {eKOVISSerializationMessage::eSM_VersionTooNew,
     "The archive holds version %d, newer than version %d of this library, of class %s: read it with a newer library"},
};

constinit MessageTable g_table("KOVISSerialization", "N5kovis26eKOVISSerializationMessage6domainE", g_texts);

const MessageTableHolder g_tableHolder(g_table);

LibraryLog& getLog()
{
    static LibraryLog g_log("KOVISSerialization");
    return g_log;
}
} // namespace

log4cplus::Logger& getKOVISSerializationLogger()
{
    return getLog().getLogger();
}

LogMessageManager& getKOVISSerializationLogMessageManager()
{
    // Texts may be asked for before this unit's own initialisers have run.
    g_table.enter();
    return getLog().getMessageManager();
}

KOVIS_DEFINE_EXCEPTION(KOVISSerializationException);
} // namespace kovis

bool kovis::MessageMapRegistrator<kovis::eKOVISSerializationMessage>::process()
{
    return kovis::g_table.enter();
}
