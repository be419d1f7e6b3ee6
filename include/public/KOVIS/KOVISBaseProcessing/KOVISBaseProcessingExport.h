#pragma once

/// Marks what KOVISBaseProcessing gives to its users; everything else stays inside the library.
#define KOVISBASEPROCESSING_EXPORT __attribute__((visibility("default")))
