#pragma once

#include <string>
#include <vector>

namespace kovis::tool
{
/// Whether the argument of --matrix is a list of numbers; otherwise it names a file.
bool isMatrixList(const std::string& argument);

/// The numbers of --matrix: a list, or a file that holds one. Numbers are separated by commas, semicolons, spaces or line
/// ends; in a file, # begins a comment. Throws ToolError for what is no finite number, and for a file that cannot be read.
std::vector<float> readMatrix(const std::string& argument);
} // namespace kovis::tool
