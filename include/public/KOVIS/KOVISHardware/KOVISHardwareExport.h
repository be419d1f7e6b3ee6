#pragma once

/// Marks what KOVISHardware gives to its users; everything else stays inside the library.
#define KOVISHARDWARE_EXPORT __attribute__((visibility("default")))
