// What the verb lightness makes of pictures.

#include "kovis-color/ProgramFixture.h"

#include <nlohmann/json.hpp>

namespace kovis::tool::test
{
namespace
{
using Json = nlohmann::json;

class LightnessVerb : public Program
{
protected:
    ProgramRun lightness(std::vector<std::string> options, const std::string& environment = std::string()) const
    {
        options.insert(options.begin(), {"lightness", m_input, "-o", m_output});
        return runProgram(options, environment);
    }

    /// The samples of the output, page after page.
    template <class T>
    std::vector<T> readSamples() const
    {
        const Picture picture = readPicture(m_output);
        EXPECT_EQ(picture.shape.channels, 1U);
        EXPECT_EQ(picture.description, "colour space: grey");
        std::vector<T> samples;
        for (std::size_t page = 0; page < picture.shape.pages; ++page)
        {
            const T* const plane = picture.getPlane<T>(page, 0);
            samples.insert(samples.end(), plane, plane + picture.shape.getPlaneSamples());
        }
        return samples;
    }
};
} // namespace

TEST_F(LightnessVerb, computesEachFormula)
{
    const ProgramRun run = lightness({});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "kovis-color: " + m_output + ": grey u8: average of 3 channels\n");
    EXPECT_EQ(readSamples<std::uint8_t>(), (std::vector<std::uint8_t>{85, 20, 100}));
    ASSERT_EQ(lightness({"--formula", "average"}).exitCode, 0);
    EXPECT_EQ(readSamples<std::uint8_t>(), (std::vector<std::uint8_t>{85, 20, 100}));
    ASSERT_EQ(lightness({"--formula", "Lightness"}).exitCode, 0);
    EXPECT_EQ(readSamples<std::uint8_t>(), (std::vector<std::uint8_t>{128, 20, 100}));
    ASSERT_EQ(lightness({"--formula", "luminosity"}).exitCode, 0);
    EXPECT_EQ(readSamples<std::uint8_t>(), (std::vector<std::uint8_t>{54, 19, 100}));
}

TEST_F(LightnessVerb, computesEveryPageOfAnyTypeAndNumberOfChannels)
{
    writeRow<float>(m_input, ElementType::eF32, 2, {1.0F, 2.0F, -4.0F, 8.0F}, 3);
    const ProgramRun run = lightness({"--formula", "lightness", "--threads", "1"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(readSamples<float>(), (std::vector<float>{1.5F, 2.0F, 1.5F, 2.0F, 1.5F, 2.0F}));
    writeRow<std::int16_t>(m_input, ElementType::eI16, 5, {-1, -2, -3, -4, -5});
    ASSERT_EQ(lightness({"--from", "user"}).exitCode, 0);
    EXPECT_EQ(readSamples<std::int16_t>(), (std::vector<std::int16_t>{-3}));
}

TEST_F(LightnessVerb, roundsAndSaturatesToTheTypeThatIsAskedFor)
{
    writeRow<float>(m_input, ElementType::eF32, 2, {10.0F, 11.0F, 300.0F, 400.0F, -3.0F, -9.0F, 7.25F, 7.25F});
    ASSERT_EQ(lightness({"--type", "u8"}).exitCode, 0);
    EXPECT_EQ(readSamples<std::uint8_t>(), (std::vector<std::uint8_t>{11, 255, 0, 7}));
    writeRow<std::uint32_t>(m_input, ElementType::eU32, 1, {16777216U, 70000U, 12U});
    ASSERT_EQ(lightness({"--type", "u16"}).exitCode, 0);
    EXPECT_EQ(readSamples<std::uint16_t>(), (std::vector<std::uint16_t>{65535, 65535, 12}));
    ASSERT_EQ(lightness({"--type", "f32"}).exitCode, 0);
    EXPECT_EQ(readSamples<float>(), (std::vector<float>{16777216.0F, 70000.0F, 12.0F}));
}

TEST_F(LightnessVerb, tellsWhatAFormatCannotHold)
{
    writeRow<float>(m_input, ElementType::eF32, 3, {10.0F, 11.0F, 13.0F});
    const std::string png = m_folder.getPath("out.png");
    const ProgramRun run = runProgram({"lightness", m_input, "-o", png});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_TRUE(contains(run.err, "cannot hold f32 samples")) << run.err;
    EXPECT_EQ(readPicture(png).shape.channels, 1U);
}

TEST_F(LightnessVerb, answersAsJson)
{
    const ProgramRun run = lightness({"--formula", "luminosity", "--isa", "sse2", "--json"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const Json answer = Json::parse(run.out);
    EXPECT_EQ(answer["formula"], "luminosity");
    EXPECT_EQ(answer["input"]["channels"], 3);
    EXPECT_EQ(answer["output"]["channels"], 1);
    EXPECT_EQ(answer["output"]["type"], "u8");
    EXPECT_EQ(answer["output"]["space"], "grey");
    EXPECT_TRUE(answer["warnings"].empty());
    EXPECT_TRUE(answer["seconds"]["convert"].is_number());
}

TEST_F(LightnessVerb, refusesTheLuminosityOfOtherThanThreeChannelsInTheLibrarysWords)
{
    writeRow<std::uint8_t>(m_input, ElementType::eU8, 1, {1, 2, 3});
    const ProgramRun run = lightness({"--formula", "luminosity"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(countLines(run.err), 1U) << run.err;
    EXPECT_TRUE(contains(run.err, "The input image must have 3 channels to compute the luminosity but contains 1 channel"))
        << run.err;
    EXPECT_EQ(m_folder.getNames(), (std::vector<std::string>{"in.tif"}));
}

TEST_F(LightnessVerb, refusesMisuseInOneLine)
{
    const std::vector<std::vector<std::string>> misuses = {{"--formula", "luma"}, {"--formula", ""}, {"--isa", "fma3"},
                                                           {"--isa", "mmx"},      {"--type", "u7"},  {"--from", "grey"},
                                                           {"--to", "grey"},      {"--threads", "0"}};
    for (const std::vector<std::string>& misuse : misuses)
    {
        const ProgramRun run = lightness(misuse);
        EXPECT_EQ(run.exitCode, 2) << misuse[0] << " " << misuse[1];
        EXPECT_EQ(countLines(run.err), 1U) << run.err;
    }
    EXPECT_TRUE(contains(lightness({"--formula", "averge"}).err, "did you mean 'average'?"));
    EXPECT_TRUE(contains(runProgram({"lightnes", m_input}).err, "did you mean 'lightness'?"));
    EXPECT_EQ(runProgram({"lightness", m_input, "-o", m_input}).exitCode, 2);
    EXPECT_EQ(runProgram({"lightness", m_folder.getPath("none.tif"), "-o", m_output}).exitCode, 1);
}

TEST_F(LightnessVerb, runsTheFormThatIsAskedFor)
{
    // one pixel whose luminosity is rounded otherwise where its products are fused, and one whose is not
    writeRow<std::uint8_t>(m_input, ElementType::eU8, 3, {143, 85, 161, 10, 20, 30});
    const Json kernels = Json::parse(runProgram({"kernels", "--json"}).out);
    for (const std::string form : {"generic", "sse2", "avx2", "avx512"})
    {
        const ProgramRun run = lightness({"--isa", form, "--formula", "luminosity"});
        if (kernels["available"][form].get<bool>())
        {
            ASSERT_EQ(run.exitCode, 0) << run.err;
            EXPECT_EQ(kernels["rows"]["LightnessImgLvl3"][form], 11) << form;
            const std::uint8_t fused = form == "avx512" ? 102 : 103;
            EXPECT_EQ(readSamples<std::uint8_t>(), (std::vector<std::uint8_t>{fused, 19})) << form;
        }
        else
        {
            EXPECT_EQ(run.exitCode, 1);
            EXPECT_TRUE(contains(run.err, "this machine cannot run " + form)) << run.err;
        }
    }
    EXPECT_EQ(kernels["rows"]["LightnessImgLvl3"]["fma3"], 0);
}

TEST_F(LightnessVerb, runsAvxOnFloatsAlone)
{
    const Json kernels = Json::parse(runProgram({"kernels", "--json"}).out);
    if (!kernels["available"]["avx"].get<bool>())
    {
        GTEST_SKIP() << "this computer has no avx";
    }
    EXPECT_EQ(kernels["rows"]["LightnessImgLvl3"]["avx"], 1);
    ProgramRun run = lightness({"--isa", "avx"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(countLines(run.err), 1U) << run.err;
    EXPECT_TRUE(contains(run.err, "u8") && contains(run.err, "AVX")) << run.err;
    EXPECT_EQ(m_folder.getNames(), (std::vector<std::string>{"in.tif"}));

    writeRow<float>(m_input, ElementType::eF32, 3, {648161.0F, 56446.0F, 299103.0F});
    run = lightness({"--isa", "avx", "--formula", "luminosity"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(readSamples<float>(), (std::vector<float>{0x1.821e14p+17F})); // 0x48410f0a
    run = lightness({"--isa", "avx", "--formula", "lightness"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(readSamples<float>(), (std::vector<float>{352303.5F}));
}

TEST_F(LightnessVerb, helpsWithExamples)
{
    const ProgramRun run = runProgram({"lightness", "--help"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(contains(run.out, "Examples:\n  kovis-color lightness ")) << run.out;
    EXPECT_TRUE(contains(run.out, "--formula")) << run.out;
    EXPECT_TRUE(contains(runProgram({"--help"}).out, "lightness")) << run.out;
}
} // namespace kovis::tool::test
