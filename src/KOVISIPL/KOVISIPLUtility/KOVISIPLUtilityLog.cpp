#include "KOVISIPL/KOVISIPLUtility/KOVISIPLUtilityLog.h"

#include "KOVIS/KOVISUtil/MessageTable.h"

namespace kovis::imaproc::util
{
namespace
{
constexpr MessageText g_texts[] = {
    {0, "Level 1 algorithm: convert an image to another buffer type"},
    {1, "Level 2 algorithm: convert an image to another buffer type"},
    {2, "Level 3 algorithm: convert an image to another buffer type"},
    {3, "Buffer type of output image %s is the one that %s asks for"},
    {4, "Buffer type of output image %s[%s, value %d] is the one that %s[%s, value %d] asks for"},
};

constinit MessageTable g_table("KOVISIPLUtility", "N5kovis7imaproc4util17eProcessorMessage6domainE", g_texts);

const MessageTableHolder g_tableHolder(g_table);

LibraryLog& getLog()
{
    static LibraryLog g_log("KOVISIPLUtility");
    return g_log;
}
} // namespace

log4cplus::Logger& getKOVISIPLUtilityLogger()
{
    return getLog().getLogger();
}

LogMessageManager& getKOVISIPLUtilityLogMessageManager()
{
    g_table.enter(); // texts may be asked for before this unit's own initialisers have run
    return getLog().getMessageManager();
}

KOVIS_DEFINE_EXCEPTION(KOVISIPLUtilityException);
} // namespace kovis::imaproc::util

bool kovis::MessageMapRegistrator<kovis::imaproc::util::eProcessorMessage, void>::process()
{
    return kovis::imaproc::util::g_table.enter();
}
