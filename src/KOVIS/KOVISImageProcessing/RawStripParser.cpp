#include "KOVIS/KOVISImageProcessing/RawStripParser.h"

#include "KOVIS/KOVISImageProcessing/ImageProcessingMessages.h"

namespace kovis::imaproc::detail
{
void throwUnboundParser()
{
    throwImageProcessingMessage(eImageAttributeMessage::eIAM_Unbound,
                                {"accessBuffer", "KOVIS/KOVISImageProcessing/RawStripParser.h", 0});
}
} // namespace kovis::imaproc::detail
