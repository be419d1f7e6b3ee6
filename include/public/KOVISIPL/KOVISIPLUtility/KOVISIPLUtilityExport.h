#pragma once

/// Marks what KOVISIPLUtility gives to its users; everything else stays inside the library.
#define KOVISIPLUTILITY_EXPORT __attribute__((visibility("default")))
