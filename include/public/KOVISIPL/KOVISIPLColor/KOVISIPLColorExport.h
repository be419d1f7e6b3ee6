#pragma once

/// Marks what KOVISIPLColor gives to its users; everything else stays inside the library.
#define KOVISIPLCOLOR_EXPORT __attribute__((visibility("default")))
