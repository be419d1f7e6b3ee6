// What explain tells of each conversion.

#include "kovis-color/ProgramFixture.h"
#include "support/ConversionRoutes.h"

#include <nlohmann/json.hpp>

#include <map>

namespace kovis::tool::test
{
namespace
{
using Json = nlohmann::json;
using kovis::test::g_conversionRoutes;

constexpr std::size_t g_nbSpaces = 11;
const std::vector<std::string> g_names = {"grey", "rgb", "rgba", "xyz", "ypbpr", "ycbcr", "lab", "luv", "hls", "hsv", "user"};

Json explain(const std::string& from, const std::string& to, const std::vector<std::string>& options = {},
             const std::string& environment = std::string())
{
    std::vector<std::string> arguments = {"explain", "--from", from, "--to", to, "--json"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const ProgramRun run = runProgram(arguments, environment);
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.err, "");
    return Json::parse(run.out);
}

std::vector<std::string> getChain(std::size_t from, std::size_t to)
{
    const std::string way = g_conversionRoutes[from][to];
    std::vector<std::string> chain = {g_names[from]};
    for (const char hub : way == "d" || way == "-" ? std::string() : way)
        chain.emplace_back(hub == 'X' ? "xyz" : "rgb");
    chain.push_back(g_names[to]);
    return chain;
}

// The kernels of the links that no plain matrix is.
const std::map<std::string, std::string> g_kernels = {
    {"lab xyz", "fromLabToXYZConvert"}, {"xyz lab", "fromXYZToLabConvert"}, {"luv xyz", "fromLuvToXYZConvert"},
    {"xyz luv", "fromXYZToLuvConvert"}, {"hls rgb", "fromHLSToRGBConvert"}, {"rgb hls", "fromRGBToHLSConvert"},
    {"hsv rgb", "fromHSVToRGBConvert"}, {"rgb hsv", "fromRGBToHSVConvert"}, {"rgb xyz", "sRGBtoXYZConvert"}};

std::size_t countChannels(const std::string& space)
{
    return space == "grey" ? 1 : space == "rgba" ? 4 : 3;
}

void checkLink(const Json& link, const std::string& from, const std::string& to)
{
    const auto known = g_kernels.find(from + " " + to);
    const bool bUser = from == "user" || to == "user";
    EXPECT_EQ(link["from"], from);
    EXPECT_EQ(link["to"], to);
    EXPECT_EQ(link["kernel"], from == to && !bUser ? "copyConvert" : known == g_kernels.end() ? "linearConvert" : known->second);
    EXPECT_FALSE(link["formula"].get<std::string>().empty());
    EXPECT_EQ(contains(link["note"], "--matrix"), bUser);
    const bool bMatrix = link["kernel"] == "sRGBtoXYZConvert" || (link["kernel"] == "linearConvert" && !bUser);
    ASSERT_EQ(link["matrix"].is_array(), bMatrix);
    if (!bMatrix)
        return;
    EXPECT_EQ(link["matrix"].size(), countChannels(to));
    for (const Json& row : link["matrix"])
        EXPECT_EQ(row.size(), countChannels(from) + 1);
}
} // namespace

TEST(Explain, everyPairHasItsChainAndItsKernels)
{
    for (std::size_t from = 0; from < g_nbSpaces; ++from)
    {
        for (std::size_t to = 0; to < g_nbSpaces; ++to)
        {
            SCOPED_TRACE(g_names[from] + " to " + g_names[to]);
            const Json answer = explain(g_names[from], g_names[to]);
            const std::vector<std::string> chain = getChain(from, to);
            const bool bCopy = g_conversionRoutes[from][to][0] == '-';
            EXPECT_EQ(answer["copy"], bCopy);
            ASSERT_EQ(answer["chain"].size(), chain.size());
            ASSERT_EQ(answer["links"].size(), chain.size() - 1);
            for (std::size_t place = 0; place < chain.size(); ++place)
            {
                EXPECT_EQ(answer["chain"][place]["space"], chain[place]);
                if (place != 0 && place + 1 < chain.size())
                {
                    EXPECT_EQ(answer["chain"][place]["type"], "f32");
                }
                if (place != 0)
                    checkLink(answer["links"][place - 1], chain[place - 1], chain[place]);
            }
            if (chain.size() == 4)
            {
                EXPECT_TRUE(contains(answer["links"][1]["note"], "in place"));
            }
            for (const char* end : {"from", "to"})
                EXPECT_FALSE(answer[end]["range"].get<std::string>().empty());
            EXPECT_EQ(answer["row"]["output"], answer["to"]["type"]);
            EXPECT_FALSE(answer["row"]["form"].get<std::string>().empty());
        }
    }
}

TEST(Explain, theTextHasALineForEachLink)
{
    for (std::size_t from = 0; from < g_nbSpaces; ++from)
    {
        for (std::size_t to = 0; to < g_nbSpaces; ++to)
        {
            const ProgramRun run = runProgram({"explain", "--from", g_names[from], "--to", g_names[to]});
            ASSERT_EQ(run.exitCode, 0) << run.err;
            std::size_t nbLinks = 0;
            while (contains(run.out, "\nlink " + std::to_string(nbLinks + 1) + ":  "))
                ++nbLinks;
            EXPECT_EQ(nbLinks, getChain(from, to).size() - 1) << run.out;
            for (const char* line : {"chain:   ", "\nreads:   ", "\ngives:   ", "\nloses:   ", "\nruns:    ", "\nrow:     "})
                EXPECT_TRUE(contains(run.out, line)) << run.out;
        }
    }
}

TEST(Explain, misuseEndsWithTwoAndOneLine)
{
    const std::vector<std::vector<std::string>> misuses = {{"explain"},
                                                           {"explain", "--from", "rgb"},
                                                           {"explain", "--to", "rgb"},
                                                           {"explain", "--from", "rgb", "--to", "lba"},
                                                           {"explain", "--from", "rbg", "--to", "lab"},
                                                           {"explain", "--from", "", "--to", "lab"},
                                                           {"explain", "--from", "rgb", "--to", "lab", "--type", "u64"},
                                                           {"explain", "--from", "rgb", "--to", "lab", "--type", ""},
                                                           {"explain", "--from", "rgb", "--to", "lab", "--input-type", "x8"},
                                                           {"explain", "--from", "rgb", "--to", "lab", "more"}};
    for (const std::vector<std::string>& arguments : misuses)
    {
        const ProgramRun run = runProgram(arguments);
        EXPECT_EQ(run.exitCode, 2) << run.err;
        EXPECT_EQ(countLines(run.err), 1U) << run.err;
        EXPECT_TRUE(contains(run.err, "kovis-color: ") && contains(run.err, "; ")) << run.err;
        EXPECT_EQ(run.out, "");
    }
    EXPECT_TRUE(contains(runProgram({"explain", "--from", "rgb", "--to", "lba"}).err, "did you mean 'lab'?"));
    const std::string longName(1000, 'q');
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{longName},
                                               {"explain", "--from", longName, "--to", "lab"},
                                               {"explain", "--from", "rgb", "--to", "lab", "--type", longName},
                                               {"convert", "in.tif", "-o", "out.tif", "--to", "lab", "--isa", longName},
                                               {"lightness", "in.tif", "-o", "out.tif", "--formula", longName}})
    {
        const ProgramRun run = runProgram(arguments);
        EXPECT_EQ(run.exitCode, 2) << run.err;
        EXPECT_TRUE(contains(run.err, std::string("'").append(40, 'q') + "...'")) << run.err;
    }
    EXPECT_TRUE(contains(runProgram({"explian"}).err, "did you mean 'explain'?"));
}

TEST(Explain, theMatrixIsTheOneThatRuns)
{
    const Json xyz = explain("rgb", "xyz")["links"][0]["matrix"];
    EXPECT_NEAR(xyz[0][0].get<double>(), 0.4124564, 1e-7);
    EXPECT_NEAR(xyz[1][1].get<double>(), 0.7151522, 1e-7);
    EXPECT_EQ(xyz[2][3], 0.0);
    const Json grey = explain("rgb", "grey")["links"][0]["matrix"];
    EXPECT_EQ(grey, (Json{{0.299, 0.587, 0.114, 0.0}}));
    // The offset of the colour differences and an opaque alpha are those of the element type at their end.
    EXPECT_EQ(explain("rgb", "ycbcr", {"--type", "u16"})["links"][0]["matrix"][1][3], 32768.0);
    EXPECT_EQ(explain("rgb", "ycbcr", {"--type", "i16"})["links"][0]["matrix"][1][3], 0.0);
    EXPECT_EQ(explain("rgb", "rgba", {"--type", "u16"})["links"][0]["matrix"][3][3], 65535.0);
    EXPECT_TRUE(
        contains(runProgram({"explain", "--from", "rgb", "--to", "grey"}).out, "0.299         0.587         0.114  | 0\n"));
}

TEST(Explain, whatAnIntegerTypeLoses)
{
    const auto loss = [](const std::string& from, const std::string& to, const std::string& type) {
        return explain(from, to, {"--type", type})["loss"].get<std::string>();
    };
    EXPECT_EQ(loss("rgb", "lab", "f32"), "");
    EXPECT_TRUE(contains(loss("rgb", "lab", "u8"), "negative a and b become 0"));
    EXPECT_FALSE(contains(loss("rgb", "lab", "i8"), "become 0"));
    EXPECT_TRUE(contains(loss("rgb", "hsv", "u8"), "hues above 255 become 255, S becomes 0 or 1"));
    EXPECT_FALSE(contains(loss("rgb", "hsv", "u16"), "hues"));
    EXPECT_TRUE(contains(loss("rgb", "hls", "u16"), "negative S (L above 1) becomes 0"));
    EXPECT_TRUE(contains(loss("rgb", "hls", "i16"), "mostly 0 or -1"));
    EXPECT_TRUE(contains(loss("rgb", "luv", "u8"), "becomes 255 in the generic and sse2 forms and 0 in the avx2 and fma3 forms"));
    EXPECT_TRUE(contains(loss("rgb", "rgb", "u8"), "cuts fractions off"));
    EXPECT_TRUE(contains(loss("rgb", "grey", "u8"), "rounds to whole numbers and saturates at 0 and 255"));
}

using ExplainedLoss = Program;

// Black of luv is NaN on every way, and lab and luv reach an R, G or B below 0, so that S goes beyond 1: told, and seen.
TEST_F(ExplainedLoss, whatIsLostOnTheWayToAHueIsWhatIsTold)
{
    const auto loss = [](const std::string& from, const std::string& to) {
        return explain(from, to, {"--type", "u8"})["loss"].get<std::string>();
    };
    for (const char* to : {"hsv", "hls"})
    {
        EXPECT_TRUE(contains(loss("luv", to), "S becomes a whole number")) << to;
        EXPECT_TRUE(contains(loss("luv", to),
                             "NaN (of black) becomes 255 in the generic and sse2 forms and 0 in the avx2 and fma3 "
                             "forms (H becomes 0)"))
            << to;
    }
    for (const char* from : {"xyz", "lab", "ycbcr", "ypbpr", "user"})
    {
        EXPECT_TRUE(contains(loss(from, "hsv"), "S becomes a whole number")) << from;
        EXPECT_FALSE(contains(loss(from, "hsv"), "NaN")) << from;
    }
    for (const char* from : {"rgb", "rgba", "grey", "hls"})
        EXPECT_TRUE(contains(loss(from, "hsv"), "S becomes 0 or 1")) << from;

    const auto getPixel =
        [this](const std::string& from, const std::string& to, const std::string& form, const std::vector<float>& pixel)
    {
        writeRow(m_input, ElementType::eF32, 3, pixel);
        const ProgramRun run = convert({"--from", from, "--to", to, "--type", "u8"}, "KOVIS_MAX_INSTRUCTION_SET=" + form);
        EXPECT_EQ(run.exitCode, 0) << run.err;
        const Picture picture = readPicture(m_output);
        std::vector<int> found;
        for (std::size_t channel = 0; channel < 3; ++channel)
            found.push_back(picture.getPlane<std::uint8_t>(0, channel)[0]);
        return found;
    };
    const Json available = Json::parse(runProgram({"kernels", "--json"}).out)["available"];
    for (const auto& [form, nan] :
         std::vector<std::pair<std::string, int>>{{"generic", 255}, {"sse2", 255}, {"avx2", 0}, {"fma3", 0}})
    {
        if (!available[form].get<bool>())
            continue;
        EXPECT_EQ(getPixel("luv", "hsv", form, {0.0F, 0.0F, 0.0F}), (std::vector<int>{0, nan, nan})) << form;
        EXPECT_EQ(getPixel("luv", "hls", form, {0.0F, 0.0F, 0.0F}), (std::vector<int>{0, nan, nan})) << form;
        // Red: S is 1.569.
        EXPECT_EQ(getPixel("lab", "hsv", form, {53.240789F, 80.092494F, 67.203191F}), (std::vector<int>{255, 2, 100})) << form;
        // Black of lab has an X and a Z, so that its u and v are numbers.
        EXPECT_EQ(getPixel("lab", "luv", form, {0.0F, 0.0F, 0.0F}), (std::vector<int>{0, 0, 0})) << form;
    }
    EXPECT_FALSE(contains(loss("lab", "luv"), "NaN"));
    EXPECT_FALSE(contains(explain("lab", "luv")["to"]["range"], "NaN"));
    EXPECT_TRUE(contains(loss("hsv", "luv"), "NaN (of black) becomes 255"));
}

TEST(Explain, theRowIsTheOneThatThisMachineRuns)
{
    const Json available = Json::parse(runProgram({"kernels", "--json"}).out)["available"];
    const std::string best = available["fma3"].get<bool>() ? "fma3" : available["avx2"].get<bool>() ? "avx2" : "sse2";
    EXPECT_EQ(explain("rgb", "hsv")["row"]["form"], best);
    EXPECT_EQ(explain("rgb", "hsv", {}, "KOVIS_MAX_INSTRUCTION_SET=sse2")["row"]["form"], "sse2");
    const Json generic = explain("rgb", "hsv", {"--type", "i16"}, "KOVIS_MAX_INSTRUCTION_SET=generic")["row"];
    EXPECT_EQ(generic, (Json{{"input", "u8"}, {"output", "i16"}, {"form", "generic"}, {"instructionSets", "generic"}}));
    if (available["avx"].get<bool>())
    {
        // Of this form there is the kernel from float to float alone.
        EXPECT_EQ(explain("hsv", "hls", {}, "KOVIS_MAX_INSTRUCTION_SET=avx")["row"]["form"], "avx");
        EXPECT_EQ(explain("rgb", "hls", {}, "KOVIS_MAX_INSTRUCTION_SET=avx")["row"]["form"], "sse2");
    }
}

TEST(Explain, rgbToXyzAndLabReadAWorkingImage)
{
    for (const char* to : {"xyz", "lab"})
    {
        const Json integers = explain("rgb", to, {"--input-type", "u16", "--type", "u8"});
        EXPECT_EQ(integers["row"]["input"], "f32");
        EXPECT_EQ(integers["row"]["output"], "u8");
        EXPECT_TRUE(contains(integers["run"], "three steps"));
        EXPECT_TRUE(contains(integers["from"]["range"], "refused outside"));
        EXPECT_TRUE(contains(explain("rgb", to, {"--input-type", "f32"})["run"], "level 2 on each slice"));
    }
    const Json luv = explain("rgb", "luv");
    EXPECT_EQ(luv["row"]["input"], "u8");
    EXPECT_TRUE(contains(luv["run"], "one step"));
    EXPECT_TRUE(contains(luv["from"]["range"], "scale 0 to 255"));
    EXPECT_FALSE(contains(luv["from"]["range"], "refused"));
    EXPECT_FALSE(contains(explain("rgba", "lab")["from"]["range"], "255"));
}
} // namespace kovis::tool::test
