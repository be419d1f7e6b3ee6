#pragma once

/// Marks what KOVISImageProcessing gives to its users; everything else stays inside the library.
#define KOVISIMAGEPROCESSING_EXPORT __attribute__((visibility("default")))
