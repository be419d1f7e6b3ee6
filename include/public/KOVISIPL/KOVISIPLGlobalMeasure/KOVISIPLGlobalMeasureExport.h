#pragma once

/// Marks what KOVISIPLGlobalMeasure gives to its users; everything else stays inside the library.
#define KOVISIPLGLOBALMEASURE_EXPORT __attribute__((visibility("default")))
