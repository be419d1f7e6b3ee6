#include "KOVIS/KOVISHardware/KOVISHardwareLog.h"

#include "KOVIS/KOVISUtil/MessageTable.h"

namespace kovis::hard
{
namespace
{
constexpr MessageText g_texts[] = {
    {eKOVISHardwareMessage::eHM_NoSuchDevice, "There is no GPU %d: this computer has %d usable GPUs, counted from 0"},
    {eKOVISHardwareMessage::eHM_NoDevice, "There is no usable GPU: %s"},
};

constinit MessageTable g_table("KOVISHardware", "N5kovis4hard21eKOVISHardwareMessage6domainE", g_texts);

const MessageTableHolder g_tableHolder(g_table);

LibraryLog& getLog()
{
    static LibraryLog g_log("KOVISHardware");
    return g_log;
}
} // namespace

log4cplus::Logger& getKOVISHardwareLogger()
{
    return getLog().getLogger();
}

LogMessageManager& getKOVISHardwareLogMessageManager()
{
    // Texts may be asked for before this unit's own initialisers have run.
    g_table.enter();
    return getLog().getMessageManager();
}

KOVIS_DEFINE_EXCEPTION(KOVISHardwareException);
} // namespace kovis::hard

bool kovis::MessageMapRegistrator<kovis::hard::eKOVISHardwareMessage>::process()
{
    return kovis::hard::g_table.enter();
}
