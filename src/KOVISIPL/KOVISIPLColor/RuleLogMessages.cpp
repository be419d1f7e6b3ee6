#include "KOVISIPL/KOVISIPLColor/RuleLogMessages.h"

#include "KOVISIPL/KOVISIPLColor/MsgMapRegistrator.h"

#include <span>

namespace kovis::imaproc::color
{
namespace
{
constexpr MessageText g_messages[] = {
    {0, "Attribute weak pointer has expired, can't get it"},
    {1,
     "Color space match between input image %s[%s with value %s], output image %s[%s with value %s] and color conversion matrix "
     "attribute %s[with target %s and matrix size %d]"},
    {2, "Color space match between input image %s, output image %s and color conversion matrix attribute %s"},
    // 3 and 4 say the same, on purpose
    {3, "Append color match between input images %s and %s with output image %s"},
    {4, "Append color match between input images %s and %s with output image %s"},
    {5, "Initialize rule before trying to use its data"},
    {6, "Color space conversion between input strip %s[%s with value %s] and output strip %s[%s with value %s] is supported"},
    {7, "Color space conversion between input strip %s and output strip %s is supported"},
};
} // namespace

namespace details
{
template <>
struct MsgMapRegistratorDerived<eRuleMessage, void>
{
    static constexpr const char* g_domainKey = "N5kovis7imaproc5color12eRuleMessage6domainE";
    static std::span<const MessageText> getMessages() { return g_messages; }
};
} // namespace details
} // namespace kovis::imaproc::color

KOVIS_REGISTER_COLOR_MESSAGES(eRuleMessage);
