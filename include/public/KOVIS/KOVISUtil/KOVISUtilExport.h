#pragma once

/// Marks what KOVISUtil gives to its users; everything else stays inside the library.
#define KOVISUTIL_EXPORT __attribute__((visibility("default")))
