#include "KOVISIPL/KOVISIPLColor/ProcessorLogMessages.h"

#include "KOVISIPL/KOVISIPLColor/MsgMapRegistrator.h"

#include <span>

namespace kovis::imaproc::color
{
namespace
{
constexpr MessageText g_messages[] = {
    {0, "Level 2 algorithm: Generates a color images by merging the color channel of the two input images  on Gpu"},
    {1, "Level 1 algorithm: Generates a color images by merging the color channel of the two input images"},
    {2, "Level 2 algorithm: Generates a color images by merging the color channel of the two input images"},
    {3, "Level 3 algorithm: Generates a color images by merging the color channel of the two input images"},
    {4, "Error: the image values does not match the range [%d, %d]"},
    {5, "Level 1 algorithm: convert a color image from a given color space to an other"},
    {6, "Level 2 algorithm: convert a color image from a given color space to an other"},
    {7, "Level 3 algorithm: convert a color image from a given color space to an other"},
    {8, "Level 1 algorithm: <em>lightness computation</em> from an input RGB color image"},
    {9, "Level 2 algorithm: <em>lightness computation</em> from an input RGB color image"},
    {10, "Level 3 algorithm: <em>lightness computation</em> from an input RGB color image"},
};
} // namespace

namespace details
{
template <>
struct MsgMapRegistratorDerived<eProcessorMessage, void>
{
    static constexpr const char* g_domainKey = "N5kovis7imaproc5color17eProcessorMessage6domainE";
    static std::span<const MessageText> getMessages() { return g_messages; }
};
} // namespace details
} // namespace kovis::imaproc::color

KOVIS_REGISTER_COLOR_MESSAGES(eProcessorMessage);
