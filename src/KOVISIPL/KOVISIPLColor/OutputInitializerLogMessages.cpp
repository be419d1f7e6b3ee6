#include "KOVISIPL/KOVISIPLColor/OutputInitializerLogMessages.h"

#include "KOVISIPL/KOVISIPLColor/MsgMapRegistrator.h"

#include <span>

namespace kovis::imaproc::color
{
namespace
{
constexpr MessageText g_messages[] = {
    {0, "Input attribute should not be null"},
    {1, "Input attribute weak pointer has expired, can't get it"},
};
} // namespace

namespace details
{
template <>
struct MsgMapRegistratorDerived<eOutputInitializerMessage, void>
{
    static constexpr const char* g_domainKey = "N5kovis7imaproc5color25eOutputInitializerMessage6domainE";
    static std::span<const MessageText> getMessages() { return g_messages; }
};
} // namespace details
} // namespace kovis::imaproc::color

KOVIS_REGISTER_COLOR_MESSAGES(eOutputInitializerMessage);
