// The built program, as a user calls it.

#include "kovis-color/Program.h"
#include "PictureFile.h"
#include "kovis-color/TestFiles.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <limits>
#include <unistd.h>

namespace kovis::tool::test
{
namespace
{
using Names = std::vector<std::string>;
using Json = nlohmann::json;

/// A picture of one row, pixel after pixel, and as many pages as that row is repeated.
template <class T>
Picture makeRow(ElementType type, std::size_t channels, const std::vector<T>& samples, std::size_t pages = 1)
{
    Picture picture;
    picture.shape.sizeX = samples.size() / channels;
    picture.shape.sizeY = 1;
    picture.shape.pages = pages;
    picture.shape.channels = channels;
    picture.shape.type = type;
    picture.allocate();
    for (std::size_t page = 0; page < pages; ++page)
    {
        for (std::size_t sample = 0; sample < samples.size(); ++sample)
            picture.getPlane<T>(page, sample % channels)[sample / channels] = samples[sample];
    }
    return picture;
}

template <class T>
void writeRow(const std::string& path, ElementType type, std::size_t channels, const std::vector<T>& samples,
              std::size_t pages = 1)
{
    writePicture(path, viewOf(makeRow(type, channels, samples, pages)));
}

const std::vector<std::uint8_t> g_pixels = {255, 0, 0, 10, 20, 30, 100, 100, 100};

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

std::size_t countLines(const std::string& text)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}
} // namespace

class Program : public testing::Test
{
protected:
    Program() { writeRow(m_input, ElementType::eU8, 3, g_pixels); }

    ProgramRun convert(std::vector<std::string> options, const std::string& environment = std::string()) const
    {
        options.insert(options.begin(), {"convert", m_input, "-o", m_output});
        return runProgram(options, environment);
    }

    const TestFolder m_folder;
    const std::string m_input = m_folder.getPath("in.tif");
    const std::string m_output = m_folder.getPath("out.tif");
};

TEST_F(Program, helpHasExamplesForEveryVerb)
{
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--help"}, {"convert", "--help"}, {"info", "--help"}, {"kernels", "--help"}})
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

TEST_F(Program, rgbToHsv)
{
    const ProgramRun run = convert({"--to", "hsv"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "kovis-color: " + m_output + ": hsv f32: H 0 to 360 degrees, S 0 to 1, V on the scale of the samples\n");
    const Picture picture = readPicture(m_output);
    ASSERT_EQ(picture.shape.type, ElementType::eF32);
    EXPECT_EQ(picture.description, "colour space: hsv");
    const float expected[3][3] = {{0.0F, 1.0F, 255.0F}, {210.0F, 0.6666667F, 30.0F}, {0.0F, 0.0F, 100.0F}};
    for (std::size_t pixel = 0; pixel < 3; ++pixel)
    {
        for (std::size_t channel = 0; channel < 3; ++channel)
            EXPECT_NEAR(picture.getPlane<float>(0, channel)[pixel], expected[pixel][channel], 1e-4) << pixel << " " << channel;
    }
}

TEST_F(Program, andBackToRgb)
{
    ASSERT_EQ(convert({"--to", "HSV"}).exitCode, 0);
    const std::string back = m_folder.getPath("back.png");
    const ProgramRun run = runProgram({"convert", m_output, "-o", back, "--from", "hsv", "--to", "rgb", "--type", "u8"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_TRUE(contains(run.err, "u8 rounds to whole numbers and saturates at 0 and 255")) << run.err;
    EXPECT_TRUE(isSame(readPicture(back), makeRow(ElementType::eU8, 3, g_pixels)));
}

TEST_F(Program, whatAFileSaysOfItselfIsNotIgnoredInSilence)
{
    ASSERT_EQ(convert({"--to", "hsv"}).exitCode, 0);
    const ProgramRun run = runProgram({"convert", m_output, "-o", m_folder.getPath("grey.tif"), "--to", "grey"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(contains(run.err, "it is read as rgb, but by its own words holds 'colour space: hsv'")) << run.err;
    EXPECT_FALSE(contains(runProgram({"convert", m_output, "-o", m_folder.getPath("g.tif"), "--to", "grey", "--from", "hsv"}).err,
                          "by its own words"));
}

TEST_F(Program, elementTypesAreKeptAsTheLibraryKeepsThem)
{
    for (const ElementType type : {ElementType::eI8, ElementType::eU8, ElementType::eI16, ElementType::eU16, ElementType::eI32,
                                   ElementType::eU32, ElementType::eF32})
    {
        PictureShape shape;
        shape.sizeX = 9;
        shape.sizeY = 5;
        shape.channels = 3;
        shape.type = type;
        writePicture(m_input, viewOf(makePicture(shape)));
        ASSERT_EQ(convert({"--to", "ycbcr"}).exitCode, 0);
        EXPECT_EQ(readPicture(m_output).shape.type, type);
        ASSERT_EQ(convert({"--to", "rgba"}).exitCode, 0);
        EXPECT_EQ(readPicture(m_output).shape.type, type);
        EXPECT_TRUE(readPicture(m_output).hasAlpha);
        ASSERT_EQ(convert({"--to", "grey"}).exitCode, 0);
        EXPECT_EQ(readPicture(m_output).shape.type, ElementType::eF32);
        EXPECT_EQ(readPicture(m_output).shape.channels, 1U);
        for (const char* wanted : {"u8", "I8", "u16", "i16", "u32", "i32", "f32"})
        {
            ASSERT_EQ(convert({"--to", "ypbpr", "--type", wanted}).exitCode, 0);
            ElementType expected = ElementType::eU8;
            ASSERT_TRUE(parseElementName(wanted, expected));
            EXPECT_EQ(readPicture(m_output).shape.type, expected) << wanted;
        }
    }
}

TEST_F(Program, valuesOfYCbCrAndSaturation)
{
    ASSERT_EQ(convert({"--to", "ycbcr"}).exitCode, 0);
    const Picture picture = readPicture(m_output);
    // 0.299 * 255; 128 - 0.299 * 255 / 1.772; 128 + 0.701 * 255 / 1.402 saturates.
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 0)[0], 76);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 1)[0], 85);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 2)[0], 255);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 0)[2], 100);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 1)[2], 128);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 2)[2], 128);
}

TEST_F(Program, aFormatThatCannotHoldTheTypeTakesTheNearestWithAWarning)
{
    const std::string png = m_folder.getPath("out.png");
    ProgramRun run = runProgram({"convert", m_input, "-o", png, "--to", "hsv"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_TRUE(contains(run.err, "warning: PNG cannot hold f32 samples, so they become u16; write a .tif to keep them\n"))
        << run.err;
    EXPECT_TRUE(contains(run.err, "S becomes a whole number")) << run.err;
    Picture picture = readPicture(png);
    ASSERT_EQ(picture.shape.type, ElementType::eU16);
    EXPECT_EQ(picture.getPlane<std::uint16_t>(0, 0)[1], 210);
    EXPECT_EQ(picture.getPlane<std::uint16_t>(0, 1)[1], 1);
    EXPECT_EQ(picture.getPlane<std::uint16_t>(0, 2)[1], 30);

    run = runProgram({"convert", m_input, "-o", m_folder.getPath("out.jpg"), "--to", "grey", "--type", "i32"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_TRUE(contains(run.err, "warning: JPEG cannot hold i32 samples, so they become u8")) << run.err;
    EXPECT_EQ(countLines(run.err), 2U) << run.err;

    EXPECT_EQ(runProgram({"convert", m_input, "-o", m_folder.getPath("four.jpg"), "--to", "rgba"}).exitCode, 1);
}

TEST_F(Program, pagesAreConvertedAsSlices)
{
    Picture stack = makeRow(ElementType::eU8, 3, g_pixels, 4);
    for (std::size_t page = 0; page < 4; ++page)
        stack.getPlane<std::uint8_t>(page, 2)[2] = static_cast<std::uint8_t>(100 + 10 * page);
    writePicture(m_input, viewOf(stack));
    ASSERT_EQ(convert({"--to", "hsv"}).exitCode, 0);
    const Picture picture = readPicture(m_output);
    ASSERT_EQ(picture.shape.pages, 4U);
    for (std::size_t page = 0; page < 4; ++page)
        EXPECT_EQ(picture.getPlane<float>(page, 2)[2], static_cast<float>(100 + 10 * page));
    const ProgramRun run = runProgram({"convert", m_input, "-o", m_folder.getPath("a.png"), "--to", "ycbcr"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(contains(run.err, "PNG cannot hold 4 pages; write a .tif instead")) << run.err;
}

TEST_F(Program, userMatricesLeadToAnyNumberOfChannelsAndBack)
{
    ASSERT_EQ(convert({"--to", "user", "--matrix", "1,1,1,0.5, 0,0,-2,7"}).exitCode, 0);
    Picture picture = readPicture(m_output);
    ASSERT_EQ(picture.shape.channels, 2U);
    EXPECT_EQ(picture.getPlane<float>(0, 0)[1], 60.5F);
    EXPECT_EQ(picture.getPlane<float>(0, 1)[1], -53.0F);

    const std::string back = m_folder.getPath("back.tif");
    const ProgramRun run =
        runProgram({"convert", m_output, "-o", back, "--to", "rgb", "--type", "i16", "--matrix", "1,0,0 0,1,0 0,0,9"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    picture = readPicture(back);
    ASSERT_EQ(picture.shape.channels, 3U);
    EXPECT_EQ(picture.getPlane<std::int16_t>(0, 0)[1], 61); // 60.5 rounds away from zero
    EXPECT_EQ(picture.getPlane<std::int16_t>(0, 1)[1], -53);
    EXPECT_EQ(picture.getPlane<std::int16_t>(0, 2)[1], 9);
}

TEST_F(Program, theLibrarysOwnWordsReachTheUser)
{
    writeRow<std::uint16_t>(m_input, ElementType::eU16, 3, {0, 256, 0});
    for (const char* space : {"xyz", "lab"})
    {
        const ProgramRun run = convert({"--to", space});
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.err, "kovis-color: " + m_input + ": Error: the image values does not match the range [0, 255]\n");
    }
    EXPECT_EQ(m_folder.getNames(), Names{"in.tif"});
}

TEST_F(Program, floatSamplesAreTestedByTheSameRange)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (const float bad : {255.0001F, -0.001F, nan, std::numeric_limits<float>::infinity()})
    {
        writeRow<float>(m_input, ElementType::eF32, 3, {0.0F, 1.0F, 2.0F, 3.0F, bad, 5.0F}, 2);
        const ProgramRun run = convert({"--to", "lab"});
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.err, "kovis-color: " + m_input + ": Error: the image values does not match the range [0, 255]\n") << bad;
    }
}

TEST_F(Program, aFloatPictureNeverBecomesABlackOneWithoutAWord)
{
    writeRow<float>(m_input, ElementType::eF32, 3, {0.0F, 128.0F, 255.0F, 50.0F, 60.0F, 70.0F}, 2);
    for (const char* space : {"xyz", "lab"})
    {
        const ProgramRun run = convert({"--to", space});
        if (run.exitCode != 0)
        {
            EXPECT_EQ(run.exitCode, 1);
            EXPECT_EQ(countLines(run.err), 1U) << run.err;
            EXPECT_FALSE(contains(run.err, "range [0, 255]")) << run.err;
            continue;
        }
        const Picture picture = readPicture(m_output);
        for (std::size_t page = 0; page < 2; ++page)
        {
            for (std::size_t pixel = 0; pixel < 2; ++pixel)
                EXPECT_GT(picture.getPlane<float>(page, space == std::string("xyz") ? 1 : 0)[pixel], 1.0F) << space;
        }
    }
}

TEST_F(Program, inksNeedASpace)
{
    TiffBytes inks;
    inks.addImage(1, 1, 8, 4, 1, 5);
    writeBytes(m_input, inks.build({1, 2, 3, 4}));
    const ProgramRun run = convert({"--to", "rgb"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(contains(run.err, "holds printing inks (CMYK or others); say by --from how its channels are to be read"))
        << run.err;
    EXPECT_EQ(convert({"--to", "rgb", "--from", "user", "--matrix", "-1,0,0,-1,255,0,-1,0,-1,255,0,0,-1,-1,255"}).exitCode, 0);
}

TEST_F(Program, everyInstructionSetAndThreadCountGivesTheSamePicture)
{
    PictureShape shape;
    shape.sizeX = 131;
    shape.sizeY = 77;
    shape.channels = 3;
    writePicture(m_input, viewOf(makePicture(shape)));
    ASSERT_EQ(convert({"--to", "ycbcr"}).exitCode, 0);
    const Bytes expected = readBytes(m_output);
    const Json kernels = Json::parse(runProgram({"kernels", "--json"}).out);
    for (const char* name : {"generic", "sse2", "avx2", "fma3"})
    {
        const ProgramRun run = convert({"--to", "ycbcr", "--isa", name, "--threads", "1"});
        if (!kernels["available"][name].get<bool>())
        {
            EXPECT_EQ(run.exitCode, 1);
            EXPECT_TRUE(contains(run.err, "this machine cannot run")) << run.err;
            continue;
        }
        ASSERT_EQ(run.exitCode, 0) << run.err;
        const Picture picture = readPicture(m_output);
        writeBytes(m_output, expected);
        const Picture best = readPicture(m_output);
        for (std::size_t plane = 0; plane < 3; ++plane)
        {
            for (std::size_t sample = 0; sample < 131 * 77; ++sample)
                ASSERT_NEAR(picture.getPlane<std::uint8_t>(0, plane)[sample], best.getPlane<std::uint8_t>(0, plane)[sample], 1)
                    << name;
        }
    }
    for (const char* threads : {"1", "2", "5"})
    {
        ASSERT_EQ(convert({"--to", "ycbcr", "--threads", threads}).exitCode, 0);
        EXPECT_EQ(readBytes(m_output), expected) << threads;
    }
    if (kernels["available"]["avx"].get<bool>())
    {
        // There is one kernel of this form alone, from float to float.
        const ProgramRun run = convert({"--to", "ycbcr", "--isa", "avx"});
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_TRUE(contains(run.err, "AVX")) << run.err;
        EXPECT_EQ(countLines(run.err), 1U) << run.err;
    }
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

TEST_F(Program, jsonTellsTheSameTruth)
{
    const std::string png = m_folder.getPath("out.png");
    const ProgramRun run = runProgram({"convert", m_input, "-o", png, "--to", "hsv", "--json"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.err,
              "kovis-color: " + png + ": warning: PNG cannot hold f32 samples, so they become u16; write a .tif to keep them\n");
    const Json json = Json::parse(run.out);
    EXPECT_EQ(json["input"]["space"], "rgb");
    EXPECT_EQ(json["output"]["space"], "hsv");
    EXPECT_EQ(json["output"]["type"], "u16");
    EXPECT_EQ(json["output"]["file"], png);
    EXPECT_EQ(json["warnings"].size(), 1U);
    EXPECT_EQ(json["range"], "H 0 to 360 degrees, S 0 to 1, V on the scale of the samples");
    EXPECT_TRUE(contains(json["saturation"], "S becomes a whole number"));
    EXPECT_GE(json["seconds"]["convert"].get<double>(), 0.0);
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
