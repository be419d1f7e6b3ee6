#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"
#include "KOVIS/KOVISUtil/DynamicObjectFactory.h"
#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl1.h"
#include "KOVISIPLColor/archive/ArchivedRuns.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <functional>
#include <limits>

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

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

/// Names a place in the archive: a section, or that none was reached.
bool namesPlace(const std::string& refusal)
{
    return contains(refusal, "section \"") || contains(refusal, "the outermost level");
}

ordered_json makeArchive()
{
    return ordered_json::parse(
        writeObjects({makeConversion(image::eCGT_User, {0.5F, -2.0F}), makeLightness(imaproc::attr::eLT_Lightness),
                      boost::make_shared<AppendColorChannelImgLvl1>()}));
}

/// Calls `visit` with every value of a JSON text, which it may change for the length of the call, and the key that it stands at,
/// alone or in a list; empty for sections.
void visitValues(ordered_json& value, const std::string& key, const std::function<void(ordered_json&, const std::string&)>& visit)
{
    visit(value, key);
    if (value.is_object())
    {
        for (auto part = value.begin(); part != value.end(); ++part)
        {
            visitValues(part.value(), part.key(), visit);
        }
    }
    else if (value.is_array())
    {
        for (ordered_json& part : value)
        {
            visitValues(part, key == "sections" ? std::string() : key, visit);
        }
    }
}

/// Calls `visit` with every object of a JSON text, which it may change for the length of the call, and with each of its keys.
void visitKeys(ordered_json& archive, const std::function<void(ordered_json&, const std::string&)>& visit)
{
    visitValues(archive, std::string(),
                [&visit](ordered_json& value, const std::string&)
                {
                    const ordered_json kept = value;
                    for (auto part = kept.begin(); kept.is_object() && part != kept.end(); ++part)
                    {
                        visit(value, part.key());
                        value = kept;
                    }
                });
}

TEST(HostileProcessor, IsRefusedCutAtEveryByte)
{
    const std::string text = makeArchive().dump();
    ASSERT_EQ(getRefusal(text), "");
    long depth = 0; // no text of this archive has a brace
    for (std::size_t length = 0; length < text.size(); ++length)
    {
        const std::string refusal = getRefusal(text.substr(0, length));
        EXPECT_TRUE(contains(refusal, depth > 0 ? "section \"" : "the outermost level")) << length << " " << refusal;
        depth += text[length] == '{' ? 1 : text[length] == '}' ? -1 : 0;
    }
    EXPECT_EQ(depth, 0);
}

TEST(HostileProcessor, IsRefusedWithAnyValueOfAnotherKind)
{
    ordered_json archive = makeArchive();
    int nbSwapped = 0;
    int nbFractions = 0;
    visitValues(archive, std::string(),
                [&](ordered_json& value, const std::string& key)
                {
                    const ordered_json kept = value;
                    for (const char* const text : {"null", "true", "7", "-7", "1.5", "\"text\"", "[]", "[1]", "{}", "{\"a\": 1}"})
                    {
                        const ordered_json other = ordered_json::parse(text);
                        const bool bFraction = kept.is_number_integer() && other.is_number_float();
                        const bool bOther =
                            bFraction || !(other.type() == kept.type() || (other.is_number() && kept.is_number()));
                        value = other;
                        const std::string refusal = getRefusal(archive.dump());
                        if (bOther)
                        {
                            EXPECT_TRUE(contains(refusal, key.empty() ? "" : "key \"" + key + '"') && namesPlace(refusal))
                                << archive.dump() << "\n"
                                << refusal;
                            ++nbSwapped;
                            nbFractions += bFraction ? 1 : 0;
                        }
                        else if (!refusal.empty())
                        {
                            EXPECT_TRUE(namesPlace(refusal) || contains(refusal, "newer than version")) << refusal;
                        }
                    }
                    value = kept;
                });
    EXPECT_GT(nbSwapped, 200);
    EXPECT_EQ(nbFractions, 5); // target, formula, and three versions
    EXPECT_EQ(getRefusal(archive.dump()), "");
}

TEST(HostileProcessor, IsRefusedWithAnyKeyMissing)
{
    ordered_json archive = makeArchive();
    int nbErased = 0;
    visitKeys(archive,
              [&](ordered_json& object, const std::string& key)
              {
                  object.erase(key);
                  const std::string refusal = getRefusal(archive.dump());
                  // without its items a section has none of their keys; without its sections it ends too early
                  const std::string missing = key == "sections" ? "no further section at section \""
                                              : key == "items"  ? "key \""
                                                                : "key \"" + key + '"';
                  EXPECT_TRUE(contains(refusal, missing) && namesPlace(refusal)) << archive.dump() << "\n" << refusal;
                  ++nbErased;
              });
    EXPECT_GT(nbErased, 20);
}

TEST(HostileProcessor, IsRefusedWithAnyKeyDoubled)
{
    ordered_json archive = makeArchive();
    int nbDoubled = 0;
    visitKeys(archive,
              [&](ordered_json& object, const std::string& key)
              {
                  object["another"] = object[key];
                  std::string text = archive.dump();
                  text.replace(text.find("\"another\""), 9, '"' + key + '"');
                  EXPECT_TRUE(contains(getRefusal(text), ", key \"" + key + "\": the key stands there twice")) << text;
                  ++nbDoubled;
              });
    EXPECT_GT(nbDoubled, 20);
}

TEST(HostileProcessor, WithoutRulesIsStoppedByThoseOfTheNextLevel)
{
    const auto read = [](const boost::shared_ptr<BaseSerializationObject>& object)
    {
        std::string text = writeObjects({object});
        const std::string rules = "\"rules\": true";
        text.replace(text.find(rules), rules.size(), "\"rules\": false");
        return readObjects(text).at(0);
    };
    const ImagePtr input = makeFilledImage<unsigned char>(37, 5, image::eCGT_Rgb, 1);
    const ImagePtr smaller = makeFilledImage<unsigned char>(36, 5, image::eCGT_Rgb, 1);
    const auto conversion = boost::dynamic_pointer_cast<ColorConvertImgLvl1>(read(makeConversion(image::eCGT_HSV)));
    EXPECT_FALSE(conversion->getRule());
    conversion->set<imaproc::attr::InColorImg>(input);
    conversion->set<imaproc::attr::OutColorImg>(makeFilledImage<float>(36, 5, image::eCGT_HSV, 0.0F));
    EXPECT_ANY_THROW(processor::executeSyncRun(conversion));
    const auto matrix = boost::dynamic_pointer_cast<ColorConvertImgLvl1>(read(makeConversion(image::eCGT_User, {1.0F, 2.0F})));
    matrix->set<imaproc::attr::InColorImg>(input);
    matrix->set<imaproc::attr::OutColorImg>(image::createImageUser2d(37, 5, 2, image::eIBT_Real));
    EXPECT_ANY_THROW(processor::executeSyncRun(matrix));
    const auto unset = boost::make_shared<AppendColorChannelImgLvl1>();
    unset->init();
    const auto append = boost::dynamic_pointer_cast<AppendColorChannelImgLvl1>(read(unset));
    append->set<imaproc::attr::InImg1>(input);
    append->set<imaproc::attr::InImg2>(smaller);
    EXPECT_ANY_THROW(processor::executeSyncRun(append));
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

/// What the reader says of a number at a key of the section of an attribute of a processor.
std::string describeNoEnumerator(const std::string& attribute, const std::string& key, int number, const std::string& allowed)
{
    return "The archive does not fit at section \"object/kovis::processor::BaseProcessor/" + attribute + "\", key \"" + key +
           "\": " + std::to_string(number) + " is none of the numbers " + allowed + " that may stand there";
}

// All of them are written: who sets such a number has it in the archive, and is told by the reader.
TEST(HostileProcessor, IsRefusedWithNumbersThatAreNoEnumerators)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    for (const int number : {lowest, -1, 11, 99, highest})
    {
        EXPECT_EQ(getRefusal(writeObjects({makeConversion(number)})),
                  describeNoEnumerator("InColorConversionTransform", "target", number, "0 to 10"));
    }
    for (const int number : {lowest, -1, 3, 7, highest})
    {
        EXPECT_EQ(getRefusal(writeObjects({makeLightness(static_cast<imaproc::attr::eLightnessType>(number))})),
                  describeNoEnumerator("InLightnessType", "value", number, "0 to 2"));
    }
    for (const int number : {lowest, -1, 0, 12, highest})
    {
        const auto conversion = boost::make_shared<imaproc::util::ConvertImgLvl1>();
        conversion->init();
        conversion->set<imaproc::attr::InConvertImageBufferType>(static_cast<image::eImageBufferType>(number));
        EXPECT_EQ(getRefusal(writeObjects({conversion})),
                  describeNoEnumerator("InConvertImageBufferType", "value", number, "1 to 11"));
    }
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
