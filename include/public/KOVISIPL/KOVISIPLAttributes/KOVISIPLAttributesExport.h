#pragma once

/// Marks what KOVISIPLAttributes gives to its users; everything else stays inside the library.
#define KOVISIPLATTRIBUTES_EXPORT __attribute__((visibility("default")))
