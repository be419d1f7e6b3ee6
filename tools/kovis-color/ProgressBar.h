#pragma once

#include <chrono>
#include <cstdio>

namespace kovis::tool
{
/// A bar on a terminal for work that takes its time; nothing where the stream is no terminal.
class ProgressBar
{
public:
    explicit ProgressBar(std::FILE* stream);
    /// Takes the bar away.
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// Shows the progress, from 0 to 1, once the work has gone on for half a second.
    void show(double progress);

private:
    std::FILE* m_stream;
    bool m_bTerminal;
    bool m_bShown = false;
    std::chrono::steady_clock::time_point m_begin;
};
} // namespace kovis::tool
