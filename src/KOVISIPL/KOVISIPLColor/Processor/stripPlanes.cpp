#include "KOVISIPL/KOVISIPLColor/Processor/stripPlanes.h"

#include "KOVISIPL/KOVISIPLColor/throwColorText.h"

#include <string>

namespace kovis::imaproc::color::details
{
void throwUnboundStrip(const char* className)
{
    throwColorText(std::string("the strips of ") + className +
                       " must be bound to parsers of their element types before a kernel runs",
                   "void kovis::imaproc::color::details::throwUnboundStrip(const char*)",
                   "KOVISIPL/KOVISIPLColor/Processor/stripPlanes", __LINE__);
}
} // namespace kovis::imaproc::color::details
