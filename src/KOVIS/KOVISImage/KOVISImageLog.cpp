#include "KOVIS/KOVISImage/KOVISImageLog.h"

#include "KOVIS/KOVISImage/KOVISImageLogMessages.h"
#include "KOVIS/KOVISUtil/MessageTable.h"

namespace kovis
{
namespace
{
using image::eImageMessage;

constexpr MessageText g_imageMessages[] = {
    {eImageMessage::eIM_ZeroSize, "The image cannot be made: its %s is 0, and must be 1 or more"},
    {eImageMessage::eIM_UserChannelsMissing,
     "The image cannot be made: eCGT_User says nothing of the number of channels; give it to createImageUser2d or "
     "ColorGeometry::initUser"},
    {eImageMessage::eIM_BufferType, "The image cannot be made: its buffer type is %d, and must be 1 to 11"},
    {eImageMessage::eIM_SizeOverflow, "The image cannot be made: %d x %d elements, %d slices, %d channels, %d time steps, %s, "
                                      "are more than the address space holds"},
    {eImageMessage::eIM_NoMemory, "The image cannot be made: the memory of %d bytes that %s needs cannot be had"},
    {eImageMessage::eIM_NbPlanes, "The image cannot be made: %d planes are given, and its geometry has %d"},
    {eImageMessage::eIM_NullPlane, "The image cannot be made: the pointer of plane %d is null"},
    {eImageMessage::eIM_MisalignedPlane, "The image cannot be made: plane %d of %s is not aligned to %d bytes"},
    {eImageMessage::eIM_NullImage, "%s needs an image, and the pointer is null"},
    {eImageMessage::eIM_GpuImage,
     "The planes of the image (%s) lie in the memory of a GPU and cannot be used here: give an image in host memory"},
    {eImageMessage::eIM_NotHostImage, "The image (%s) has no planes in host memory: make it with createImage or wrapImage"},
    {eImageMessage::eIM_ElementType, "The image (%s) holds elements of type %s, and they were asked for as %s"},
    {eImageMessage::eIM_IndexOutOfRange, "The index %2% of the %1% is out of range: it must be below %3%"},
    {eImageMessage::eIM_RowsOutOfRange,
     "A strip of %2% rows from row %1% on cannot be made: the image has %3% rows, and a strip 1 or more"},
    {eImageMessage::eIM_ElementsOutOfRange, "A strip of the elements %d to %d cannot be made: a plane of the image has %d"},
    {eImageMessage::eIM_Not2d, "The image (%s) has more than one slice or time step: take a 2D view of it with getSlice2d"},
    {eImageMessage::eIM_NotOneChannel, "The image (%s) must have one channel"},
    {eImageMessage::eIM_StripNoMemory, "A strip cannot be made: the memory of %d bytes for its staging buffer cannot be had"},
    {eImageMessage::eIM_ViewSize, "The image (%s) cannot be shown as %s: sizes and number of channels must agree"},
    {eImageMessage::eIM_ViewBufferType, "An image of buffer type %d cannot be shown with buffer type %d: both must be the same"},
    {eImageMessage::eIM_NbRoom,
     "The image cannot be made: %d elements of room past a plane of %d are more than the address space holds"},
    {eImageMessage::eIM_NoGpu, "There is no usable GPU: %s"},
    {eImageMessage::eIM_GpuCall, "The GPU refused %s: %s"},
    {eImageMessage::eIM_NotGpuImage, "The image (%s) does not lie in the memory of a GPU: upload it with uploadImage first"},
    {eImageMessage::eIM_CopySize, "The image (%s) cannot be copied to the image (%s): sizes, number of channels and element type must "
                                  "agree"},
};

constinit MessageTable g_imageMessageTable("KOVISImage", "N5kovis5image13eImageMessage6domainE", g_imageMessages);

// The manager outlives this library, so the texts are taken out when it is unloaded.
struct ImageMessageRegistration
{
    ImageMessageRegistration() { g_imageMessageTable.enter(); }
    ~ImageMessageRegistration() { g_imageMessageTable.withdraw(); }
};

const ImageMessageRegistration g_imageMessageRegistration;
} // namespace

bool MessageMapRegistrator<image::eImageMessage>::process()
{
    return g_imageMessageTable.enter();
}

namespace image
{
KOVIS_DEFINE_EXCEPTION(KOVISImageException);

namespace
{
LibraryLog& getImageLog()
{
    static LibraryLog g_log("KOVISImage");
    return g_log;
}
} // namespace

log4cplus::Logger& getKOVISImageLogger()
{
    return getImageLog().getLogger();
}

LogMessageManager& getKOVISImageLogMessageManager()
{
    MessageMapRegistrator<eImageMessage>::process();
    return getImageLog().getMessageManager();
}
} // namespace image
} // namespace kovis
