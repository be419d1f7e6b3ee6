#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"
#include "KOVIS/KOVISUtil/DynamicObjectFactory.h"
#include "KOVISIPLColor/archive/ArchivedRuns.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <functional>

namespace kovis::test
{
namespace
{
using nlohmann::ordered_json;

/// What reading the objects of a text says; empty if nothing. Anything but KOVISSerializationException is a failure.
std::string getRefusal(const std::string& text)
{
    try
    {
        readObjects(text);
        return std::string();
    }
    catch (const KOVISSerializationException& e)
    {
        return e.what();
    }
    catch (const std::exception& e)
    {
        ADD_FAILURE() << e.what() << "\n" << text;
        return std::string();
    }
}

/// Names a place in the archive: a section, or that none was reached.
bool namesPlace(const std::string& refusal)
{
    return refusal.find("section \"") != std::string::npos || refusal.find("the outermost level") != std::string::npos;
}

ordered_json makeArchive()
{
    return ordered_json::parse(
        writeObjects({makeConversion(image::eCGT_User, {0.5F, -2.0F}), makeLightness(imaproc::attr::eLT_Lightness),
                      boost::make_shared<AppendColorChannelImgLvl1>()}));
}

/// Calls `visit` with every value of a JSON text, which it may change for the length of the call.
void visitValues(ordered_json& value, const std::function<void(ordered_json&)>& visit)
{
    visit(value);
    for (ordered_json& part : value)
    {
        if (value.is_structured())
        {
            visitValues(part, visit);
        }
    }
}

TEST(HostileProcessor, IsRefusedCutAtEveryByte)
{
    const std::string text = makeArchive().dump();
    ASSERT_EQ(getRefusal(text), "");
    for (std::size_t length = 0; length < text.size(); ++length)
    {
        EXPECT_TRUE(namesPlace(getRefusal(text.substr(0, length)))) << length;
    }
}

TEST(HostileProcessor, IsRefusedWithAnyValueOfAnotherKind)
{
    ordered_json archive = makeArchive();
    int nbSwapped = 0;
    visitValues(archive,
                [&](ordered_json& value)
                {
                    const ordered_json kept = value;
                    for (const char* const text : {"null", "true", "7", "-7", "1.5", "\"text\"", "[]", "[1]", "{}", "{\"a\": 1}"})
                    {
                        const ordered_json other = ordered_json::parse(text);
                        const bool bSameKind = other.type() == kept.type() || (other.is_number() && kept.is_number());
                        value = other;
                        const std::string refusal = getRefusal(archive.dump());
                        if (!bSameKind)
                        {
                            EXPECT_TRUE(namesPlace(refusal)) << archive.dump() << "\n" << refusal;
                            ++nbSwapped;
                        }
                    }
                    value = kept;
                });
    EXPECT_GT(nbSwapped, 200);
    EXPECT_EQ(getRefusal(archive.dump()), "");
}

TEST(HostileProcessor, IsRefusedWithAnyKeyMissing)
{
    ordered_json archive = makeArchive();
    int nbErased = 0;
    visitValues(archive,
                [&](ordered_json& value)
                {
                    if (!value.is_object())
                    {
                        return;
                    }
                    const ordered_json kept = value;
                    for (const auto& [key, part] : kept.items())
                    {
                        value.erase(key);
                        EXPECT_TRUE(namesPlace(getRefusal(archive.dump()))) << archive.dump();
                        value = kept;
                        ++nbErased;
                    }
                });
    EXPECT_GT(nbErased, 20);
}

TEST(HostileProcessor, IsRefusedWithNumbersOutOfRange)
{
    const std::string text = makeArchive().dump();
    const auto replace = [&text](const std::string& part, const std::string& other)
    {
        std::string changed(text);
        const std::size_t place = changed.find(part);
        EXPECT_NE(place, std::string::npos) << part;
        return changed.replace(place, part.size(), other);
    };
    const std::string transform = "section \"object/kovis::processor::BaseProcessor/InColorConversionTransform\", key ";
    for (const std::string number : {"2147483648", "-2147483649", "18446744073709551616", "1e400"})
    {
        EXPECT_NE(getRefusal(replace("\"target\":10", "\"target\":" + number)).find(transform + "\"target\""), std::string::npos);
    }
    for (const std::string number : {"3.5e38", "-1e39", "1e400"})
    {
        EXPECT_NE(getRefusal(replace("[0.5,", "[" + number + ",")).find(transform + "\"matrix\""), std::string::npos);
    }
    const std::string version = "section \"object/kovis::imaproc::color::ColorConvertImgLvl1\", key \"version\"";
    for (const std::string number : {"-1", "4294967296", "1.0"})
    {
        EXPECT_NE(getRefusal(replace("\"version\":1", "\"version\":" + number)).find(version), std::string::npos);
    }
    std::string zeros = "[0";
    for (int i = 0; i < 10000000; ++i)
    {
        zeros += ",0";
    }
    EXPECT_NE(getRefusal(replace("[0.5", zeros)).find(transform + "\"matrix\": more than 1048576 numbers"), std::string::npos);
    EXPECT_NE(getRefusal(replace("[0.5", std::string(100000, '['))).find(transform + "\"matrix\""), std::string::npos);
}

TEST(HostileProcessor, IsRefusedWithAClassThatNobodyKnows)
{
    const auto make = [](const std::string& name)
    { return "[{\"section\": \"object\", \"items\": {\"class\": \"" + name + "\"}}]"; };
    EXPECT_EQ(getRefusal(make("kovis::Nobody")),
              "The archive needs class \"kovis::Nobody\" at section \"object\", key \"class\", which is not known here: load the "
              "library that it belongs to");
    EXPECT_NE(getRefusal(make("")).find("section \"object\", key \"class\""), std::string::npos);
    EXPECT_NE(getRefusal(make(std::string(4000, 'x'))).find("section \"object\", key \"class\""), std::string::npos);
    // known, but not to the processor that the object's section names
    EXPECT_NE(getRefusal(make("kovis::imaproc::color::LightnessImgLvl1"))
                  .find("no further section at section \"object\" where section \"kovis::processor::BaseProcessor\""),
              std::string::npos);
}

TEST(HostileProcessor, QuotesAClassNameInOneShortLine)
{
    const std::string name = "a\\n\\u001b[2J" + std::string(4000, 'b');
    std::string other = makeArchive().dump();
    const std::string known = "\"kovis::imaproc::color::ColorConvertImgLvl1\",\"initialised\"";
    ASSERT_NE(other.find(known), std::string::npos);
    other.replace(other.find(known), known.size(), '"' + name + "\",\"initialised\"");
    for (const std::string& text : {"[{\"section\": \"object\", \"items\": {\"class\": \"" + name + "\"}}]", other})
    {
        const std::string refusal = getRefusal(text);
        EXPECT_NE(refusal.find("class \"a??[2Jbbb"), std::string::npos) << refusal;
        EXPECT_LT(refusal.size(), 500U);
        EXPECT_TRUE(std::all_of(refusal.begin(), refusal.end(), [](char letter) { return letter >= ' ' && letter <= '~'; }));
    }
}

/// A class that the factory knows and archives do not.
class Unkept : public BaseDynamicObject
{
public:
    const std::string& getClassName() const override
    {
        static const std::string g_name("kovis::test::Unkept");
        return g_name;
    }
    BaseDynamicObject* createNew() const override { return new Unkept; }
    DynamicObjectPtr createShared() const override { return boost::make_shared<Unkept>(); }
    bool hasCopySupport() const override { return false; }
    BaseDynamicObject* duplicate() const override { return nullptr; }
    DynamicObjectPtr duplicateShared() const override { return DynamicObjectPtr(); }
    void copy(const BaseDynamicObject&) override {}
};

TEST(HostileProcessor, IsRefusedWithAClassThatIsNotKept)
{
    DynamicObjectFactory& factory = DynamicObjectFactory::getInstance();
    ASSERT_TRUE(factory.registerClass(
        "kovis::test::Unkept", []() -> BaseDynamicObject* { return new Unkept; },
        []() -> DynamicObjectPtr { return boost::make_shared<Unkept>(); }));
    EXPECT_EQ(
        getRefusal("[{\"section\": \"object\", \"items\": {\"class\": \"kovis::test::Unkept\"}}]"),
        "The archive names class \"kovis::test::Unkept\" at section \"object\", key \"class\", whose objects are not kept in "
        "archives");
    ASSERT_TRUE(factory.unRegisterClass("kovis::test::Unkept"));
}
} // namespace
} // namespace kovis::test
