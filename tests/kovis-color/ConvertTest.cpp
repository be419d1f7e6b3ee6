// What convert makes of pictures.

#include "kovis-color/ProgramFixture.h"

#include <nlohmann/json.hpp>

#include <limits>

namespace kovis::tool::test
{
namespace
{
using Names = std::vector<std::string>;
using Json = nlohmann::json;
} // namespace

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
    EXPECT_TRUE(contains(run.err, "S becomes 0 or 1")) << run.err;
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
        ASSERT_EQ(run.exitCode, 0) << run.err;
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
    EXPECT_TRUE(contains(json["saturation"], "S becomes 0 or 1"));
    EXPECT_GE(json["seconds"]["convert"].get<double>(), 0.0);
}
} // namespace kovis::tool::test
