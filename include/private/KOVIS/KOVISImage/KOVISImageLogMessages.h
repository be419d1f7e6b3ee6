#pragma once

#include "KOVIS/KOVISImage/KOVISImageLog.h"
#include "KOVIS/KOVISUtil/LogMessageFormater.h"
#include "KOVIS/KOVISUtil/MessageMapRegistrator.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <string>
#include <typeinfo>

namespace kovis::image
{
/// Messages of this library.
struct eImageMessage
{
    enum domain
    {
        eIM_ZeroSize = 0,            ///< which size
        eIM_UserChannelsMissing = 1, ///< no argument
        eIM_BufferType = 2,          ///< the number
        eIM_SizeOverflow = 3,        ///< sizes in X, Y, Z, C, T, element type
        eIM_NoMemory = 4,            ///< bytes, image
        eIM_NbPlanes = 5,            ///< planes given, planes needed
        eIM_NullPlane = 6,           ///< which plane
        eIM_MisalignedPlane = 7,     ///< which plane, element type, alignment
        eIM_NullImage = 8,           ///< function
        eIM_GpuImage = 9,            ///< image
        eIM_NotHostImage = 10,       ///< image
        eIM_ElementType = 11,        ///< image, its element type, the one asked for
        eIM_IndexOutOfRange = 12,    ///< which index, value, size
        eIM_RowsOutOfRange = 13,     ///< first row, number of rows, rows of the image
        eIM_ElementsOutOfRange = 14, ///< begin, end, elements of a plane
        eIM_Not2d = 15,              ///< image
        eIM_NotOneChannel = 16,      ///< image
        eIM_StripNoMemory = 17,      ///< bytes
        eIM_ViewSize = 18,           ///< image, sizes asked for
        eIM_ViewBufferType = 19,     ///< image's buffer type, buffer type asked for
        eIM_NbRoom = 20,             ///< elements of room, elements of a plane
        eIM_NoGpu = 21,              ///< reason
        eIM_GpuCall = 22,            ///< what was asked for, reason
        eIM_NotGpuImage = 23,        ///< image
        eIM_CopySize = 24            ///< source, target
    };
};

/// Logs message `number` of this library at ERROR and throws it as KOVISImageException.
template <class... TArguments>
[[noreturn]] void throwImageMessage(eImageMessage::domain number, const SourcePlace& place, const TArguments&... arguments)
{
    throwMessage<KOVISImageException>(getKOVISImageLogMessageManager(), getKOVISImageLogger(),
                                      typeid(eImageMessage::domain).name(), number, place, arguments...);
}

/// The text of message `number`, for a result that carries it upward.
template <class... TArguments>
std::string formatImageMessage(eImageMessage::domain number, const TArguments&... arguments)
{
    LogMessageFormater formater(getKOVISImageLogMessageManager());
    formater[number];
    (void)(formater % ... % arguments);
    return formater.string();
}
} // namespace kovis::image

namespace kovis
{
template <>
struct MessageMapRegistrator<image::eImageMessage>
{
    static bool process();
};
} // namespace kovis
