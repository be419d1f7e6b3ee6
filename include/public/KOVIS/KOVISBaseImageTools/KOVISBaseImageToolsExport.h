#pragma once

/// Marks what KOVISBaseImageTools gives to its users; everything else stays inside the library.
#define KOVISBASEIMAGETOOLS_EXPORT __attribute__((visibility("default")))
