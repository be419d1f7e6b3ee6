#pragma once

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"
#include "KOVIS/KOVISUtil/MessageMapRegistrator.h"

namespace kovis::processor
{
KOVIS_DECLARE_EXCEPTION(KOVISBASEPROCESSING_EXPORT, KOVISBaseProcessingException);

KOVISBASEPROCESSING_EXPORT log4cplus::Logger& getKOVISBaseProcessingLogger();
KOVISBASEPROCESSING_EXPORT LogMessageManager& getKOVISBaseProcessingLogMessageManager();

/// Messages about processors.
struct eProcessorMessage
{
    enum domain
    {
        ePM_RunUnderWay = 0,          ///< processor
        ePM_NullAttribute = 1,        ///< processor, place in the collection
        ePM_DoubledAttribute = 2,     ///< processor, attribute
        ePM_InitializerOfNothing = 3, ///< processor, name that the initializer is entered under
        ePM_InitFailed = 4,           ///< processor
        ePM_InputNotSet = 5,          ///< attribute, processor
        ePM_InputIsNull = 6,          ///< attribute, processor
        ePM_OutputNotSet = 7,         ///< attribute, processor
        ePM_OutputNotMade = 8,        ///< attribute, processor
        ePM_RuleRefused = 9,          ///< processor
        ePM_OtherClass = 10,          ///< class that was written, class that reads
        ePM_NullProcessor = 11,       ///< nothing
        ePM_NoProvider = 12,          ///< step, number of steps, processor
        ePM_UnknownStatus = 13,       ///< step, number of steps, processor, status
        ePM_StepFailed = 14,          ///< step, number of steps, processor
        ePM_Stopped = 15,             ///< processor
        ePM_WorkFailed = 16,          ///< processor
        ePM_NoDataItem = 17,          ///< attribute
        ePM_NullParser = 18,          ///< place in the collection, processor
        ePM_ParserCountsDiffer = 19,  ///< processor, elements and exact elements of the first, place, elements and exact elements
        ePM_AlreadyRegistred = 20,    ///< type name
        ePM_NotRegistred = 21,        ///< type name
        ePM_NoCreator = 22,           ///< type name
        ePM_OutputIsNull = 23,        ///< attribute, processor
        ePM_NotInitialised = 33       ///< object name
    };
};

/// Messages about the division of work among processors.
struct eDispatchMessage
{
    enum domain
    {
        eDM_NoSplit = 0,             ///< processor
        eDM_NullSplit = 1,           ///< place in the vector, processor
        eDM_SplitNotInitialised = 2, ///< attribute, processor
        eDM_PiecesDiffer = 3,        ///< processor, attribute, pieces, attribute, pieces
        eDM_ElementsDiffer = 4,      ///< processor, attribute, elements, attribute, elements
        eDM_RowsDiffer = 5,          ///< processor, attribute, row length, attribute, row length
        eDM_TooManyPieces = 6,       ///< pieces, processor, most pieces
        eDM_NoProcessor = 7,         ///< processor
        eDM_WrongProcessor = 8,      ///< attribute, processor
        eDM_NullRequest = 9,         ///< processor
        eDM_NoReason = 10            ///< processor
    };
};

/// Messages about rules.
struct eRuleMessage
{
    enum domain
    {
        eRM_AttributeGone = 0,     ///< nothing
        eRM_NotInitialised = 1,    ///< nothing
        eRM_EmptyRule = 2,         ///< what was built
        eRM_And = 3,               ///< both parts
        eRM_If = 4,                ///< condition, both branches
        eRM_None = 5,              ///< nothing
        eRM_OptionalIsSet = 6,     ///< attribute
        eRM_OptionalEvaluated = 7, ///< attribute, "is set" or "is not set"
        eRM_NoDataItem = 8         ///< attribute
    };
};

/// Messages about kernel tables.
struct eAlgorithmFunctionMessage
{
    enum domain
    {
        eAFM_NoFunction = 0,         ///< key, sets
        eAFM_EmptyKey = 1,           ///< sets
        eAFM_NoSets = 2,             ///< key
        eAFM_NotSupported = 3,       ///< key, sets
        eAFM_DoubledRow = 4,         ///< key, sets
        eAFM_NoRow = 5,              ///< key
        eAFM_NoRowOfForcedSets = 6,  ///< key, sets
        eAFM_RegistrationErrors = 12 ///< list of errors
    };
};
} // namespace kovis::processor

template <>
struct KOVISBASEPROCESSING_EXPORT kovis::MessageMapRegistrator<kovis::processor::eProcessorMessage, void>
{
    static bool process();
};

template <>
struct KOVISBASEPROCESSING_EXPORT kovis::MessageMapRegistrator<kovis::processor::eDispatchMessage, void>
{
    static bool process();
};

template <>
struct KOVISBASEPROCESSING_EXPORT kovis::MessageMapRegistrator<kovis::processor::eRuleMessage, void>
{
    static bool process();
};

template <>
struct KOVISBASEPROCESSING_EXPORT kovis::MessageMapRegistrator<kovis::processor::eAlgorithmFunctionMessage, void>
{
    static bool process();
};
