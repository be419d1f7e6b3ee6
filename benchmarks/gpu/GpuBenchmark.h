#pragma once

/// Prints the figures, and gives the exit status: 0 where the append with blocks of that side reaches 0.8 of a copy's speed.
int runGpuBenchmark(int ownSide);
