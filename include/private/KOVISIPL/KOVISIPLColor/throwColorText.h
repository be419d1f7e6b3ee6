#pragma once

#include <string>

namespace kovis::imaproc::color
{
/// Logs a text that is no message of the module's maps at ERROR, and throws it as KOVISIPLColorException. It stands in the log's
/// unit, for units that must have no static initialiser, which the headers of formatted messages bring.
[[noreturn]] void throwColorText(const std::string& text, const char* function, const char* file, unsigned int line);
} // namespace kovis::imaproc::color
