#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLogMessages.h"

#include "KOVISIPL/KOVISIPLColor/MsgMapRegistrator.h"

#include <span>

namespace kovis::imaproc::color
{
namespace details
{
template <>
struct MsgMapRegistratorDerived<eKOVISIPLColorMessage, void>
{
    static constexpr const char* g_domainKey = "N5kovis7imaproc5color21eKOVISIPLColorMessage6domainE";
    static std::span<const MessageText> getMessages() { return {}; }
};
} // namespace details
} // namespace kovis::imaproc::color

KOVIS_REGISTER_COLOR_MESSAGES(eKOVISIPLColorMessage);
