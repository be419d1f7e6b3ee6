#pragma once

/// Marks what KOVISBaseData gives to its users; everything else stays inside the library.
#define KOVISBASEDATA_EXPORT __attribute__((visibility("default")))
