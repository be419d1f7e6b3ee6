#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"

#include "KOVIS/KOVISUtil/MessageTable.h"

namespace kovis
{
namespace
{
constexpr MessageText g_texts[] = {
    {eKOVISSerializationMessage::eSM_SectionNotClosed, "A section of an archive could not be closed: %s"},
    {eKOVISSerializationMessage::eSM_NoValue, "Item \"%s\" has no place for its value: give the address of a variable"},
    {eKOVISSerializationMessage::eSM_Damaged, "The archive is damaged at %s: %s"},
    {eKOVISSerializationMessage::eSM_BeyondLimit,
     "The archive holds too much at %s: more than %d %s; read it with higher limits if it can be trusted"},
    {eKOVISSerializationMessage::eSM_WrongKind, "The archive is damaged at %s: %s stands where %s is expected"},
    {eKOVISSerializationMessage::eSM_OutOfRange, "The archive is damaged at %s: %s does not fit %s"},
    {eKOVISSerializationMessage::eSM_NoItem, "The archive has nothing at %s: it was written by something else, or changed"},
    {eKOVISSerializationMessage::eSM_DoubledKey, "The archive is damaged at %s: the key stands there twice"},
    {eKOVISSerializationMessage::eSM_OtherSection,
     "The archive holds %2% at %1% where section \"%3%\" is expected: read objects in the order in which they were written"},
    {eKOVISSerializationMessage::eSM_StreamFailed,
     "The archive's stream cannot be %s: see that its file exists and may be used, and that the disk has room"},
    {eKOVISSerializationMessage::eSM_Misused, "The archive is used wrongly: %s; %s"},
    {eKOVISSerializationMessage::eSM_UnknownClass,
     "The archive needs class %2% at %1%, which is not known here: load the library that it belongs to"},
    {eKOVISSerializationMessage::eSM_NotAnObject, "The archive names class %2% at %1%, whose objects are not kept in archives"},
    {eKOVISSerializationMessage::eSM_Refused, "The archive does not fit at %s: %s"},
    {eKOVISSerializationMessage::eSM_CannotBeWritten, "The archive cannot take %s: %s"},
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
