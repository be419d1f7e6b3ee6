#pragma once

#include "KOVIS/KOVISHardware/LauncherInfo.h"

namespace kovis::test
{
/// What the emulated launchers were last asked for, and what they are to fail with.
struct EmulatedLaunch
{
    gpu::LauncherInfo m_info;
    unsigned long m_sizeC1 = 0;
    unsigned long m_sizeC2 = 0;
    int m_nbLaunches = 0;
    const char* m_failure = nullptr;
};

EmulatedLaunch& getEmulatedLaunch();
} // namespace kovis::test
