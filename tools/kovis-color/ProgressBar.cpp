#include "ProgressBar.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <unistd.h>

namespace kovis::tool
{
namespace
{
constexpr std::chrono::milliseconds g_patience(500);
constexpr int g_width = 40;
} // namespace

ProgressBar::ProgressBar(std::FILE* stream)
    : m_stream(stream), m_bTerminal(::isatty(::fileno(stream)) == 1), m_begin(std::chrono::steady_clock::now())
{
}

ProgressBar::~ProgressBar()
{
    if (m_bShown)
        std::fprintf(m_stream, "\r%*s\r", g_width + 10, "");
}

void ProgressBar::show(double progress)
{
    if (!m_bTerminal || std::chrono::steady_clock::now() - m_begin < g_patience)
        return;
    const double part = std::clamp(progress, 0.0, 1.0);
    const auto nbFull = static_cast<std::size_t>(std::lround(part * g_width));
    const std::string bar = std::string(nbFull, '#') + std::string(g_width - nbFull, '.');
    std::fprintf(m_stream, "\r[%s] %3ld%%", bar.c_str(), std::lround(part * 100.0));
    std::fflush(m_stream);
    m_bShown = true;
}
} // namespace kovis::tool
