#pragma once

/// Marks what KOVISCore gives to its users; everything else stays inside the library.
#define KOVISCORE_EXPORT __attribute__((visibility("default")))
