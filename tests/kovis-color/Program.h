#pragma once

#include <string>
#include <vector>

namespace kovis::tool::test
{
/// How a run of the built program ended.
struct ProgramRun
{
    int exitCode = -1; ///< 128 and the signal's number where a signal ended it
    std::string out;
    std::string err;
};

/// Runs kovis-color with both its streams in files. `environment` is a setting as "NAME=VALUE", or empty.
ProgramRun runProgram(const std::vector<std::string>& arguments, const std::string& environment = std::string());
} // namespace kovis::tool::test
