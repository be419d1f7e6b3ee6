#include "KOVISIPL/KOVISIPLGlobalMeasure/KOVISIPLGlobalMeasureLog.h"

#include "KOVIS/KOVISUtil/MessageTable.h"

namespace kovis::imaproc::glbmsr
{
namespace
{
constexpr MessageText g_texts[] = {
    {0, "Level 1 algorithm: measure the values of an image"},
    {1, "Level 2 algorithm: measure the values of an image"},
    {2, "Level 3 algorithm: measure the values of an image"},
};

constinit MessageTable g_table("KOVISIPLGlobalMeasure", "N5kovis7imaproc6glbmsr17eProcessorMessage6domainE", g_texts);

const MessageTableHolder g_tableHolder(g_table);

LibraryLog& getLog()
{
    static LibraryLog g_log("KOVISIPLGlobalMeasure");
    return g_log;
}
} // namespace

log4cplus::Logger& getKOVISIPLGlobalMeasureLogger()
{
    return getLog().getLogger();
}

LogMessageManager& getKOVISIPLGlobalMeasureLogMessageManager()
{
    g_table.enter(); // texts may be asked for before this unit's own initialisers have run
    return getLog().getMessageManager();
}

KOVIS_DEFINE_EXCEPTION(KOVISIPLGlobalMeasureException);
} // namespace kovis::imaproc::glbmsr

bool kovis::MessageMapRegistrator<kovis::imaproc::glbmsr::eProcessorMessage, void>::process()
{
    return kovis::imaproc::glbmsr::g_table.enter();
}
