#pragma once

/// Prints the figures of a device, by its number in the CUDA runtime, and gives the exit status: 0 where the append with blocks of
/// that side reaches 0.8 of a copy's speed.
int runGpuBenchmark(int cudaDevice, int ownSide);
