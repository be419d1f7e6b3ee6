#include "KOVIS/KOVISCore/KOVISCoreLog.h"

#include "KOVIS/KOVISUtil/MessageTable.h"

namespace kovis::core
{
namespace
{
constexpr MessageText g_texts[] = {
    {eCoreMessage::eCM_NotShared, "Action %s cannot be run: make it with boost::make_shared, so that the run can keep it alive"},
    {eCoreMessage::eCM_AlreadyRunning, "Action %s is running already: wait for its end, or run another one"},
    {eCoreMessage::eCM_UnknownSynchroType, "Action %s cannot be run in the way %d: use 0 (to the end) or 1 (in the background)"},
    {eCoreMessage::eCM_NeverRun, "Action %s has not been run: call run before you wait for it"},
    {eCoreMessage::eCM_Cancelled, "Action %s was cancelled"},
    {eCoreMessage::eCM_StillRunning, "Action %s is still running after %d ms: wait longer, or cancel it"},
    {eCoreMessage::eCM_WaitInsideRun,
     "Action %s cannot be waited for from inside its own run: wait on the thread that started it"},
    {eCoreMessage::eCM_OutsideRun, "Action %s is not running: its part in a run can only be asked for inside its run"},
    {eCoreMessage::eCM_NoReason, "Action %s failed and gave no reason: let its result carry a message"},
    {eCoreMessage::eCM_UnknownException,
     "Action %s threw something that is no std::exception: catch it by its own type around getRunResult"},
    {eCoreMessage::eCM_EmptyAction, "There is no action to run: the pointer is empty"},
    {eCoreMessage::eCM_EmptyProvider, "There is no provider to run: the pointer is empty"},
    {eCoreMessage::eCM_EmptyRequest,
     "A provider gave a request without an action: let it answer that there is none, or give one"},
    {eCoreMessage::eCM_QueryFailed,
     "A provider could not give its next action and gave no reason: let its result carry a message"},
    {eCoreMessage::eCM_NotifyFailed,
     "A provider could not take notice of the end of action %s and gave no reason: let its result carry a message"},
    {eCoreMessage::eCM_ProviderCancelled, "The actions of a provider were cancelled"},
    {eCoreMessage::eCM_CleaningFailed, "Action %s failed once more while it was cleaned up after its run: %s"},
    {eCoreMessage::eCM_UnknownInstructionSet,
     "KOVIS_MAX_INSTRUCTION_SET is '%s', which is no instruction set, and hides nothing: set it to one of %s"},
    {eCoreMessage::eCM_BackgroundStartFailed, "Action %s could not be started in the background: %s"},
};

constinit MessageTable g_table("KOVISCore", "N5kovis4core12eCoreMessage6domainE", g_texts);

// This library stays in the process, and so do its texts: there is nothing to withdraw.
[[maybe_unused]] const bool g_bRegistred = MessageMapRegistrator<eCoreMessage>::process();

// Never destroyed: a background run may still log while the process ends.
LibraryLog& getLog()
{
    static auto* const g_log = new LibraryLog("KOVISCore");
    return *g_log;
}
} // namespace

log4cplus::Logger& getKOVISCoreLogger()
{
    return getLog().getLogger();
}

LogMessageManager& getKOVISCoreLogMessageManager()
{
    // Texts may be asked for before this unit's own initialisers have run.
    g_table.enter();
    return getLog().getMessageManager();
}

KOVIS_DEFINE_EXCEPTION(KOVISCoreException);
} // namespace kovis::core

bool kovis::MessageMapRegistrator<kovis::core::eCoreMessage>::process()
{
    return kovis::core::g_table.enter();
}
