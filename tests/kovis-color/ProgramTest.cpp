// The command line of the program: verbs, errors, and what it tells of files and machine.

#include "kovis-color/ProgramFixture.h"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <limits>

namespace kovis::tool::test
{
namespace
{
using Names = std::vector<std::string>;
using Json = nlohmann::json;
} // namespace

TEST_F(Program, helpHasExamplesForEveryVerb)
{
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--help"},
                                                      {"convert", "--help"},
                                                      {"info", "--help"},
                                                      {"explain", "--help"},
                                                      {"kernels", "--help"}})
    {
        const ProgramRun run = runProgram(arguments);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_TRUE(contains(run.out, "Examples:\n  ")) << run.out;
        EXPECT_TRUE(contains(run.out, "kovis-color")) << run.out;
        EXPECT_EQ(run.err, "");
    }
}

TEST_F(Program, misuseEndsWithTwoAndOneLine)
{
    const std::vector<std::vector<std::string>> misuses = {
        {},
        {"paint"},
        {"convert"},
        {"convert", m_input, "--to", "hsv"},
        {"convert", m_input, "-o", m_output},
        {"convert", m_input, "-o", m_output, "--to", "hsv", "--frm", "rgb"},
        {"convert", m_input, "-o", m_output, "--to", "hvs"},
        {"convert", m_input, "-o", m_output, "--to", "hsv", "--from", "rbg"},
        {"convert", m_input, "-o", m_output, "--to", "hsv", "--from", "grey"},
        {"convert", m_input, "-o", m_output, "--to", "hsv", "--type", "u64"},
        {"convert", m_input, "-o", m_output, "--to", "hsv", "--isa", "sse3"},
        {"convert", m_input, "-o", m_output, "--to", "hsv", "--threads", "0"},
        {"convert", m_input, "-o", m_output, "--to", "hsv", "--threads", "x"},
        {"convert", m_input, "-o", m_output, "--to", "hsv", "--matrix", "1,2"},
        {"convert", m_input, "-o", m_output, "--to", "user"},
        {"convert", m_input, "-o", m_output, "--to", "user", "--matrix", "1,2,3"},
        {"convert", m_input, "-o", m_output, "--to", "user", "--matrix", "1,2,3,nan"},
        {"convert", m_input, "-o", m_output, "--to", "user", "--matrix", ""},
        {"convert", m_input, "-o", m_output, "--to", "hsv", "--from", ""},
        {"convert", m_input, "-o", m_output, "--to", "hsv", "--type", ""},
        {"convert", m_input, "-o", m_output, "--to", "hsv", "--isa", ""},
        {"convert", m_input, "-o", m_folder.getPath("a.gif"), "--to", "hsv"},
        {"info"},
        {"kernels", "more"}};
    for (const std::vector<std::string>& arguments : misuses)
    {
        const ProgramRun run = runProgram(arguments);
        std::string line;
        for (const std::string& argument : arguments)
            line += argument + " ";
        EXPECT_EQ(run.exitCode, 2) << line << run.err;
        EXPECT_EQ(countLines(run.err), 1U) << line << run.err;
        EXPECT_TRUE(contains(run.err, "kovis-color: ") && contains(run.err, "; ")) << line << run.err;
        EXPECT_EQ(run.out, "") << line;
    }
    EXPECT_EQ(m_folder.getNames(), Names{"in.tif"});
    EXPECT_TRUE(contains(convert({"--to", "hvs"}).err, "did you mean 'hsv'?"));
    EXPECT_TRUE(contains(runProgram({"convrt", m_input}).err, "there is no verb 'convrt'; did you mean 'convert'?"));
}

TEST_F(Program, theVersionIsTold)
{
    const ProgramRun run = runProgram({"--version"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out.rfind("kovis-color ", 0), 0U) << run.out;
    EXPECT_EQ(countLines(run.out), 1U);
}

TEST_F(Program, failureEndsWithOneAndOneLine)
{
    writeBytes(m_folder.getPath("text.png"), {'t', 'e', 'x', 't'});
    writeBytes(m_folder.getPath("empty.tif"), {});
    Bytes cut = readBytes(m_input);
    cut.resize(cut.size() / 2);
    writeBytes(m_folder.getPath("cut.tif"), cut);
    const Names before = m_folder.getNames();
    for (const std::string& name : Names{"none.tif", "text.png", "empty.tif", "cut.tif", ""})
    {
        for (const bool bInfo : {false, true})
        {
            const std::string path = m_folder.getPath(name);
            const ProgramRun run =
                bInfo ? runProgram({"info", path}) : runProgram({"convert", path, "-o", m_output, "--to", "hsv"});
            EXPECT_EQ(run.exitCode, 1) << run.err;
            EXPECT_EQ(countLines(run.err), 1U) << run.err;
            EXPECT_TRUE(contains(run.err, "kovis-color: " + path + ": ") && contains(run.err, "; ")) << run.err;
        }
    }
    EXPECT_EQ(m_folder.getNames(), before);
}

TEST_F(Program, anOutputThatCannotBeWrittenLeavesNothing)
{
    const ProgramRun run = runProgram({"convert", m_input, "-o", m_folder.getPath("none/out.tif"), "--to", "hsv"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(contains(run.err, "cannot be written (No such file or directory); choose a folder")) << run.err;
    // Said before the input is read.
    EXPECT_TRUE(contains(
        runProgram({"convert", m_folder.getPath("missing.tif"), "-o", m_folder.getPath("none/out.tif"), "--to", "hsv"}).err,
        "none/out.tif: cannot be written"));
    std::filesystem::create_directory(m_folder.getPath("taken.tif"));
    EXPECT_EQ(runProgram({"convert", m_input, "-o", m_folder.getPath("taken.tif"), "--to", "hsv"}).exitCode, 1);
    EXPECT_EQ(m_folder.getNames(), (Names{"in.tif", "taken.tif"}));
}

TEST_F(Program, theInputIsNeverOverwritten)
{
    const Bytes before = readBytes(m_input);
    std::filesystem::create_symlink("in.tif", m_folder.getPath("link.tif"));
    for (const std::string& output : {m_input, m_folder.getPath("link.tif"), m_folder.getPath("./in.tif")})
    {
        const ProgramRun run = runProgram({"convert", m_input, "-o", output, "--to", "hsv"});
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_TRUE(contains(run.err, "is the input itself, which is never overwritten; give -o another name")) << run.err;
    }
    EXPECT_EQ(readBytes(m_input), before);
}

TEST_F(Program, theVariableHidesSetsAndAnUnknownNameIsRefused)
{
    const Json kernels = Json::parse(runProgram({"kernels", "--json"}, "KOVIS_MAX_INSTRUCTION_SET=sse2").out);
    EXPECT_TRUE(kernels["available"]["sse2"].get<bool>());
    EXPECT_FALSE(kernels["available"]["avx"].get<bool>());
    EXPECT_FALSE(kernels["available"]["fma3"].get<bool>());
    EXPECT_EQ(kernels["rows"]["ColorConvertImgLvl3"]["avx2"], 0);
    const ProgramRun run = runProgram({"kernels"}, "KOVIS_MAX_INSTRUCTION_SET=ssse9");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(contains(run.err, "KOVIS_MAX_INSTRUCTION_SET: 'ssse9' is no instruction set; set it to one of generic, sse2"))
        << run.err;
    EXPECT_EQ(convert({"--to", "hsv"}, "KOVIS_MAX_INSTRUCTION_SET=generic").exitCode, 0);
}

TEST_F(Program, kernelsTellsTheRowsOfEachClass)
{
    const ProgramRun run = runProgram({"kernels", "--json"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const Json kernels = Json::parse(run.out);
    const Json& rows = kernels["rows"]["ColorConvertImgLvl3"];
    // Eleven buffer types on each side.
    EXPECT_EQ(rows["generic"], 121);
    EXPECT_EQ(rows["sse2"], 121);
    const int nbAvx = kernels["available"]["avx"].get<bool>() ? 1 : 0;
    EXPECT_EQ(rows["avx"], nbAvx);
    EXPECT_EQ(rows["all"], rows["generic"].get<int>() + rows["sse2"].get<int>() + rows["avx"].get<int>() +
                               rows["avx2"].get<int>() + rows["fma3"].get<int>());
    EXPECT_TRUE(contains(runProgram({"kernels"}).out, "ColorConvertImgLvl3: "));
}

TEST_F(Program, infoTellsWhatAFileHolds)
{
    const ProgramRun text = runProgram({"info", m_input});
    EXPECT_EQ(text.exitCode, 0);
    EXPECT_EQ(text.out, m_input + ": TIFF, 3 x 1, 3 channel(s), u8, 1 page(s), read as rgb\n"
                                  "  channel R: 10 to 255\n  channel G: 0 to 100\n  channel B: 0 to 100\n");
    ASSERT_EQ(runProgram({"convert", m_input, "-o", m_output, "--to", "hsv"}).exitCode, 0);
    const std::string note = "it is read as rgb, but by its own words holds 'colour space: hsv'; --from says otherwise";
    EXPECT_TRUE(contains(runProgram({"info", m_output}).out, "  " + note + "\n"));
    EXPECT_EQ(Json::parse(runProgram({"info", m_output, "--json"}).out)["note"], note);
    writeRow<float>(m_input, ElementType::eF32, 2, {1.5F, std::numeric_limits<float>::quiet_NaN()}, 3);
    const Json json = Json::parse(runProgram({"info", m_input, "--json"}).out);
    EXPECT_EQ(json["channels"], 2);
    EXPECT_EQ(json["pages"], 3);
    EXPECT_EQ(json["type"], "f32");
    EXPECT_EQ(json["space"], "user");
    EXPECT_EQ(json["ranges"][0]["min"], 1.5);
    EXPECT_TRUE(json["ranges"][1]["max"].is_null());
    EXPECT_EQ(json["ranges"][1]["notFinite"], 3);
}

TEST_F(Program, aFileNameOfOddLettersStaysOnOneLine)
{
    const std::string path = m_folder.getPath("a\nb\x1b[31m.tif");
    const ProgramRun run = runProgram({"info", path});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(countLines(run.err), 1U);
    EXPECT_FALSE(contains(run.err, "\x1b"));
}

TEST_F(Program, longWorkShowsNoBarInAPipe)
{
    PictureShape shape;
    shape.sizeX = 1500;
    shape.sizeY = 1000;
    shape.channels = 3;
    shape.type = ElementType::eF32;
    Picture picture;
    picture.shape = shape;
    picture.allocate();
    writePicture(m_input, viewOf(picture));
    const ProgramRun run = convert({"--to", "hsv", "--isa", "generic", "--threads", "1"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_FALSE(contains(run.err, "\r")) << run.err;
    EXPECT_EQ(countLines(run.err), 1U) << run.err;
}
} // namespace kovis::tool::test
