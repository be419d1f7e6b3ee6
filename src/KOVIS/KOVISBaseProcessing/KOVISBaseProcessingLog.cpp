#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"

#include "KOVIS/KOVISUtil/MessageTable.h"

namespace kovis::processor
{
namespace
{
constexpr MessageText g_processorTexts[] = {
    {eProcessorMessage::ePM_RunUnderWay,
     "processor %s cannot be initialised while a run of it is under way: wait for its end first"},
    {eProcessorMessage::ePM_NullAttribute, "processor %s made no attribute at place %d of its collection, counted from 0"},
    {eProcessorMessage::ePM_DoubledAttribute, "processor %s made two attributes of the name %s: the names must differ"},
    {eProcessorMessage::ePM_InitializerOfNothing,
     "processor %s entered an output initializer under the name %s, which is not the name of an output of it"},
    {eProcessorMessage::ePM_InitFailed, "processor %s could not be initialised, and gave no reason"},
    {eProcessorMessage::ePM_InputNotSet, "input %s of processor %s is not set: set it before the run"},
    {eProcessorMessage::ePM_InputIsNull, "input %s of processor %s is a null pointer: set it to an object before the run"},
    {eProcessorMessage::ePM_OutputNotSet,
     "output %s of processor %s is not set, and the processor does not make it: set it before the run"},
    {eProcessorMessage::ePM_OutputNotMade,
     "output %s of processor %s is not set, and its initializer made none: set it before the run"},
    {eProcessorMessage::ePM_RuleRefused, "the rule of processor %s does not hold, and has no text"},
    {eProcessorMessage::ePM_OtherClass,
     "a processor of class %s was written here, which class %s cannot read: make one of that class"},
    {eProcessorMessage::ePM_NullProcessor, "there is no processor to run: pass one that is not a null pointer"},
    {eProcessorMessage::ePM_NoProvider, "step %d of %d of processor %s promised work and gave no provider of it"},
    {eProcessorMessage::ePM_UnknownStatus, "step %d of %d of processor %s answered the status %d, which is none"},
    {eProcessorMessage::ePM_StepFailed, "step %d of %d of processor %s failed, and gave no reason"},
    {eProcessorMessage::ePM_Stopped, "the run that processor %s is a part of has been stopped"},
    {eProcessorMessage::ePM_WorkFailed, "the work of processor %s failed, and gave no reason"},
    {eProcessorMessage::ePM_NoDataItem, "attribute %s holds no data item: set it first"},
    {eProcessorMessage::ePM_NullParser,
     "there is no parser at place %d, counted from 0, of processor %s: set its attribute to data of buffer type 1 to 11"},
    {eProcessorMessage::ePM_ParserCountsDiffer, "the attributes of processor %s do not cover the same elements: the first has "
                                                "%d, of which %d exact, the one at place %d, counted "
                                                "from 0, has %d, of which %d exact"},
    {eProcessorMessage::ePM_AlreadyRegistred, "processor class %s is registered already: withdraw it before registering it anew"},
    {eProcessorMessage::ePM_NotRegistred, "processor class %s is not registered: load the library that it belongs to"},
    {eProcessorMessage::ePM_NoCreator, "processor class %s cannot be registered without a function that makes its processors"},
    {eProcessorMessage::ePM_OutputIsNull,
     "output %s of processor %s is a null pointer: set it to an object before the run, or leave it unset"},
    {eProcessorMessage::ePM_NotInitialised, "processor %s must be initialised before its attributes are used"},
};

constexpr MessageText g_dispatchTexts[] = {
    {eDispatchMessage::eDM_NoSplit, "the dispatcher of processor %s needs at least one split"},
    {eDispatchMessage::eDM_NullSplit, "there is no split at place %d, counted from 0, of the dispatcher of processor %s"},
    {eDispatchMessage::eDM_SplitNotInitialised,
     "the split of attribute %s of processor %s must be initialised before it is dispatched"},
    {eDispatchMessage::eDM_PiecesDiffer,
     "the splits for processor %s do not fit each other: attribute %s is cut into %d pieces, attribute %s into %d"},
    {eDispatchMessage::eDM_ElementsDiffer,
     "the splits for processor %s do not fit each other: attribute %s has %d elements, attribute %s has %d"},
    {eDispatchMessage::eDM_RowsDiffer,
     "the splits for processor %s do not fit each other: attribute %s has rows of %d elements, attribute %s has rows of %d"},
    {eDispatchMessage::eDM_TooManyPieces, "%d pieces are too many for the dispatcher of processor %s, which numbers at most %d"},
    {eDispatchMessage::eDM_NoProcessor, "the dispatcher of processor %s made no processor"},
    {eDispatchMessage::eDM_WrongProcessor,
     "the split of attribute %s does not serve processor %s: it was made for another class"},
    {eDispatchMessage::eDM_NullRequest, "the dispatcher of processor %s was told of the end of no request"},
    {eDispatchMessage::eDM_NoReason, "a piece for processor %s could not be made ready, and no reason was given"},
};

constexpr MessageText g_ruleTexts[] = {
    {eRuleMessage::eRM_AttributeGone,
     "Attribute weak pointer has expired: a rule is of use only as long as its processor keeps the attributes"},
    {eRuleMessage::eRM_NotInitialised, "Initialise a rule with its attributes before it is used"},
    {eRuleMessage::eRM_EmptyRule, "%s was given an empty rule: pass none() where nothing is demanded"},
    {eRuleMessage::eRM_And, "%s and %s"},
    {eRuleMessage::eRM_If, "if %s then %s, else %s"},
    {eRuleMessage::eRM_None, "nothing is demanded"},
    {eRuleMessage::eRM_OptionalIsSet, "optional attribute %s is set"},
    {eRuleMessage::eRM_OptionalEvaluated, "optional attribute %s [%s] has to be set"},
    {eRuleMessage::eRM_NoDataItem, "Attribute %s of a rule on data items holds no data item"},
};

constexpr MessageText g_algorithmFunctionTexts[] = {
    {eAlgorithmFunctionMessage::eAFM_NoFunction, "the row of data types %s and instruction sets %s has no function"},
    {eAlgorithmFunctionMessage::eAFM_EmptyKey, "a row of instruction sets %s has no data types"},
    {eAlgorithmFunctionMessage::eAFM_NoSets, "the row of data types %s names no instruction sets: name 0 for generic code"},
    {eAlgorithmFunctionMessage::eAFM_NotSupported,
     "the row of data types %s needs instruction sets %s, which this computer does not have"},
    {eAlgorithmFunctionMessage::eAFM_DoubledRow, "there is a row of data types %s and instruction sets %s already"},
    {eAlgorithmFunctionMessage::eAFM_NoRow, "there is no kernel for data types %s"},
    {eAlgorithmFunctionMessage::eAFM_NoRowOfForcedSets,
     "there is no kernel for data types %s with the forced instruction sets %s: force others, or release them"},
    {eAlgorithmFunctionMessage::eAFM_RegistrationErrors, "Kernels could not be registered:\n%s"},
};

constinit MessageTable g_processorTable("KOVISBaseProcessing", "N5kovis9processor17eProcessorMessage6domainE", g_processorTexts);
constinit MessageTable g_dispatchTable("KOVISBaseProcessing", "N5kovis9processor16eDispatchMessage6domainE", g_dispatchTexts);
constinit MessageTable g_ruleTable("KOVISBaseProcessing", "N5kovis9processor12eRuleMessage6domainE", g_ruleTexts);
constinit MessageTable g_algorithmFunctionTable("KOVISBaseProcessing", "N5kovis9processor25eAlgorithmFunctionMessage6domainE",
                                                g_algorithmFunctionTexts);

const MessageTableHolder g_processorTableHolder(g_processorTable);
const MessageTableHolder g_dispatchTableHolder(g_dispatchTable);
const MessageTableHolder g_ruleTableHolder(g_ruleTable);
const MessageTableHolder g_algorithmFunctionTableHolder(g_algorithmFunctionTable);

LibraryLog& getLog()
{
    static LibraryLog g_log("KOVISBaseProcessing");
    return g_log;
}
} // namespace

log4cplus::Logger& getKOVISBaseProcessingLogger()
{
    return getLog().getLogger();
}

LogMessageManager& getKOVISBaseProcessingLogMessageManager()
{
    // Texts may be asked for before this unit's own initialisers have run.
    g_processorTable.enter();
    g_dispatchTable.enter();
    g_ruleTable.enter();
    g_algorithmFunctionTable.enter();
    return getLog().getMessageManager();
}

KOVIS_DEFINE_EXCEPTION(KOVISBaseProcessingException);
} // namespace kovis::processor

bool kovis::MessageMapRegistrator<kovis::processor::eProcessorMessage>::process()
{
    return kovis::processor::g_processorTable.enter();
}

bool kovis::MessageMapRegistrator<kovis::processor::eDispatchMessage>::process()
{
    return kovis::processor::g_dispatchTable.enter();
}

bool kovis::MessageMapRegistrator<kovis::processor::eRuleMessage>::process()
{
    return kovis::processor::g_ruleTable.enter();
}

bool kovis::MessageMapRegistrator<kovis::processor::eAlgorithmFunctionMessage>::process()
{
    return kovis::processor::g_algorithmFunctionTable.enter();
}
