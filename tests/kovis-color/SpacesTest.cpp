// convert to and from every space, and what it says of the numbers.

#include "kovis-color/ProgramFixture.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cmath>
#include <tuple>

namespace kovis::tool::test
{
namespace
{
using Json = nlohmann::json;
using Pixel = std::array<double, 3>;

/// Four rows for a source of three channels; the last one gives 0.
const std::string g_fourRows = "1,0,0,0, 0,1,0,0, 0,0,1,0, 0,0,0,0";

struct Expected
{
    const char* space;
    Pixel red;  ///< of RGB 255, 0, 0
    Pixel blue; ///< of RGB 10, 20, 30
    double tolerance;
    Pixel redBack; ///< the way back to RGB
    double backTolerance;
};

// Worked out by the formulas in double. Lab, Luv and XYZ lead back to linear light on the scale 0 to 100, the others to the
// start.
const Expected g_expected[] = {
    {"xyz", {41.245644, 21.267285, 1.933390}, {0.609593, 0.658535, 1.323031}, 1e-4, {100.0, 0.0, 0.0}, 1e-4},
    {"lab", {53.240789, 80.092494, 67.203191}, {5.948523, -0.668724, -8.137471}, 1e-3, {100.0, 0.0, 0.0}, 2e-3},
    {"luv", {449.535511, 1477.962593, 319.006227}, {130.186905, -49.305237, -98.719683}, 2e-3, {100.0, 0.0, 0.0}, 2e-3},
    {"hls", {0.0, 127.5, -1.0079051}, {210.0, 20.0, -0.5263158}, 1e-4, {255.0, 0.0, 0.0}, 1e-3},
    {"hsv", {0.0, 1.0, 255.0}, {210.0, 0.6666667, 30.0}, 1e-4, {255.0, 0.0, 0.0}, 1e-3},
    {"ypbpr", {76.245, -43.027652, 127.5}, {18.15, 6.687359, -5.813124}, 1e-4, {255.0, 0.0, 0.0}, 1e-3}};

Pixel getPixel(const Picture& picture, std::size_t pixel)
{
    Pixel values = {};
    for (std::size_t channel = 0; channel < values.size(); ++channel)
        values[channel] = static_cast<double>(picture.getPlane<float>(0, channel)[pixel]);
    return values;
}

void expectNear(const Pixel& found, const Pixel& expected, double tolerance)
{
    for (std::size_t channel = 0; channel < found.size(); ++channel)
        EXPECT_NEAR(found[channel], expected[channel], tolerance) << "channel " << channel;
}
} // namespace

using Spaces = Program;

TEST_F(Spaces, numbersOfEachSpaceAndTheWayBack)
{
    const std::string back = m_folder.getPath("back.tif");
    for (const Expected& expected : g_expected)
    {
        SCOPED_TRACE(expected.space);
        ASSERT_EQ(convert({"--to", expected.space, "--type", "f32"}).exitCode, 0);
        const Picture picture = readPicture(m_output);
        EXPECT_EQ(picture.description, std::string("colour space: ") + expected.space);
        expectNear(getPixel(picture, 0), expected.red, expected.tolerance);
        expectNear(getPixel(picture, 1), expected.blue, expected.tolerance);
        const ProgramRun run = runProgram({"convert", m_output, "-o", back, "--from", expected.space, "--to", "rgb"});
        ASSERT_EQ(run.exitCode, 0) << run.err;
        expectNear(getPixel(readPicture(back), 0), expected.redBack, expected.backTolerance);
        const bool bLinear = expected.redBack[0] == 100.0;
        EXPECT_EQ(contains(run.err, "linear light"), bLinear) << run.err;
    }
}

TEST_F(Spaces, everyPairIsConverted)
{
    const std::vector<std::string> names = {"grey", "rgb", "rgba", "xyz", "ypbpr", "ycbcr", "lab", "luv", "hls", "hsv", "user"};
    for (const std::string& from : names)
    {
        const std::string source = m_folder.getPath(from + ".tif");
        std::vector<std::string> make = {"convert", m_input, "-o", source, "--to", from};
        if (from == "user")
            make.insert(make.end(), {"--matrix", g_fourRows});
        ASSERT_EQ(runProgram(make).exitCode, 0) << from;
        const std::size_t nbIn = readPicture(source).shape.channels;
        for (const std::string& to : names)
        {
            SCOPED_TRACE(from + " to " + to);
            std::vector<std::string> options = {"convert", source, "-o", m_output, "--from", from, "--to", to, "--type", "f32"};
            const std::size_t nbOut = to == "grey" ? 1 : to == "rgba" || to == "user" ? 4 : 3;
            if (from == "user" || to == "user")
            {
                std::string matrix;
                for (std::size_t number = 0; number < nbOut * (nbIn + 1); ++number)
                    matrix += number % (nbIn + 2) == 0 ? "1 " : "0.25 ";
                options.insert(options.end(), {"--matrix", matrix});
            }
            const ProgramRun run = runProgram(options);
            ASSERT_EQ(run.exitCode, 0) << run.err;
            const Picture picture = readPicture(m_output);
            ASSERT_EQ(picture.shape.channels, nbOut);
            ASSERT_EQ(picture.shape.type, ElementType::eF32);
            bool bAnything = false;
            for (std::size_t channel = 0; channel < nbOut; ++channel)
            {
                for (std::size_t pixel = 0; pixel < 3; ++pixel)
                {
                    EXPECT_TRUE(std::isfinite(picture.getPlane<float>(0, channel)[pixel])) << channel << " " << pixel;
                    bAnything |= picture.getPlane<float>(0, channel)[pixel] != 0.0F;
                }
            }
            EXPECT_TRUE(bAnything);
        }
    }
}

TEST_F(Spaces, floatRgbToXyzAndLabGivesWhatIntegersGive)
{
    const std::string floats = m_folder.getPath("floats.tif");
    const std::string result = m_folder.getPath("result.tif");
    const std::vector<float> pixels(g_pixels.begin(), g_pixels.end());
    writeRow<float>(floats, ElementType::eF32, 3, pixels, 3);
    writeRow(m_input, ElementType::eU8, 3, g_pixels, 3);
    for (const char* space : {"xyz", "lab"})
    {
        for (const char* type : {"f32", "i16"})
        {
            ASSERT_EQ(convert({"--to", space, "--type", type}).exitCode, 0);
            const ProgramRun run = runProgram({"convert", floats, "-o", result, "--to", space, "--type", type});
            ASSERT_EQ(run.exitCode, 0) << run.err;
            EXPECT_TRUE(isSame(readPicture(result), readPicture(m_output))) << space << " " << type;
        }
    }
}

TEST_F(Spaces, samplesThatTheCurveMistakesArePointedOut)
{
    const std::string unit = "within 0 to 1, but the sRGB curve on the way reads 255 as white";
    writeRow<float>(m_input, ElementType::eF32, 3, {0.0F, 0.5F, 1.0F});
    for (const char* space : {"xyz", "lab", "luv"})
        EXPECT_TRUE(contains(convert({"--to", space}).err, unit)) << space;
    for (const char* space : {"hsv", "hls", "ycbcr"})
        EXPECT_FALSE(contains(convert({"--to", space}).err, "note: ")) << space;
    const Json json = Json::parse(convert({"--to", "luv", "--json"}).out);
    ASSERT_EQ(json["warnings"].size(), 1U);
    EXPECT_TRUE(contains(json["warnings"][0], unit));
    writeRow<float>(m_input, ElementType::eF32, 3, {0.0F, 0.5F, 1.5F});
    EXPECT_FALSE(contains(convert({"--to", "luv"}).err, "note: "));
    writeRow<std::uint16_t>(m_input, ElementType::eU16, 3, {0, 0, 256});
    EXPECT_TRUE(contains(convert({"--to", "luv"}).err, "samples go beyond 255, but the sRGB curve"));
    EXPECT_FALSE(contains(convert({"--to", "luv", "--from", "ypbpr"}).err, "note: "));
    EXPECT_TRUE(contains(convert({"--to", "luv", "--from", "hsv"}).err, "samples go beyond 255"));
}

// The colours of a cube of samples show whether the ranges that the program prints are true.
TEST_F(Spaces, theRangesThatAreToldAreThoseOfAllColours)
{
    std::vector<std::uint8_t> cube;
    for (unsigned int red = 0; red < 256; red += 15)
    {
        for (unsigned int green = 0; green < 256; green += 15)
        {
            for (unsigned int blue = 0; blue < 256; blue += 15)
            {
                for (const unsigned int sample : {red, green, blue})
                    cube.push_back(static_cast<std::uint8_t>(sample));
            }
        }
    }
    writeRow(m_input, ElementType::eU8, 3, cube);
    for (const char* space : {"lab", "luv"})
    {
        const ProgramRun run = convert({"--to", space});
        ASSERT_EQ(run.exitCode, 0) << run.err;
        const Json info = Json::parse(runProgram({"info", m_output, "--json"}).out);
        for (std::size_t channel = 0; channel < 3; ++channel)
        {
            const Json& range = info["ranges"][channel];
            const std::string least = channel == 0 ? "0" : std::to_string(std::lround(range["min"].get<double>()));
            const std::string words = least + " to " + std::to_string(std::lround(range["max"].get<double>()));
            EXPECT_TRUE(contains(run.err, words)) << words << " in " << run.err;
        }
        // u and v of black.
        EXPECT_EQ(info["ranges"][1]["notFinite"], space == std::string("luv") ? 1 : 0);
    }
}

// Samples of 0 to 255 that no curve reads go beyond the usual numbers. By the formulas in double: L of Y 255, and red's numbers.
TEST_F(Spaces, samplesThatNoCurveReadsArePointedOutWithTheCure)
{
    const std::string rgb = m_folder.getPath("rgb.tif");
    writeRow<std::uint8_t>(m_input, ElementType::eU8, 4, {255, 255, 255, 255, 255, 0, 0, 255});
    for (const auto& [space, lightness, words] : std::vector<std::tuple<std::string, double, std::string>>{
             {"lab", 142.4787, "go to L 142.5; convert --to rgb first and that --to lab"},
             {"luv", 1049.5214, "go to L 1049.5; convert --to rgb first and that --to luv"}})
    {
        const ProgramRun run = convert({"--to", space});
        ASSERT_EQ(run.exitCode, 0) << run.err;
        EXPECT_TRUE(contains(run.err, words)) << run.err;
        EXPECT_NEAR(getPixel(readPicture(m_output), 0)[0], lightness, 1e-2);
        for (const char* from : {"grey", "rgba", "ypbpr", "ycbcr"})
            EXPECT_TRUE(contains(runProgram({"explain", "--from", from, "--to", space}).out, words)) << from;
        for (const char* from : {"rgb", "xyz", "hsv"})
            EXPECT_FALSE(contains(runProgram({"explain", "--from", from, "--to", space}).out, "--to rgb first")) << from;
    }
    ASSERT_EQ(convert({"--to", "lab"}).exitCode, 0);
    expectNear(getPixel(readPicture(m_output), 1), {78.5966, 109.4221, 91.8128}, 1e-2);
    ASSERT_EQ(runProgram({"convert", m_input, "-o", rgb, "--to", "rgb"}).exitCode, 0);
    ASSERT_EQ(runProgram({"convert", rgb, "-o", m_output, "--to", "lab"}).exitCode, 0);
    expectNear(getPixel(readPicture(m_output), 1), g_expected[1].red, 1e-3);
}

// A dark grey of Lab keeps its Y alone: told for every target but those whose middle link gives no colour as it is.
TEST_F(Spaces, darkColoursOfLabArePointedOutForEveryTarget)
{
    const std::string words = "not so for dark and saturated colours";
    for (const char* to : {"xyz", "rgb", "rgba", "grey", "ypbpr", "ycbcr", "luv", "user"})
        EXPECT_TRUE(contains(runProgram({"explain", "--from", "lab", "--to", to}).out, words)) << to;
    EXPECT_FALSE(contains(runProgram({"explain", "--from", "xyz", "--to", "rgb"}).out, words));
    writeRow<float>(m_input, ElementType::eF32, 3, {5.0F, 0.0F, 0.0F});
    const ProgramRun run = convert({"--from", "lab", "--to", "rgb"});
    EXPECT_TRUE(contains(run.err, words)) << run.err;
    // XYZ -1.6836, 0.5535, -1.9286 by the matrix, where the colour is 0.5535 in every channel.
    expectNear(getPixel(readPicture(m_output), 0), {-5.3449, 2.5901, -2.2456}, 2e-3);
}

// What rgb gives goes to L 764, and comes back on the scale 0 to 100; L 100 comes back at 0.329.
TEST_F(Spaces, theScaleOfLuvFollowsTheFile)
{
    writeRow<float>(m_input, ElementType::eF32, 3, {100.0F, 0.0F, 0.0F, 763.9184F, 0.0F, 0.0F});
    const ProgramRun run = convert({"--from", "luv", "--to", "rgb"});
    EXPECT_TRUE(
        contains(run.err, "the scale of the file, as linear light (0 to 0.329 for L from 0 to 100, 0 to 100 for L to 764"))
        << run.err;
    const Picture picture = readPicture(m_output);
    EXPECT_NEAR(getPixel(picture, 0)[1], 0.329024, 1e-3);
    EXPECT_NEAR(getPixel(picture, 1)[1], 100.0, 0.2);
}

TEST_F(Spaces, whatIntegerTypesLose)
{
    ASSERT_EQ(convert({"--to", "lab", "--type", "u8"}).exitCode, 0);
    Picture picture = readPicture(m_output);
    // L 5.95, a -0.67, b -8.14.
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 0)[1], 6);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 1)[1], 0);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 2)[1], 0);
    const ProgramRun run = convert({"--to", "hls", "--type", "u8"});
    EXPECT_TRUE(contains(run.err, "negative S (L above 1) becomes 0")) << run.err;
    picture = readPicture(m_output);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 1)[0], 128);
    EXPECT_EQ(picture.getPlane<std::uint8_t>(0, 2)[0], 0);
    ASSERT_EQ(convert({"--to", "hls", "--type", "i8"}).exitCode, 0);
    picture = readPicture(m_output);
    EXPECT_EQ(picture.getPlane<std::int8_t>(0, 2)[0], -1);
    EXPECT_EQ(picture.getPlane<std::int8_t>(0, 0)[1], 127);
    // A PNG takes 16 bits for what 8 cannot hold.
    const std::string png = m_folder.getPath("luv.png");
    EXPECT_TRUE(contains(runProgram({"convert", m_input, "-o", png, "--to", "luv"}).err, "become u16"));
    EXPECT_EQ(readPicture(png).getPlane<std::uint16_t>(0, 0)[0], 450);
}
} // namespace kovis::tool::test
