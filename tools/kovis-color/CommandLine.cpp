#include "ColourSpace.h"
#include "Commands.h"
#include "InstructionSets.h"
#include "ToolError.h"

#include <CLI/CLI.hpp>

#include <iterator>
#include <new>
#include <ostream>

namespace kovis::tool
{
namespace
{
constexpr unsigned int g_maxThreads = 4096;
constexpr std::uint64_t g_maxMebibytes = std::uint64_t{1} << 40;

constexpr const char* g_mainFooter = "Examples:\n"
                                     "  kovis-color convert photo.jpg -o hsv.tif --to hsv\n"
                                     "  kovis-color lightness photo.jpg -o grey.png --formula luminosity\n"
                                     "  kovis-color append photo.jpg mask.png -o four.tif\n"
                                     "  kovis-color info hsv.tif\n"
                                     "  kovis-color explain --from rgb --to lab\n"
                                     "  kovis-color kernels\n"
                                     "See kovis-color VERB --help for each verb. Exit codes: 0 good, 1 failed, 2 misused.";

constexpr const char* g_convertFooter =
    "Samples are taken as the numbers that they are: nothing is scaled, and where the sRGB curve is part of the way\n"
    "(rgb to xyz, lab or luv) they are read on the scale 0 to 255. The element type of the result is that of the input\n"
    "for ycbcr and between rgb and rgba, otherwise f32; a format that cannot hold it takes the nearest that it can.\n"
    "kovis-color explain tells how a conversion is done and what its numbers mean.\n"
    "The output's extension tells its format: .tif, .tiff, .png, .jpg, .jpeg.\n\n"
    "Examples:\n"
    "  kovis-color convert photo.png -o hsv.tif --to hsv\n"
    "  kovis-color convert hsv.tif -o photo.png --from hsv --to rgb --type u8\n"
    "  kovis-color convert photo.jpg -o sum.tif --to user --matrix 1,1,1,0\n"
    "  kovis-color convert five.tif -o rgb.tif --from user --to rgb --matrix mix.txt --threads 2\n"
    "  kovis-color convert photo.png -o ycbcr.png --to ycbcr --isa sse2 --json";

constexpr const char* g_lightnessFooter =
    "The channels of a pixel give one value, of the element type of the picture:\n"
    "  average     their mean, alpha included\n"
    "  lightness   half the sum of the smallest and the largest\n"
    "  luminosity  0.21, 0.72 and 0.07 of the three that there must be, in whatever space they are\n"
    "Nothing is scaled, and integers are rounded half away from zero. A format that cannot hold the type takes the nearest\n"
    "that it can, rounded and saturated, as --type does: the value is rounded to the type of the picture before, so that f32\n"
    "of a picture of integers has whole numbers.\n\n"
    "Examples:\n"
    "  kovis-color lightness photo.jpg -o grey.png\n"
    "  kovis-color lightness float.tif -o grey.png --formula luminosity --type u8\n"
    "  kovis-color lightness stack.tif -o grey.tif --formula lightness --threads 2 --isa avx512 --json";

constexpr const char* g_appendFooter =
    "The result has the channels of all pictures, from left to right, in no space of its own (user): rgb and grey give four\n"
    "channels, not rgba. The pictures must have one size, number of pages and element type, and no sample is changed. A format\n"
    "that cannot hold the type takes the nearest that it can, rounded and saturated, as --type does.\n\n"
    "Examples:\n"
    "  kovis-color append photo.jpg mask.png -o four.tif\n"
    "  kovis-color append red.tif green.tif blue.tif -o stack.tif --type f32\n"
    "  kovis-color append a.tif b.tif -o ab.tif --threads 2 --isa sse2 --json\n"
    "  kovis-color append a.tif b.tif -o ab.tif --gpu";

constexpr const char* g_runFooter =
    "The file says what convert, lightness or append was told: target, matrix, formula, and --from and --type where they were\n"
    "given. Options of this command line come before those. The numbers are the same on every machine for the same --isa.\n\n"
    "Examples:\n"
    "  kovis-color convert photo.png -o lab.tif --to lab --save lab.json\n"
    "  kovis-color run lab.json another.png -o another.tif\n"
    "  kovis-color run grey.json photo.jpg -o grey.png --json";

constexpr const char* g_infoFooter = "Examples:\n"
                                     "  kovis-color info photo.png\n"
                                     "  kovis-color info stack.tif --json";

constexpr const char* g_explainFooter =
    "The chain of spaces, the kernel, formula and matrix of each link, the numbers at both ends, what an integer result loses,\n"
    "and the kernel that this machine runs.\n\n"
    "Examples:\n"
    "  kovis-color explain --from rgb --to lab\n"
    "  kovis-color explain --from rgb --to hls --type u8\n"
    "  kovis-color explain --from hsv --to luv --input-type f32 --json";

constexpr const char* g_kernelsFooter = "Examples:\n"
                                        "  kovis-color kernels\n"
                                        "  KOVIS_MAX_INSTRUCTION_SET=sse2 kovis-color kernels --json";

const std::string g_typeNames = "u8, i8, u16, i16, u32, i32, f32";

std::string refuseEmpty(const std::string& value)
{
    return value.empty() ? "it must not be empty" : "";
}

/// The grammar of the command line, with the places that it fills.
class CommandLine
{
public:
    CommandLine();

    int run(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

private:
    void addMaxMemory(CLI::App& verb, std::uint64_t& target);
    /// The options of every verb that writes a picture; `forms` are the instruction sets that it has kernels for.
    void addPictureOptions(CLI::App& verb, PictureOptions& options, const std::string& forms);
    /// The places of a picture and of the space that it is read in.
    void addInput(CLI::App& verb, std::string& input, std::string& from);
    void addLightness();
    void addAppend();
    void addRun();

    CLI::App m_app{"Converts pictures between colour spaces and to grey ones, and appends their channels.", "kovis-color"};
    CLI::App* m_convert = nullptr;
    CLI::App* m_lightness = nullptr;
    CLI::App* m_append = nullptr;
    CLI::App* m_run = nullptr;
    CLI::App* m_info = nullptr;
    CLI::App* m_explain = nullptr;
    CLI::App* m_kernels = nullptr;
    ConvertOptions m_convertOptions;
    LightnessOptions m_lightnessOptions;
    AppendOptions m_appendOptions;
    RunOptions m_runOptions;
    InfoOptions m_infoOptions;
    ExplainOptions m_explainOptions;
    bool m_bKernelsJson = false;
};

void CommandLine::addMaxMemory(CLI::App& verb, std::uint64_t& target)
{
    verb.add_option("--max-memory", target, "Most memory for the samples of the file, in MiB (8192 if not given)")
        ->check(CLI::Range(std::uint64_t{1}, g_maxMebibytes));
}

void CommandLine::addPictureOptions(CLI::App& verb, PictureOptions& options, const std::string& forms)
{
    verb.add_option("-o,--output", options.output, "The file to write")->required();
    verb.add_option("--type", options.type, "Element type of the result: " + g_typeNames)->check(refuseEmpty);
    verb.add_option("--isa", options.isa, "Instruction set to use: " + forms)->check(refuseEmpty);
    verb.add_option("--threads", options.threads, "Threads to use (all processors if not given)")
        ->check(CLI::Range(1U, g_maxThreads));
    addMaxMemory(verb, options.maxMemory);
    verb.add_option("--save", options.save, "Keep what was set, without the pictures, in this file, for kovis-color run")
        ->check(refuseEmpty);
    verb.add_flag("--json", options.bJson, "Tell what was done as JSON");
}

void CommandLine::addInput(CLI::App& verb, std::string& input, std::string& from)
{
    verb.add_option("IN", input, "The picture: TIFF, PNG or JPEG, told by its content")->required();
    verb.add_option("--from", from, "Space of the input (by its channels if not given: 1 grey, 3 rgb, 4 rgba, others user)")
        ->check(refuseEmpty);
}

void CommandLine::addLightness()
{
    m_lightness = m_app.add_subcommand("lightness", "Make a grey picture of all channels of a picture");
    m_lightness->footer(g_lightnessFooter);
    addInput(*m_lightness, m_lightnessOptions.input, m_lightnessOptions.from);
    m_lightness->add_option("--formula", m_lightnessOptions.formula, "average (if not given), lightness or luminosity")
        ->check(refuseEmpty);
    addPictureOptions(*m_lightness, m_lightnessOptions, "generic, sse2, avx (f32 only), avx2, avx512");
}

void CommandLine::addAppend()
{
    m_append = m_app.add_subcommand("append", "Put the channels of pictures one after the other");
    m_append->footer(g_appendFooter);
    m_append->add_option("IN", m_appendOptions.inputs, "The pictures, from left to right: TIFF, PNG or JPEG")->required();
    addPictureOptions(*m_append, m_appendOptions, "generic, sse2, avx (f32 only), avx2, avx512");
    m_append->add_flag("--gpu", m_appendOptions.bGpu, "Append on the GPU: fails where there is none")->excludes("--isa");
}

void CommandLine::addRun()
{
    m_run = m_app.add_subcommand("run", "Do again what --save kept, with other pictures");
    m_run->footer(g_runFooter);
    m_run->add_option("FILE", m_runOptions.file, "The file of --save")->required();
    m_run->add_option("IN", m_runOptions.inputs, "The pictures, as many as the saved verb takes: TIFF, PNG or JPEG")->required();
    m_run->add_option("--from", m_runOptions.from, "Space of the input (as it was saved if not given)")->check(refuseEmpty);
    addPictureOptions(*m_run, m_runOptions, "as for the saved verb");
}

CommandLine::CommandLine()
{
    m_app.require_subcommand(1);
    m_app.footer(g_mainFooter);
    m_app.set_version_flag("--version", "kovis-color " KOVIS_VERSION);

    m_convert = m_app.add_subcommand("convert", "Convert a picture from its colour space to another");
    m_convert->footer(g_convertFooter);
    addInput(*m_convert, m_convertOptions.input, m_convertOptions.from);
    m_convert->add_option("--to", m_convertOptions.to, "Space of the result: " + getSpaceNames())->required();
    m_convert
        ->add_option("--matrix", m_convertOptions.matrix,
                     "For user: rows of a factor per input channel and an offset; numbers, or a file that holds them")
        ->check(refuseEmpty);
    addPictureOptions(*m_convert, m_convertOptions, "generic, sse2, avx (f32 to f32 only), avx2, fma3");

    addLightness();
    addAppend();
    addRun();

    m_info = m_app.add_subcommand("info", "Tell what a picture file holds");
    m_info->footer(g_infoFooter);
    m_info->add_option("FILE", m_infoOptions.file, "The picture: TIFF, PNG or JPEG")->required();
    addMaxMemory(*m_info, m_infoOptions.maxMemory);
    m_info->add_flag("--json", m_infoOptions.bJson, "Answer as JSON");

    m_explain = m_app.add_subcommand("explain", "Tell how a conversion is done and what its numbers mean");
    m_explain->footer(g_explainFooter);
    m_explain->add_option("--from", m_explainOptions.from, "Space of the input: " + getSpaceNames())->required();
    m_explain->add_option("--to", m_explainOptions.to, "Space of the result")->required();
    m_explain
        ->add_option("--type", m_explainOptions.type,
                     "Element type of the result: " + g_typeNames + " (the library's choice if not given)")
        ->check(refuseEmpty);
    m_explain
        ->add_option("--input-type", m_explainOptions.inputType,
                     "Element type of the input (if not given: u8 for grey, rgb, rgba and ycbcr, f32 for others)")
        ->check(refuseEmpty);
    m_explain->add_flag("--json", m_explainOptions.bJson, "Answer as JSON");

    m_kernels = m_app.add_subcommand("kernels", "Tell which kernels this machine can run");
    m_kernels->footer(g_kernelsFooter);
    m_kernels->add_flag("--json", m_bKernelsJson, "Answer as JSON");
}

int CommandLine::run(int argc, const char* const* argv, std::ostream& out, std::ostream& err)
{
    try
    {
        m_app.parse(argc, argv);
    }
    catch (const CLI::CallForHelp& help)
    {
        return m_app.exit(help, out, err);
    }
    catch (const CLI::CallForVersion& version)
    {
        return m_app.exit(version, out, err);
    }
    catch (const CLI::ParseError& error)
    {
        const std::vector<CLI::App*> verbs = m_app.get_subcommands();
        if (verbs.empty() && argc > 1 && argv[1][0] != '-' && argv[1][0] != '\0')
        {
            const char* const names[] = {"convert", "lightness", "append", "run", "info", "explain", "kernels"};
            throw ToolError("kovis-color", "there is no verb " + quoteWord(argv[1]),
                            "did you mean '" + findNearest(argv[1], names, std::size(names)) + "'? See kovis-color --help",
                            eMisused);
        }
        const std::string verb = verbs.empty() ? "" : verbs.front()->get_name() + " ";
        throw ToolError("kovis-color", error.what(), "see kovis-color " + verb + "--help", eMisused);
    }
    checkEnvironment();
    if (m_convert->parsed())
        runConvert(m_convertOptions, out, err);
    else if (m_lightness->parsed())
        runLightness(m_lightnessOptions, out, err);
    else if (m_append->parsed())
        runAppend(m_appendOptions, out, err);
    else if (m_run->parsed())
        runSaved(m_runOptions, out, err);
    else if (m_info->parsed())
        runInfo(m_infoOptions, out);
    else if (m_explain->parsed())
        runExplain(m_explainOptions, out);
    else
        runKernels(m_bKernelsJson, out);
    out.flush();
    if (!out)
        throw ToolError("standard output", "the answer could not be written", "see that its reader stays and the disk has room");
    return eSuccess;
}
} // namespace

int runCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err)
{
    try
    {
        return CommandLine().run(argc, argv, out, err);
    }
    catch (const ToolError& error)
    {
        const std::string line = error.what();
        const std::string name = "kovis-color: ";
        err << (line.compare(0, name.size(), name) == 0 ? "" : name) << line << "\n";
        return error.getExitCode();
    }
    catch (const std::bad_alloc&)
    {
        err << "kovis-color: not enough memory; take a smaller picture or fewer threads\n";
    }
    catch (const std::exception& error)
    {
        err << "kovis-color: " << toOneLine(error.what()) << "\n";
    }
    return eFailed;
}
} // namespace kovis::tool
