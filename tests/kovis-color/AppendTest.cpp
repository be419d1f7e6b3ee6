// What the verb append makes of pictures.

#include "kovis-color/ProgramFixture.h"

#include <nlohmann/json.hpp>

namespace kovis::tool::test
{
namespace
{
using Json = nlohmann::json;

/// m_input is an RGB picture of three pixels, m_grey a grey one of the same size.
class AppendVerb : public Program
{
protected:
    AppendVerb() { writeRow<std::uint8_t>(m_grey, ElementType::eU8, 1, {7, 8, 9}); }

    ProgramRun append(const std::vector<std::string>& inputs, const std::vector<std::string>& options = {}) const
    {
        std::vector<std::string> arguments{"append"};
        arguments.insert(arguments.end(), inputs.begin(), inputs.end());
        arguments.insert(arguments.end(), {"-o", m_output});
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runProgram(arguments);
    }

    /// The samples of the output, pixel after pixel, of one page.
    template <class T>
    std::vector<T> readPixels(std::size_t nbChannels, std::size_t page = 0) const
    {
        const Picture picture = readPicture(m_output);
        EXPECT_EQ(picture.shape.channels, nbChannels);
        std::vector<T> samples;
        for (std::size_t i = 0; i < picture.shape.getPlaneSamples(); ++i)
        {
            for (std::size_t c = 0; c < nbChannels; ++c)
                samples.push_back(picture.getPlane<T>(page, c)[i]);
        }
        return samples;
    }

    /// Refused as misused, in one line with these words, and nothing is written.
    void expectMisuse(const ProgramRun& run, const std::vector<std::string>& words) const
    {
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(countLines(run.err), 1U) << run.err;
        for (const std::string& word : words)
            EXPECT_TRUE(contains(run.err, word)) << word << ": " << run.err;
        for (const std::string& name : m_folder.getNames())
            EXPECT_NE(name, "out.tif");
    }

    const std::string m_grey = m_folder.getPath("grey.tif");
};
} // namespace

TEST_F(AppendVerb, putsTheChannelsOneAfterTheOther)
{
    const ProgramRun run = append({m_input, m_grey});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "kovis-color: " + m_output + ": user u8: 4 channels, 3 + 1\n");
    EXPECT_EQ(readPixels<std::uint8_t>(4), (std::vector<std::uint8_t>{255, 0, 0, 7, 10, 20, 30, 8, 100, 100, 100, 9}));
    ASSERT_EQ(append({m_grey, m_input}).exitCode, 0);
    EXPECT_EQ(readPixels<std::uint8_t>(4), (std::vector<std::uint8_t>{7, 255, 0, 0, 8, 10, 20, 30, 9, 100, 100, 100}));
}

TEST_F(AppendVerb, takesMorePicturesFromLeftToRight)
{
    const std::string third = m_folder.getPath("third.tif");
    writeRow<std::uint8_t>(third, ElementType::eU8, 2, {1, 2, 3, 4, 5, 6});
    const ProgramRun run = append({m_grey, third, m_grey, m_grey}, {"--threads", "2"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_TRUE(contains(run.err, "5 channels, 1 + 2 + 1 + 1")) << run.err;
    EXPECT_EQ(readPixels<std::uint8_t>(5), (std::vector<std::uint8_t>{7, 1, 2, 7, 7, 8, 3, 4, 8, 8, 9, 5, 6, 9, 9}));
}

TEST_F(AppendVerb, keepsTypesAndPages)
{
    writeRow<float>(m_input, ElementType::eF32, 2, {1.5F, -2.5F, 3e30F, 4.0F}, 3);
    writeRow<float>(m_grey, ElementType::eF32, 1, {0.25F, 0.75F}, 3);
    ASSERT_EQ(append({m_input, m_grey}).exitCode, 0);
    for (std::size_t page = 0; page < 3; ++page)
        EXPECT_EQ(readPixels<float>(3, page), (std::vector<float>{1.5F, -2.5F, 0.25F, 3e30F, 4.0F, 0.75F}));
    ASSERT_EQ(append({m_input, m_grey}, {"--type", "i16"}).exitCode, 0);
    EXPECT_EQ(readPixels<std::int16_t>(3, 2), (std::vector<std::int16_t>{2, -3, 0, 32767, 4, 1})); // rounded and saturated
}

TEST_F(AppendVerb, answersAsJson)
{
    const ProgramRun run = append({m_input, m_grey}, {"--json", "--isa", "sse2"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const Json answer = Json::parse(run.out);
    ASSERT_EQ(answer["inputs"].size(), 2U);
    EXPECT_EQ(answer["inputs"][0]["channels"], 3);
    EXPECT_EQ(answer["inputs"][1]["file"], m_grey);
    EXPECT_EQ(answer["output"]["channels"], 4);
    EXPECT_EQ(answer["output"]["space"], "user");
    EXPECT_TRUE(answer["warnings"].empty());
}

TEST_F(AppendVerb, tellsInItsOwnWordsWhatDoesNotFit)
{
    writeRow<std::uint8_t>(m_grey, ElementType::eU8, 1, {7, 8});
    expectMisuse(append({m_input, m_grey}),
                 {m_grey + ": has 2 x 1 pixels on 1 page, but " + m_input + " has 3 x 1 pixels on 1 page", "one size"});
    writeRow<std::uint8_t>(m_grey, ElementType::eU8, 1, {7, 8, 9}, 2);
    expectMisuse(append({m_input, m_grey}), {"3 x 1 pixels on 2 pages"});
    writeRow<std::uint16_t>(m_grey, ElementType::eU16, 1, {7, 8, 9});
    expectMisuse(append({m_input, m_grey}), {m_grey + ": has u16 samples, but " + m_input + " has u8", "convert --type"});
    expectMisuse(append({m_input}), {"only one picture"});
    expectMisuse(append({m_input, m_input}, {"--isa", "fma3"}), {"--isa"});
    EXPECT_EQ(runProgram({"append", m_input, m_grey, "-o", m_grey}).exitCode, 2);
    EXPECT_EQ(append({m_input, m_folder.getPath("none.tif")}).exitCode, 1);
    EXPECT_TRUE(contains(runProgram({"apend", m_input}).err, "did you mean 'append'?"));
    EXPECT_TRUE(contains(runProgram({"append", "--help"}).out, "kovis-color append photo.jpg mask.png -o four.tif"));
}

TEST_F(AppendVerb, refusesChannelsThatTheFormatCannotHold)
{
    const std::string png = m_folder.getPath("out.png");
    const ProgramRun run = runProgram({"append", m_input, m_input, "-o", png});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.err, "kovis-color: " + png + ": PNG cannot hold 6 channel(s); write a .tif instead\n");
    EXPECT_EQ(m_folder.getNames(), (std::vector<std::string>{"grey.tif", "in.tif"}));
}

TEST_F(AppendVerb, saysThatTheLastChannelOfAPngIsReadAsAlpha)
{
    const std::string png = m_folder.getPath("out.png");
    const std::string note = " channel of a PNG will be read as alpha; write a .tif for a channel like the others\n";
    const auto getNotes = [&](const std::vector<std::string>& inputs)
    {
        std::vector<std::string> arguments{"append"};
        arguments.insert(arguments.end(), inputs.begin(), inputs.end());
        arguments.insert(arguments.end(), {"-o", png});
        return runProgram(arguments).err;
    };
    const std::string four = getNotes({m_input, m_grey});
    EXPECT_TRUE(contains(four, "kovis-color: " + png + ": note: the fourth" + note)) << four;
    EXPECT_EQ(countLines(four), 2U) << four;
    EXPECT_TRUE(readPicture(png).hasAlpha);
    EXPECT_TRUE(contains(getNotes({m_grey, m_grey}), "note: the second" + note));
    EXPECT_TRUE(readPicture(png).hasAlpha);
    EXPECT_FALSE(contains(getNotes({m_grey, m_grey, m_grey}), "note: "));
    EXPECT_FALSE(readPicture(png).hasAlpha);
    EXPECT_FALSE(contains(append({m_input, m_grey}).err, "note: "));
    EXPECT_FALSE(readPicture(m_output).hasAlpha);
}

TEST_F(AppendVerb, runsTheInstructionSetThatIsAsked)
{
    if (!Json::parse(runProgram({"kernels", "--json"}).out)["available"]["avx"].get<bool>())
        GTEST_SKIP() << "this processor cannot run avx";
    // There is one kernel of this form alone, for float.
    const ProgramRun run = append({m_input, m_grey}, {"--isa", "avx"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(contains(run.err, "AVX")) << run.err;
    EXPECT_EQ(countLines(run.err), 1U) << run.err;
    EXPECT_EQ(m_folder.getNames(), (std::vector<std::string>{"grey.tif", "in.tif"}));
    writeRow<float>(m_input, ElementType::eF32, 2, {1.5F, -2.5F, 3e30F, 4.0F});
    writeRow<float>(m_grey, ElementType::eF32, 1, {0.25F, 0.75F});
    ASSERT_EQ(append({m_input, m_grey}, {"--isa", "avx"}).exitCode, 0);
    EXPECT_EQ(readPixels<float>(3), (std::vector<float>{1.5F, -2.5F, 0.25F, 3e30F, 4.0F, 0.75F}));
}

TEST_F(AppendVerb, onTheGpuGivesTheSameOrSaysInOneLineThatThereIsNone)
{
    const ProgramRun run = append({m_input, m_grey}, {"--gpu"});
    EXPECT_EQ(countLines(run.err), 1U) << run.err;
    if (run.exitCode == 0)
    {
        EXPECT_TRUE(contains(run.err, "appended on the GPU (")) << run.err;
        const std::vector<std::uint8_t> onGpu = readPixels<std::uint8_t>(4);
        ASSERT_EQ(append({m_input, m_grey}).exitCode, 0);
        EXPECT_EQ(readPixels<std::uint8_t>(4), onGpu);
        return;
    }
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(contains(run.err, "--gpu: there is no usable GPU: ")) << run.err;
    EXPECT_TRUE(contains(run.err, "leave --gpu out")) << run.err;
    for (const std::string& name : m_folder.getNames())
        EXPECT_NE(name, "out.tif");
}

TEST_F(AppendVerb, refusesAnInstructionSetForTheGpu)
{
    expectMisuse(append({m_input, m_grey}, {"--gpu", "--isa", "sse2"}), {"--gpu", "--isa"});
}

} // namespace kovis::tool::test
