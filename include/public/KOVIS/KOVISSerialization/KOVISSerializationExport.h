#pragma once

/// Marks what KOVISSerialization gives to its users; everything else stays inside the library.
#define KOVISSERIALIZATION_EXPORT __attribute__((visibility("default")))
