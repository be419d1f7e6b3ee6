#pragma once

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace kovis::imaproc::color
{
class AppendColorChannelImgLvl1;
class ColorConvertImgLvl1;
class LightnessImgLvl1;
} // namespace kovis::imaproc::color

namespace kovis::tool
{
/// What the verbs that write a picture file are told alike. Empty texts and 0 where they were told nothing.
struct PictureOptions
{
    std::string output;
    std::string type;
    std::string isa;
    std::string save; ///< file that keeps the processor of the run
    unsigned int threads = 0;
    std::uint64_t maxMemory = 0; ///< MiB
    bool bJson = false;
};

/// What `kovis-color convert` was told.
struct ConvertOptions : PictureOptions
{
    std::string input;
    std::string from;
    std::string to;
    std::string matrix;
    boost::shared_ptr<imaproc::color::ColorConvertImgLvl1> processor; ///< a saved one, in place of `to` and `matrix`
    std::string processorFile;                                        ///< that it was read from
};

/// What `kovis-color lightness` was told.
struct LightnessOptions : PictureOptions
{
    std::string input;
    std::string from;
    std::string formula;
    boost::shared_ptr<imaproc::color::LightnessImgLvl1> processor; ///< a saved one, in place of `formula`
};

/// What `kovis-color append` was told.
struct AppendOptions : PictureOptions
{
    std::vector<std::string> inputs;
    bool bGpu = false;
    boost::shared_ptr<imaproc::color::AppendColorChannelImgLvl1> processor; ///< a saved one; empty: a new one
};

/// What `kovis-color run` was told.
struct RunOptions : PictureOptions
{
    std::string file;
    std::vector<std::string> inputs;
    std::string from;
};

struct InfoOptions
{
    std::string file;
    std::uint64_t maxMemory = 0; ///< MiB
    bool bJson = false;
};

/// What `kovis-color explain` was told.
struct ExplainOptions
{
    std::string from;
    std::string to;
    std::string type;      ///< of the result; empty: what the library chooses
    std::string inputType; ///< of the input; empty: what pictures usually have in its space
    bool bJson = false;
};

/// The verbs. Answers go to `out`, warnings and notes to `err`; what fails is thrown.
void runConvert(const ConvertOptions& options, std::ostream& out, std::ostream& err);
void runLightness(const LightnessOptions& options, std::ostream& out, std::ostream& err);
void runAppend(const AppendOptions& options, std::ostream& out, std::ostream& err);
void runSaved(const RunOptions& options, std::ostream& out, std::ostream& err);
void runInfo(const InfoOptions& options, std::ostream& out);
void runExplain(const ExplainOptions& options, std::ostream& out);
void runKernels(bool bJson, std::ostream& out);

/// The whole program: reads the command line, runs the verb, tells errors in one line on `err`. Returns the exit code.
int runCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err);
} // namespace kovis::tool
