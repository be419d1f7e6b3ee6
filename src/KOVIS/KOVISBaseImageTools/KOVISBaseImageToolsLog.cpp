#include "KOVIS/KOVISBaseImageTools/KOVISBaseImageToolsLog.h"

#include "KOVIS/KOVISUtil/MessageTable.h"

namespace kovis::image::tools
{
namespace
{
constexpr MessageText g_texts[] = {
    {eKOVISBaseImageToolsMessage::eIT_NoLinearTransform, "No fixed matrix leads from colour space %d to %d: it takes two "
                                                         "different ones of Grey (0), Rgb (1), Rgba (2), XYZ (3), YPbPr (4) "
                                                         "and YCbCr (5)"},
    {eKOVISBaseImageToolsMessage::eIT_UnknownBufferType, "Buffer type %d does not exist: buffer types run from 1 to 11"},
    {eKOVISBaseImageToolsMessage::eIT_GpuElementType,
     "The planes of the GPU image (%s) hold elements of type %s, and were asked for as %s"},
};

constinit MessageTable g_table("KOVISBaseImageTools", "N5kovis5image5tools27eKOVISBaseImageToolsMessage6domainE", g_texts);

const MessageTableHolder g_tableHolder(g_table);

LibraryLog& getLog()
{
    static LibraryLog g_log("KOVISBaseImageTools");
    return g_log;
}
} // namespace

log4cplus::Logger& getKOVISBaseImageToolsLogger()
{
    return getLog().getLogger();
}

LogMessageManager& getKOVISBaseImageToolsLogMessageManager()
{
    // Texts may be asked for before this unit's own initialisers have run.
    g_table.enter();
    return getLog().getMessageManager();
}

KOVIS_DEFINE_EXCEPTION(KOVISBaseImageToolsException);
} // namespace kovis::image::tools

bool kovis::MessageMapRegistrator<kovis::image::tools::eKOVISBaseImageToolsMessage>::process()
{
    return kovis::image::tools::g_table.enter();
}
