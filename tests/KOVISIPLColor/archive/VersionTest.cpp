#include "KOVIS/KOVISBaseProcessing/BaseProcessor.h"
#include "KOVIS/KOVISSerialization/JsonIArchive.h"
#include "KOVIS/KOVISSerialization/JsonOArchive.h"
#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"
#include "KOVIS/KOVISUtil/DynamicObjectFactory.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLAttributes/InLightnessType.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl1.h"
#include "support/RecordingAppender.h"

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

// What every processor class adds to an archive. The classes are those that the factory knows: none is left out.

namespace kovis::imaproc::color
{
namespace
{
const std::string g_namespace = "kovis::imaproc::color::";

boost::shared_ptr<processor::BaseProcessor> makeProcessor(const std::string& className)
{
    const auto made =
        boost::dynamic_pointer_cast<processor::BaseProcessor>(DynamicObjectFactory::getInstance().createShared(className));
    made->init();
    // Plain data, so that it can be seen how far a read came.
    if (const auto transform =
            boost::dynamic_pointer_cast<attr::InColorConversionTransform>(made->getAttribute("InColorConversionTransform")))
    {
        transform->init(attr::createColorConversionTransform(image::eCGT_HLS));
    }
    if (const auto formula = boost::dynamic_pointer_cast<attr::InLightnessType>(made->getAttribute("InLightnessType")))
    {
        formula->setValue(attr::eLT_Luminosity);
    }
    return made;
}

std::string write(const std::string& className, int nbObjects)
{
    std::ostringstream stream;
    JsonOArchive archive(stream);
    for (int i = 0; i < nbObjects; ++i)
    {
        EXPECT_TRUE(makeProcessor(className)->write(archive));
    }
    archive.finish();
    return stream.str();
}

std::size_t count(const std::string& text, const std::string& part)
{
    std::size_t nbFound = 0;
    for (std::size_t place = text.find(part); place != std::string::npos; place = text.find(part, place + 1))
    {
        ++nbFound;
    }
    return nbFound;
}

std::string replace(std::string text, const std::string& part, const std::string& other)
{
    const std::size_t place = text.find(part);
    EXPECT_NE(place, std::string::npos);
    return text.replace(place, part.size(), other);
}

/// The names of the module's processor classes.
std::vector<std::string> getClassNames()
{
    ColorConvertImgLvl1::getVersion(); // needs the module, which enters the classes
    std::vector<std::string> names;
    for (const std::string& name : DynamicObjectFactory::getInstance().getClassNameColl())
    {
        if (name.compare(0, g_namespace.size(), g_namespace) == 0)
        {
            names.push_back(name);
        }
    }
    return names;
}

class ProcessorVersion : public testing::TestWithParam<std::string>
{
protected:
    static std::string getSourcePath()
    {
        const std::string name = GetParam().substr(g_namespace.size());
        const std::string folder = name.substr(0, name.find("Img") + 3);
        return "KOVISIPL/KOVISIPLColor/Processor/" + folder + "/" + name;
    }
    const std::string m_version = "\"section\": \"" + GetParam() + "\",\n \"items\": {\n  \"version\": 1\n }";
};

TEST_P(ProcessorVersion, StandsOnceForTwoObjectsOfAClassBehindTheFirstOnesBase)
{
    const std::string text = write(GetParam(), 2);
    EXPECT_EQ(count(text, "\"version\""), 1U);
    EXPECT_EQ(count(text, "\"kovis::processor::BaseProcessor\""), 2U);
    const std::size_t version = text.find(m_version);
    ASSERT_NE(version, std::string::npos) << text;
    EXPECT_LT(text.find("\"kovis::processor::BaseProcessor\""), version);
    EXPECT_GT(text.rfind("\"kovis::processor::BaseProcessor\""), version);

    std::istringstream stream(text);
    JsonIArchive archive(stream);
    EXPECT_FALSE(archive.isClassVersionRegistred(GetParam()));
    EXPECT_TRUE(makeProcessor(GetParam())->read(archive));
    EXPECT_TRUE(archive.isClassVersionRegistred(GetParam()));
    EXPECT_EQ(archive.getRegisterClassVersion(GetParam()), 1U);
    EXPECT_TRUE(makeProcessor(GetParam())->read(archive));
    EXPECT_FALSE(archive.hasNextSection());
}

TEST_P(ProcessorVersion, OfTheFutureIsRefused)
{
    for (const std::string version : {"2", "4294967295"})
    {
        std::istringstream stream(replace(write(GetParam(), 1), "\"version\": 1", "\"version\": " + version));
        JsonIArchive archive(stream);
        const auto read =
            boost::dynamic_pointer_cast<processor::BaseProcessor>(DynamicObjectFactory::getInstance().createShared(GetParam()));
        const test::Recording recording(getKOVISSerializationLogger());
        try
        {
            read->read(archive);
            FAIL() << "nothing was thrown";
        }
        catch (const KOVISSerializationException& e)
        {
            EXPECT_EQ(e.getMessage(), "The archive holds version " + version +
                                          ", newer than version 1 of this library, of class " + GetParam() +
                                          ": read it with a newer library");
            EXPECT_EQ(e.getFunction(), "virtual kovis::BoolResult " + GetParam() + "::read(kovis::BaseIArchive&)");
            EXPECT_EQ(e.getFile(), getSourcePath());
            ASSERT_EQ(recording.getEvents().size(), 1U);
            EXPECT_EQ(recording.getEvents()[0].m_level, 40000);
            EXPECT_EQ(recording.getEvents()[0].m_message, e.getMessage());
            EXPECT_EQ(recording.getEvents()[0].m_file, getSourcePath());
        }
        EXPECT_FALSE(archive.isClassVersionRegistred(GetParam()));
        // The section is closed, and the object is as its base left it.
        EXPECT_FALSE(archive.hasNextSection());
        EXPECT_EQ(archive.getPlace(""), "the outermost level");
        EXPECT_TRUE(read->isInitialised());
        if (const auto attribute = read->getAttribute("InColorConversionTransform"))
        {
            const auto& transform = dynamic_cast<const attr::InColorConversionTransform&>(*attribute);
            EXPECT_EQ(transform.getDataItemNode().getTarget(), image::eCGT_HLS);
        }
        if (const auto attribute = read->getAttribute("InLightnessType"))
        {
            EXPECT_EQ(dynamic_cast<const attr::InLightnessType&>(*attribute).getValue(), attr::eLT_Luminosity);
        }
    }
}

TEST_P(ProcessorVersion, ZeroIsReadAsOne)
{
    std::istringstream stream(replace(write(GetParam(), 1), "\"version\": 1", "\"version\": 0"));
    JsonIArchive archive(stream);
    EXPECT_TRUE(makeProcessor(GetParam())->read(archive));
    EXPECT_EQ(archive.getRegisterClassVersion(GetParam()), 0U);
}

TEST_P(ProcessorVersion, ThatIsMissingIsRefusedWithSectionAndKey)
{
    std::istringstream stream(replace(write(GetParam(), 1), "\"version\": 1", "\"wersion\": 1"));
    JsonIArchive archive(stream);
    try
    {
        makeProcessor(GetParam())->read(archive);
        FAIL() << "nothing was thrown";
    }
    catch (const KOVISSerializationException& e)
    {
        EXPECT_EQ(e.getMessage(), "The archive has nothing at section \"" + GetParam() +
                                      "\", key \"version\": it was written by something else, or changed");
    }
}

TEST_P(ProcessorVersion, OfAnotherClassIsRefused)
{
    for (const std::string& other : getClassNames())
    {
        if (other == GetParam())
        {
            continue;
        }
        std::istringstream stream(write(other, 1));
        JsonIArchive archive(stream);
        try
        {
            makeProcessor(GetParam())->read(archive);
            FAIL() << "nothing was thrown";
        }
        catch (const KOVISSerializationException& e)
        {
            EXPECT_EQ(e.getMessage(), "The archive does not fit at section \"kovis::processor::BaseProcessor\", key \"class\": a "
                                      "processor of class \"" +
                                          other + "\" was written here, which class " + GetParam() +
                                          " cannot read: make one of that class");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllClasses, ProcessorVersion, testing::ValuesIn(getClassNames()),
                         [](const auto& parameter) { return parameter.param.substr(g_namespace.size()); });

TEST(ProcessorVersions, AreTestedForEveryClass)
{
    const std::vector<std::string> names = getClassNames();
    for (const std::string algorithm : {"ColorConvertImg", "LightnessImg", "AppendColorChannelImg"})
    {
        for (const std::string level : {"Lvl1", "Lvl2", "Lvl3"})
        {
            EXPECT_EQ(std::count(names.begin(), names.end(), g_namespace + algorithm + level), 1) << algorithm << level;
        }
    }
    EXPECT_EQ(std::count(names.begin(), names.end(), g_namespace + "AppendColorChannelImgGpuLvl3"), 1);
    EXPECT_EQ(names.size(), 10U);
}
} // namespace
} // namespace kovis::imaproc::color
