// What --save keeps, and what the verb run makes of it.

#include "kovis-color/ProgramFixture.h"

#include "KOVIS/KOVISImage/eColorGeometryType.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>

namespace kovis::tool::test
{
namespace
{
using Json = nlohmann::ordered_json;

class SaveOption : public Program
{
protected:
    /// Runs a verb with --save, then the saved file on the same pictures: the files must be the same, byte for byte.
    void expectSameAgain(const std::string& verb, const std::vector<std::string>& inputs, const std::vector<std::string>& options,
                         const std::vector<std::string>& runOptions = {}) const
    {
        std::vector<std::string> arguments{verb};
        arguments.insert(arguments.end(), inputs.begin(), inputs.end());
        arguments.insert(arguments.end(), {"-o", m_output, "--save", m_saved});
        arguments.insert(arguments.end(), options.begin(), options.end());
        const ProgramRun first = runProgram(arguments);
        ASSERT_EQ(first.exitCode, 0) << first.err;
        const ProgramRun again = run(inputs, runOptions);
        ASSERT_EQ(again.exitCode, 0) << again.err;
        EXPECT_EQ(readBytes(m_again), readBytes(m_output)) << verb;
        // ... and it says the same of it
        EXPECT_EQ(again.err.substr(again.err.rfind(": ")), first.err.substr(first.err.rfind(": ")));
    }

    ProgramRun run(const std::vector<std::string>& inputs, const std::vector<std::string>& options = {}) const
    {
        std::vector<std::string> arguments{"run", m_saved};
        arguments.insert(arguments.end(), inputs.begin(), inputs.end());
        arguments.insert(arguments.end(), {"-o", m_again});
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runProgram(arguments);
    }

    Json readSaved() const
    {
        const Bytes bytes = readBytes(m_saved);
        return Json::parse(bytes.begin(), bytes.end());
    }
    void writeSaved(const std::string& text) const { writeBytes(m_saved, Bytes(text.begin(), text.end())); }

    /// Fails with that exit code and one line that has these parts, and leaves no output.
    void expectRefused(const ProgramRun& outcome, int exitCode, const std::vector<std::string>& parts) const
    {
        EXPECT_EQ(outcome.exitCode, exitCode) << outcome.err;
        EXPECT_EQ(countLines(outcome.err), 1U) << outcome.err;
        for (const std::string& part : parts)
            EXPECT_TRUE(contains(outcome.err, part)) << outcome.err << "has no: " << part;
        const std::vector<std::string> names = m_folder.getNames();
        EXPECT_EQ(std::count(names.begin(), names.end(), "again.tif"), 0);
    }

    const std::string m_saved = m_folder.getPath("saved.json");
    const std::string m_again = m_folder.getPath("again.tif");
};
} // namespace

TEST_F(SaveOption, GivesTheSameBytesForConversions)
{
    expectSameAgain("convert", {m_input}, {"--to", "hsv"});
    expectSameAgain("convert", {m_input}, {"--to", "lab"});
    expectSameAgain("convert", {m_input}, {"--to", "ycbcr", "--type", "u8"});
    expectSameAgain("convert", {m_input}, {"--to", "rgb", "--from", "hsv", "--type", "i16"});
    expectSameAgain("convert", {m_input},
                    {"--to", "user", "--matrix", "0.299,0.587,0.114,1e-40,0.1,-3,7,0.3333333433", "--isa", "sse2"},
                    {"--isa", "sse2"});
}

TEST_F(SaveOption, GivesTheSameBytesForFloatPicturesOnTheWayAroundTheLibrary)
{
    writeRow<float>(m_input, ElementType::eF32, 3, {255.0F, 0.0F, 0.5F, 10.0F, 20.25F, 30.0F}, 2);
    expectSameAgain("convert", {m_input}, {"--to", "lab"});
    expectSameAgain("convert", {m_input}, {"--to", "xyz", "--type", "i32"});
    const Picture picture = readPicture(m_again);
    EXPECT_NE(picture.getPlane<std::int32_t>(1, 0)[0], 0);
}

TEST_F(SaveOption, GivesTheSameBytesForTheOtherVerbs)
{
    for (const std::string formula : {"average", "lightness", "luminosity"})
        expectSameAgain("lightness", {m_input}, {"--formula", formula});
    expectSameAgain("lightness", {m_input}, {"--formula", "luminosity", "--type", "f32"});
    expectSameAgain("append", {m_input, m_input}, {});
    expectSameAgain("append", {m_input, m_input, m_input}, {"--type", "f32"});
}

TEST_F(SaveOption, KeepsWhatWasSetAndNoPicture)
{
    ASSERT_EQ(convert({"--to", "user", "--from", "lab", "--matrix", "1,0.1,0,-0.5", "--type", "f32", "--save", m_saved}).exitCode,
              0);
    EXPECT_EQ(readSaved(), Json::parse(R"([{"section": "object",
        "items": {"class": "kovis::imaproc::color::ColorConvertImgLvl1"},
        "sections": [{"section": "kovis::processor::BaseProcessor",
                      "items": {"class": "kovis::imaproc::color::ColorConvertImgLvl1", "initialised": true, "rules": true},
                      "sections": [{"section": "InColorConversionTransform",
                                    "items": {"set": true, "target": 10, "matrix": [1.0, 0.1, 0.0, -0.5]}}]},
                     {"section": "kovis::imaproc::color::ColorConvertImgLvl1", "items": {"version": 1}}]},
       {"section": "kovis-color", "items": {"from": "lab", "type": "f32"}}])"));
}

TEST_F(SaveOption, GivesWayToTheOptionsOfTheCommandLine)
{
    ASSERT_EQ(convert({"--to", "hsv", "--save", m_saved}).exitCode, 0);
    const ProgramRun outcome =
        run({m_input}, {"--type", "u8", "--from", "rgb", "--json", "--threads", "1", "--max-memory", "10"});
    ASSERT_EQ(outcome.exitCode, 0) << outcome.err;
    const Json answer = Json::parse(outcome.out);
    EXPECT_EQ(answer["output"]["type"], "u8");
    EXPECT_EQ(answer["output"]["space"], "hsv");
    EXPECT_EQ(answer["input"]["file"], m_input);
}

TEST_F(SaveOption, ReadsAnArchiveThatTheLibraryAloneWrote)
{
    ASSERT_EQ(convert({"--to", "hsv", "--save", m_saved}).exitCode, 0);
    Json archive = readSaved();
    archive.erase(1);
    writeSaved(archive.dump());
    ASSERT_EQ(run({m_input}).exitCode, 0);
    EXPECT_EQ(readBytes(m_again), readBytes(m_output));
}

TEST_F(SaveOption, PassesTheLibrarysRefusalsOn)
{
    ASSERT_EQ(convert({"--to", "lab", "--save", m_saved}).exitCode, 0);
    writeRow<float>(m_input, ElementType::eF32, 3, {256.0F, 0.0F, 0.0F});
    expectRefused(run({m_input}), 1, {"Error: the image values does not match the range [0, 255]"});
}

TEST_F(SaveOption, NeverWritesOverAnotherFileOfTheRun)
{
    const Bytes before = readBytes(m_input);
    expectRefused(convert({"--to", "hsv", "--save", m_input}), 2, {m_input + ": is an input itself; give --save another name"});
    expectRefused(convert({"--to", "hsv", "--save", m_output}), 2,
                  {m_output + ": is the output itself; give --save another name"});
    expectRefused(convert({"--to", "hsv", "--save", m_folder.getPath("no/such.json")}), 1, {"choose a folder that exists"});
    EXPECT_EQ(readBytes(m_input), before);
    EXPECT_EQ(m_folder.getNames(), std::vector<std::string>{"in.tif"});
    ASSERT_EQ(convert({"--to", "hsv", "--save", m_saved}).exitCode, 0);
    const Bytes saved = readBytes(m_saved);
    EXPECT_EQ(runProgram({"run", m_saved, m_input, "-o", m_saved}).exitCode, 2);
    EXPECT_EQ(readBytes(m_saved), saved);
}

TEST_F(SaveOption, IsRefusedWhereItDoesNotFit)
{
    ASSERT_EQ(convert({"--to", "hsv", "--save", m_saved}).exitCode, 0);
    expectRefused(run({m_input, m_input}), 2, {"takes one picture, not 2"});
    const Json saved = readSaved();
    const auto refuse = [this](const std::string& text, const std::vector<std::string>& parts)
    {
        writeSaved(text);
        expectRefused(run({m_input}), 1, parts);
    };
    const auto replace = [&saved](const std::string& part, const std::string& other)
    {
        std::string text = saved.dump();
        for (std::size_t place = text.find(part); place != std::string::npos; place = text.find(part, place + other.size()))
            text.replace(place, part.size(), other);
        return text;
    };
    const std::string whatToGive = "; give a file that kovis-color wrote by --save";
    refuse("", {m_saved + ": is empty" + whatToGive});
    refuse(saved.dump() + "x", {"outermost level"});
    refuse("[]", {m_saved, "where section \"object\" is expected", "give a file that kovis-color wrote by --save"});
    refuse(saved.dump().substr(0, 200), {"section \"object/kovis::processor::BaseProcessor\""});
    refuse(replace("ColorConvertImgLvl1", "Nobody"), {"section \"object\", key \"class\"", "kovis::imaproc::color::Nobody"});
    refuse(replace("\"version\":1", "\"version\":2"), {"version 2, newer than version 1"});
    refuse(replace("\"from\":\"\"", "\"from\":\"labb\""), {"section \"kovis-color\", key \"from\"", "did you mean 'lab'?"});
    refuse(replace("\"type\":\"\"", "\"type\":\"u7\""), {"section \"kovis-color\", key \"type\""});
    refuse(replace("\"set\":true", "\"set\":false"),
           {m_saved + ": holds a processor whose InColorConversionTransform is not set"});
    refuse(replace("{\"section\":\"kovis-color\"", "{\"section\":\"other\"},{\"section\":\"kovis-color\""),
           {m_saved, "\"other\""});
    refuse(replace("}}]", "}},{\"section\":\"object\"}]"),
           {m_saved + ": holds more than one processor: section \"object\"" + whatToGive});
    expectRefused(runProgram({"run", m_folder.getPath("none.json"), m_input, "-o", m_again}), 1, {"cannot be read"});
    const std::string folder = m_folder.getPath("");
    expectRefused(runProgram({"run", folder, m_input, "-o", m_again}), 1, {folder + ": is not a plain file" + whatToGive});
}

TEST_F(SaveOption, NamesTheFileWhoseMatrixDoesNotFit)
{
    ASSERT_EQ(convert({"--to", "user", "--matrix", "1,2,3,4", "--save", m_saved}).exitCode, 0);
    Json archive = readSaved();
    Json& items = archive[0]["sections"][0]["sections"][0]["items"];
    const auto refuse = [&](const Json& matrix, const std::string& what)
    {
        items["matrix"] = matrix;
        writeSaved(archive.dump());
        expectRefused(run({m_input}), 1, {m_saved + ": the matrix: " + what});
    };
    refuse({1.0}, "has 1 numbers, which do not make whole rows of 4; give each row");
    refuse(Json::array(), "is missing");
    items["target"] = static_cast<int>(image::eCGT_HSV);
    refuse({1.0, 2.0, 3.0, 4.0}, "is of no use from rgb to hsv");
}

TEST_F(SaveOption, RefusesASpaceForAnAppend)
{
    ASSERT_EQ(runProgram({"append", m_input, m_input, "-o", m_output, "--save", m_saved}).exitCode, 0);
    expectRefused(run({m_input, m_input}, {"--from", "lab"}), 2, {"--from: is of no use for an append"});
}

TEST_F(SaveOption, KeepsAgainWhatARunWasRead)
{
    ASSERT_EQ(convert({"--to", "ycbcr", "--from", "rgb", "--type", "u8", "--save", m_saved}).exitCode, 0);
    const std::string savedAgain = m_folder.getPath("again.json");
    ASSERT_EQ(run({m_input}, {"--save", savedAgain}).exitCode, 0);
    EXPECT_EQ(readBytes(savedAgain), readBytes(m_saved));
}

TEST_F(SaveOption, IsRefusedForATargetThatIsNoSpace)
{
    ASSERT_EQ(convert({"--to", "grey", "--save", m_saved}).exitCode, 0);
    Json archive = readSaved();
    for (const int target : {99, 11, -1})
    {
        archive[0]["sections"][0]["sections"][0]["items"]["target"] = target;
        writeSaved(archive.dump());
        expectRefused(
            run({m_input}), 1,
            {m_saved, "section \"object/kovis::processor::BaseProcessor/InColorConversionTransform\", key \"target\": " +
                          std::to_string(target) + " is none of the numbers 0 to 10"});
    }
}

TEST_F(SaveOption, KeepsNanAndInfinitiesOfAMatrix)
{
    ASSERT_EQ(convert({"--to", "user", "--matrix", "0,0,0,1", "--type", "f32", "--save", m_saved}).exitCode, 0);
    Json archive = readSaved();
    archive[0]["sections"][0]["sections"][0]["items"]["matrix"] = Json::parse(R"([0,0,0,"inf",0,0,0,"-inf",0,0,0,"nan"])");
    writeSaved(archive.dump());
    ASSERT_EQ(run({m_input}).exitCode, 0);
    const Picture picture = readPicture(m_again);
    EXPECT_EQ(picture.getPlane<float>(0, 0)[0], std::numeric_limits<float>::infinity());
    EXPECT_EQ(picture.getPlane<float>(0, 1)[1], -std::numeric_limits<float>::infinity());
    EXPECT_TRUE(std::isnan(picture.getPlane<float>(0, 2)[2]));
}

TEST_F(SaveOption, IsRefusedForClassesThatItDoesNotRun)
{
    writeSaved(R"([{"section": "object", "items": {"class": "kovis::imaproc::color::LightnessImgLvl2"},
        "sections": [{"section": "kovis::processor::BaseProcessor",
                      "items": {"class": "kovis::imaproc::color::LightnessImgLvl2", "initialised": true, "rules": true},
                      "sections": [{"section": "InLightnessType", "items": {"set": true, "value": 2}}]},
                     {"section": "kovis::imaproc::color::LightnessImgLvl2", "items": {"version": 1}}]}])");
    expectRefused(run({m_input}), 1,
                  {m_saved +
                   ": holds a kovis::imaproc::color::LightnessImgLvl2, which this program does not run; give a file of a "
                   "ColorConvertImgLvl1, a LightnessImgLvl1 or an AppendColorChannelImgLvl1"});
}

TEST_F(SaveOption, IsRefusedForANumberThatIsNoFormula)
{
    ASSERT_EQ(runProgram({"lightness", m_input, "-o", m_output, "--formula", "luminosity", "--save", m_saved}).exitCode, 0);
    Json archive = readSaved();
    for (const int formula : {7, 3, -1})
    {
        archive[0]["sections"][0]["sections"][0]["items"]["value"] = formula;
        writeSaved(archive.dump());
        expectRefused(run({m_input}), 1,
                      {m_saved, "section \"object/kovis::processor::BaseProcessor/InLightnessType\", key \"value\": " +
                                    std::to_string(formula) + " is none of the numbers 0 to 2"});
    }
}
} // namespace kovis::tool::test
