#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingLog.h"

#include "KOVIS/KOVISUtil/MessageTable.h"

namespace kovis::imaproc
{
namespace
{
constexpr MessageText g_attributeTexts[] = {
    {eImageAttributeMessage::eIAM_NoImage, "attribute %s holds no image: set it first"},
    {eImageAttributeMessage::eIAM_NoStrip, "attribute %s holds no strip: set it first"},
    {eImageAttributeMessage::eIAM_Unbound, "a strip parser must be bound to a strip before its planes are asked for"},
};

constexpr MessageText g_splitTexts[] = {
    {eImageSplitMessage::eISM_NullImage, "the split of attribute %s was given a null pointer: give it an image"},
    {eImageSplitMessage::eISM_GpuImage,
     "the split of attribute %s cannot cut image [%s], which lies on a GPU: copy it to host memory first"},
    {eImageSplitMessage::eISM_UnknownCut, "the split of attribute %s knows no cut of split type %d with volume parsing %d, "
                                          "colour parsing %d and temporal parsing %d: use "
                                          "2 with 0, 1, 0 or 0 with 0, 0, 0"},
    {eImageSplitMessage::eISM_NoPieces,
     "the split of attribute %s cannot cut image [%s]: it has no planes, or too many to be numbered"},
    {eImageSplitMessage::eISM_IndexOutOfRange, "there is no piece %d, counted from 0, among the %d of attribute %s"},
    {eImageSplitMessage::eISM_NotInitialised, "the split of attribute %s must be initialised before it is cut"},
    {eImageSplitMessage::eISM_Not2d,
     "the split of attribute %s cuts 2D images only, and was given image [%s]: cut it into slices first"},
    {eImageSplitMessage::eISM_NotOneChannel,
     "the split of attribute %s cuts images of one channel only, and was given image [%s]"},
    {eImageSplitMessage::eISM_Border, "strips with a border are not made: pass false"},
    {eImageSplitMessage::eISM_NotGpuImage,
     "the split of attribute %s hands on images of the GPU only, and was given image [%s]: upload it first"},
    {eImageSplitMessage::eISM_UnknownGpuCut,
     "the split of attribute %s knows no cut of split type %d: images on a GPU are handed on whole, by type 7"},
};

constexpr MessageText g_initializerTexts[] = {
    {eImageInitializerMessage::eIIM_OutputGone, "the output attribute that an image was to be made for is gone"},
    {eImageInitializerMessage::eIIM_NoInfo, "there is no description of the image for output %s"},
    {eImageInitializerMessage::eIIM_InputGone, "the input attribute that an image was to be made after is gone"},
    {eImageInitializerMessage::eIIM_NoInputImage, "input %s holds no image that another could be made after: set it first"},
    {eImageInitializerMessage::eIIM_DuplicateInputGone, "the input attribute that output %s was to be made after is gone"},
};

constexpr MessageText g_ruleTexts[] = {
    {eImageRuleMessage::eIRM_NotAnImage, "attribute %s of a rule on images is no image attribute"},
    {eImageRuleMessage::eIRM_NotAStrip, "attribute %s of a rule on strips is no strip attribute"},
    {eImageRuleMessage::eIRM_SizeFormal, "size match between %s %s and %s %s in %s"},
    {eImageRuleMessage::eIRM_SizeEvaluated, "size match between %s %s [%s] and %s %s [%s] in %s"},
    {eImageRuleMessage::eIRM_BufferTypeFormal, "buffer type match between %s %s and %s %s"},
    {eImageRuleMessage::eIRM_BufferTypeEvaluated,
     "buffer type match between %s %s [%s, buffer type %d] and %s %s [%s, buffer type %d]"},
    {eImageRuleMessage::eIRM_UnknownMatch, "there is no size match of number %d: use 0, 5 or 7"},
};

constinit MessageTable g_attributeTable("KOVISImageProcessing", "N5kovis7imaproc22eImageAttributeMessage6domainE",
                                        g_attributeTexts);
constinit MessageTable g_splitTable("KOVISImageProcessing", "N5kovis7imaproc18eImageSplitMessage6domainE", g_splitTexts);
constinit MessageTable g_initializerTable("KOVISImageProcessing", "N5kovis7imaproc24eImageInitializerMessage6domainE",
                                          g_initializerTexts);
constinit MessageTable g_ruleTable("KOVISImageProcessing", "N5kovis7imaproc17eImageRuleMessage6domainE", g_ruleTexts);

const MessageTableHolder g_attributeTableHolder(g_attributeTable);
const MessageTableHolder g_splitTableHolder(g_splitTable);
const MessageTableHolder g_initializerTableHolder(g_initializerTable);
const MessageTableHolder g_ruleTableHolder(g_ruleTable);

LibraryLog& getLog()
{
    static LibraryLog g_log("KOVISImageProcessing");
    return g_log;
}
} // namespace

log4cplus::Logger& getKOVISImageProcessingLogger()
{
    return getLog().getLogger();
}

LogMessageManager& getKOVISImageProcessingLogMessageManager()
{
    // Texts may be asked for before this unit's own initialisers have run.
    g_attributeTable.enter();
    g_splitTable.enter();
    g_initializerTable.enter();
    g_ruleTable.enter();
    return getLog().getMessageManager();
}

KOVIS_DEFINE_EXCEPTION(KOVISImageProcessingException);
} // namespace kovis::imaproc

bool kovis::MessageMapRegistrator<kovis::imaproc::eImageAttributeMessage>::process()
{
    return kovis::imaproc::g_attributeTable.enter();
}

bool kovis::MessageMapRegistrator<kovis::imaproc::eImageSplitMessage>::process()
{
    return kovis::imaproc::g_splitTable.enter();
}

bool kovis::MessageMapRegistrator<kovis::imaproc::eImageInitializerMessage>::process()
{
    return kovis::imaproc::g_initializerTable.enter();
}

bool kovis::MessageMapRegistrator<kovis::imaproc::eImageRuleMessage>::process()
{
    return kovis::imaproc::g_ruleTable.enter();
}
