#pragma once

#include "Picture.h"

#include <string>
#include <vector>

namespace kovis::demo
{
/// A picture and the words to stand over it.
struct SheetEntry
{
    std::string label;
    tool::Picture picture;
};

/// A grey sheet with one row for each picture: its channels side by side (first page), each stretched from its least to its
/// greatest finite value, which stand over it.
tool::Picture makeContactSheet(const std::vector<SheetEntry>& entries);
} // namespace kovis::demo
