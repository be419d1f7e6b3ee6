#include "KOVIS/KOVISUtil/DynamicObjectFactory.h"
#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl1.h"
#include "KOVISIPLColor/archive/ArchivedRuns.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <unistd.h>

namespace kovis::test
{
namespace
{
using imaproc::attr::ColorConversionTransform;

/// The transform that a read conversion holds.
boost::shared_ptr<const ColorConversionTransform> getTransform(const boost::shared_ptr<BaseSerializationObject>& object)
{
    const auto conversion = boost::dynamic_pointer_cast<ColorConvertImgLvl1>(object);
    const auto attribute = boost::dynamic_pointer_cast<imaproc::attr::InColorConversionTransform>(
        conversion->getAttribute("InColorConversionTransform"));
    return attribute->getStorage();
}

TEST(ProcessorRoundTrip, GivesTheSameBytesInAnotherProcess)
{
    const Objects objects = makeTunedProcessors();
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / ("kovis-archive-" + std::to_string(getpid()));
    std::filesystem::create_directory(folder);
    {
        std::ofstream file(folder / "archive.json", std::ios::binary);
        file << writeObjects(objects);
    }
    const std::string command = std::string("\"") + KOVIS_ARCHIVE_CHILD + "\" \"" + (folder / "archive.json").string() + "\" \"" +
                                (folder / "results").string() + "\"";
    EXPECT_EQ(std::system(command.c_str()), 0);
    std::ostringstream read;
    read << std::ifstream(folder / "results", std::ios::binary).rdbuf();
    std::filesystem::remove_all(folder);

    std::string expected;
    for (const auto& object : objects)
    {
        const std::vector<unsigned char> bytes = run(object);
        expected.append(bytes.begin(), bytes.end());
    }
    // HSV, two user channels and Lab are of float; two lightnesses and six appended channels of bytes
    EXPECT_EQ(expected.size(), 37U * 5U * (3 * 4 + 2 * 4 + 1 + 6 + 3 * 4 + 1));
    EXPECT_TRUE(read.str() == expected);
}

TEST(ProcessorRoundTrip, KeepsTransformsToTheBit)
{
    using Limits = std::numeric_limits<float>;
    const std::vector<float> matrix = {-0.0F,
                                       Limits::denorm_min(),
                                       Limits::max(),
                                       -Limits::infinity(),
                                       std::bit_cast<float>(0x7fc54321U),
                                       std::bit_cast<float>(0xff800001U),
                                       0.1F};
    for (int target = 0; target <= 10; ++target)
    {
        const auto read = getTransform(readObjects(writeObjects({makeConversion(target, matrix)})).at(0));
        EXPECT_EQ(read->getTarget(), target);
        ASSERT_EQ(read->getMatrix().size(), matrix.size());
        for (std::size_t i = 0; i < matrix.size(); ++i)
        {
            EXPECT_EQ(std::bit_cast<std::uint32_t>(read->getMatrix()[i]), std::bit_cast<std::uint32_t>(matrix[i])) << i;
        }
    }
}

TEST(ProcessorRoundTrip, KeepsSeveralClassesInOrder)
{
    const Objects objects = makeTunedProcessors();
    const Objects read = readObjects(writeObjects(objects));
    ASSERT_EQ(read.size(), objects.size());
    for (std::size_t i = 0; i < read.size(); ++i)
    {
        EXPECT_EQ(read[i]->getClassName(), objects[i]->getClassName());
        EXPECT_TRUE(run(read[i]) == run(objects[i])) << i;
    }
    EXPECT_EQ(writeObjects(read), writeObjects(objects));
}

TEST(ProcessorRoundTrip, ReadsObjectsMadeByNameWithoutTheObjectSection)
{
    std::ostringstream output;
    JsonOArchive archive(output);
    const auto written = makeLightness(imaproc::attr::eLT_Luminosity);
    ASSERT_TRUE(written->write(archive));
    archive.finish();

    std::istringstream input(output.str());
    JsonIArchive reader(input);
    const auto object = boost::dynamic_pointer_cast<BaseSerializationObject>(
        DynamicObjectFactory::getInstance().createShared("kovis::imaproc::color::LightnessImgLvl1"));
    ASSERT_TRUE(object->read(reader));
    EXPECT_TRUE(boost::dynamic_pointer_cast<LightnessImgLvl1>(object)->isInitialised());
    EXPECT_TRUE(run(object) == run(written));
}

TEST(ProcessorRoundTrip, NeverKeepsImages)
{
    const auto conversion = makeConversion(image::eCGT_HSV);
    run(conversion);
    ASSERT_TRUE(conversion->getStorage<imaproc::attr::OutColorImg>());
    EXPECT_EQ(writeObjects({conversion}), writeObjects({makeConversion(image::eCGT_HSV)}));
    const auto read = boost::dynamic_pointer_cast<ColorConvertImgLvl1>(readObjects(writeObjects({conversion})).at(0));
    EXPECT_FALSE(read->getAttribute("InColorImg")->isInitialised());
    EXPECT_FALSE(read->getAttribute("OutColorImg")->isInitialised());
}

TEST(ProcessorRoundTrip, KeepsWhatIsNotSetAndTheRulePolicy)
{
    const auto unset = boost::make_shared<ColorConvertImgLvl1>();
    unset->init(processor::ePRP_NoRules);
    const auto read = boost::dynamic_pointer_cast<ColorConvertImgLvl1>(readObjects(writeObjects({unset})).at(0));
    EXPECT_TRUE(read->isInitialised());
    EXPECT_FALSE(read->getRule());
    EXPECT_FALSE(read->getAttribute("InColorConversionTransform")->isInitialised());

    const auto raw = boost::make_shared<LightnessImgLvl1>();
    const auto readRaw = boost::dynamic_pointer_cast<LightnessImgLvl1>(readObjects(writeObjects({raw})).at(0));
    EXPECT_TRUE(readRaw->isInitialised());
    EXPECT_TRUE(readRaw->getRule());
    EXPECT_FALSE(readRaw->getAttribute("InLightnessType")->isInitialised());

    const auto null = makeConversion(image::eCGT_HSV);
    null->set<imaproc::attr::InColorConversionTransform>(imaproc::attr::InColorConversionTransform::StorageType());
    EXPECT_FALSE(getTransform(readObjects(writeObjects({null})).at(0)));
}

TEST(ProcessorRoundTrip, KeepsEveryNumberOfTheEnumerations)
{
    for (int number = 0; number <= 2; ++number)
    {
        const auto lightness = makeLightness(static_cast<imaproc::attr::eLightnessType>(number));
        const auto readLightness = boost::dynamic_pointer_cast<LightnessImgLvl1>(readObjects(writeObjects({lightness})).at(0));
        EXPECT_EQ(dynamic_cast<const imaproc::attr::InLightnessType&>(*readLightness->getAttribute("InLightnessType")).getValue(),
                  number);
    }
    for (int number = 1; number <= 11; ++number)
    {
        const auto conversion = boost::make_shared<imaproc::util::ConvertImgLvl1>();
        conversion->init();
        conversion->set<imaproc::attr::InConvertImageBufferType>(static_cast<image::eImageBufferType>(number));
        const auto read =
            boost::dynamic_pointer_cast<imaproc::util::ConvertImgLvl1>(readObjects(writeObjects({conversion})).at(0));
        EXPECT_EQ(dynamic_cast<const imaproc::attr::InConvertImageBufferType&>(*read->getAttribute("InConvertImageBufferType"))
                      .getValue(),
                  number);
    }
}

TEST(ProcessorRoundTrip, ReplacesTheValuesOfTheReader)
{
    std::ostringstream output;
    JsonOArchive archive(output);
    ASSERT_TRUE(makeConversion(image::eCGT_HSV)->write(archive));
    archive.finish();
    std::istringstream input(output.str());
    JsonIArchive reader(input);
    const auto target = makeConversion(image::eCGT_User, {1.0F});
    target->set<imaproc::attr::InColorImg>(makeFilledImage<float>(2, 2, image::eCGT_Rgb, 1.0F));
    ASSERT_TRUE(target->read(reader));
    EXPECT_EQ(getTransform(target)->getTarget(), image::eCGT_HSV);
    EXPECT_TRUE(getTransform(target)->getMatrix().empty());
    EXPECT_FALSE(target->getAttribute("InColorImg")->isInitialised());
}

TEST(ProcessorRoundTrip, HasTheTextThatTheDocumentationTells)
{
    EXPECT_EQ(nlohmann::json::parse(writeObjects({makeConversion(image::eCGT_User, {1.0F, -0.5F})})),
              nlohmann::json::parse(R"([{"section": "object",
                  "items": {"class": "kovis::imaproc::color::ColorConvertImgLvl1"},
                  "sections": [
                      {"section": "kovis::processor::BaseProcessor",
                       "items": {"class": "kovis::imaproc::color::ColorConvertImgLvl1", "initialised": true, "rules": true},
                       "sections": [{"section": "InColorConversionTransform",
                                     "items": {"set": true, "target": 10, "matrix": [1.0, -0.5]}}]},
                      {"section": "kovis::imaproc::color::ColorConvertImgLvl1", "items": {"version": 1}}]}])"));
}
} // namespace
} // namespace kovis::test
