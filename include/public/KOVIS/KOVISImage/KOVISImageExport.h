#pragma once

/// Marks what KOVISImage gives to its users; everything else stays inside the library.
#define KOVISIMAGE_EXPORT __attribute__((visibility("default")))
