#include "KOVIS/KOVISSerialization/JsonIArchive.h"
#include "KOVIS/KOVISSerialization/JsonOArchive.h"
#include "KOVIS/KOVISSerialization/SerializationItem.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfenv>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <vector>

#include <xmmintrin.h>

namespace kovis
{
namespace
{
std::string write(const std::function<void(JsonOArchive&)>& fill)
{
    std::ostringstream stream;
    JsonOArchive archive(stream);
    fill(archive);
    archive.finish();
    return stream.str();
}

template <class T>
std::string writeValue(const T& value)
{
    return write(
        [&value](JsonOArchive& archive)
        {
            const ArchiveSectionManager section(archive, "s");
            archive << SerializationOItem<T>{"k", &value};
        });
}

/// The item "k" of the first section.
template <class T>
T readValue(const std::string& text)
{
    std::istringstream stream(text);
    JsonIArchive archive(stream);
    const ArchiveSectionManager section(archive, archive.getNextSectionName());
    T value{};
    archive >> SerializationIItem<T>{"k", &value};
    return value;
}

template <class T>
T passThrough(const T& value)
{
    return readValue<T>(writeValue(value));
}

std::string makeItem(const std::string& value)
{
    return "[{\"section\": \"s\", \"items\": {\"k\": " + value + "}}]";
}

std::uint32_t bits(float value)
{
    return std::bit_cast<std::uint32_t>(value);
}

const std::vector<float>& getSpecialFloats()
{
    using Limits = std::numeric_limits<float>;
    static const std::vector<float> g_values = {0.0F,
                                                -0.0F,
                                                0.1F,
                                                -0.299F,
                                                16777217.0F,
                                                Limits::max(),
                                                Limits::lowest(),
                                                Limits::min(),
                                                Limits::denorm_min(),
                                                -Limits::denorm_min(),
                                                Limits::infinity(),
                                                -Limits::infinity(),
                                                std::bit_cast<float>(0x7fc00000U),
                                                std::bit_cast<float>(0xffc00000U),
                                                std::bit_cast<float>(0x7fc12345U),
                                                std::bit_cast<float>(0x7f800001U), // signalling
                                                std::bit_cast<float>(0xffffffffU)};
    return g_values;
}
} // namespace

TEST(JsonArchive, KeepsEveryKindOfValue)
{
    EXPECT_EQ(passThrough(true), true);
    EXPECT_EQ(passThrough(false), false);
    EXPECT_EQ(passThrough(std::numeric_limits<int>::min()), std::numeric_limits<int>::min());
    EXPECT_EQ(passThrough(std::numeric_limits<unsigned int>::max()), std::numeric_limits<unsigned int>::max());
    EXPECT_EQ(passThrough(-9007199254740993L), -9007199254740993L);
    EXPECT_EQ(passThrough(std::numeric_limits<long>::min()), std::numeric_limits<long>::min());
    EXPECT_EQ(passThrough(9007199254740993UL), 9007199254740993UL);
    EXPECT_EQ(passThrough(std::numeric_limits<unsigned long>::max()), std::numeric_limits<unsigned long>::max());
    const std::string words("text \xc3\xa9 \n \\ \x01 \x00 end", 19);
    EXPECT_EQ(passThrough(words), words);
    EXPECT_EQ(passThrough(std::string()), "");
    EXPECT_TRUE(passThrough(std::vector<float>()).empty());
}

TEST(JsonArchive, KeepsFloatsToTheBit)
{
    std::vector<float> values = getSpecialFloats();
    std::mt19937 random(6);
    for (int i = 0; i < 200000; ++i)
    {
        values.push_back(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
    }
    const std::vector<float> read = passThrough(values);
    ASSERT_EQ(read.size(), values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
    {
        ASSERT_EQ(bits(read[i]), bits(values[i])) << i;
    }
    for (const float value : getSpecialFloats())
    {
        EXPECT_EQ(bits(passThrough(value)), bits(value)) << value;
    }
    for (const double value : {-0.0, 0.1, 5e-324, std::numeric_limits<double>::max(), -std::numeric_limits<double>::infinity(),
                               std::bit_cast<double>(0xfff8000000012345UL), std::bit_cast<double>(0x7ff0000000000001UL)})
    {
        EXPECT_EQ(std::bit_cast<std::uint64_t>(passThrough(value)), std::bit_cast<std::uint64_t>(value)) << value;
    }
}

TEST(JsonArchive, KeepsFloatsToTheBitInEveryRoundingMode)
{
    const std::vector<float> values = {0.1F, 0.299F, -0.587F, 1e-40F, 3.4028235e38F};
    const int before = std::fegetround();
    for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO})
    {
        std::fesetround(mode);
        const std::string text = writeValue(values);
        const std::vector<float> read = readValue<std::vector<float>>(text);
        const int after = std::fegetround();
        std::fesetround(before);
        EXPECT_EQ(after, mode);
        EXPECT_EQ(read, values);
        EXPECT_EQ(text, writeValue(values));
    }
}

TEST(JsonArchive, KeepsDenormalsWhereTheCallerFlushesThem)
{
    const std::vector<float> values = {1e-40F, -std::numeric_limits<float>::denorm_min()};
    const unsigned int before = _mm_getcsr();
    const unsigned int flushing = before | 0x8040U; // results and operands
    _mm_setcsr(flushing);
    const std::string text = writeValue(values);
    const std::vector<float> read = readValue<std::vector<float>>(text);
    const unsigned int after = _mm_getcsr();
    _mm_setcsr(before);
    EXPECT_EQ(after & 0x8040U, 0x8040U);
    ASSERT_EQ(read.size(), 2U);
    EXPECT_EQ(bits(read[0]), bits(values[0]));
    EXPECT_EQ(bits(read[1]), bits(values[1]));
    EXPECT_EQ(text, writeValue(values));
}

/// As some countries write numbers.
class CommaForPoint : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(JsonArchive, DoesNotDependOnTheLocale)
{
    const std::vector<float> values = {0.5F, -1234567.5F};
    const unsigned long most = std::numeric_limits<unsigned long>::max();
    const std::string floats = writeValue(values);
    const std::string integer = writeValue(most);
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaForPoint));
    const std::string localFloats = writeValue(values);
    const std::string localInteger = writeValue(most);
    const std::vector<float> readFloats = readValue<std::vector<float>>(floats);
    const auto readInteger = readValue<unsigned long>(integer);
    std::locale::global(before);
    EXPECT_EQ(localFloats, floats);
    EXPECT_EQ(localInteger, integer);
    EXPECT_EQ(readFloats, values);
    EXPECT_EQ(readInteger, most);
}

TEST(JsonIArchive, TakesNumbersAsTheyAreWrittenByHand)
{
    EXPECT_EQ(readValue<float>(makeItem("2")), 2.0F);
    EXPECT_EQ(bits(readValue<float>(makeItem("-0"))), bits(-0.0F));
    EXPECT_EQ(readValue<float>(makeItem("3.4028235e38")), std::numeric_limits<float>::max());
    EXPECT_EQ(readValue<float>(makeItem("1e-60")), 0.0F);
    EXPECT_EQ(bits(readValue<float>(makeItem("\"nan\""))), 0x7fc00000U);
    EXPECT_EQ(readValue<std::vector<float>>(makeItem("[1, -2, 1e2, \"-inf\"]")),
              (std::vector<float>{1.0F, -2.0F, 100.0F, -std::numeric_limits<float>::infinity()}));
    EXPECT_EQ(readValue<int>(makeItem("-0")), 0);
    EXPECT_EQ(readValue<unsigned int>(makeItem("-0")), 0U);
}

TEST(JsonIArchive, RoundsANumberOnce)
{
    // A double would take the first to half way between two floats, and from there to the wrong one; likewise the integers.
    for (const std::string text : {"1.000000059604644775390625000001", "18014399583223809", "-18014399583223809",
                                   "18014399583223809000000000", "7.006492321624086e-46", "7.006492321624085e-46"})
    {
        const float nearest = std::strtof(text.c_str(), nullptr);
        EXPECT_EQ(bits(readValue<float>(makeItem(text))), bits(nearest)) << text;
        EXPECT_EQ(bits(readValue<std::vector<float>>(makeItem("[" + text + "]")).at(0)), bits(nearest)) << text;
    }
    EXPECT_EQ(readValue<float>(makeItem("1.000000059604644775390625000001")), 0x1.000002p+0F);
    EXPECT_EQ(readValue<std::vector<float>>(makeItem("[18014399583223809]")).at(0), 0x1.000002p+54F);
}

TEST(JsonIArchive, PassesOverWhatNobodyAsksFor)
{
    std::istringstream stream(R"([{"sections": [{"section": "inner"}], "items": {"other": 1, "k": 2}, "section": "s"},
                                  {"section": "t", "items": {"k": 3}}])");
    JsonIArchive archive(stream);
    unsigned int value = 0;
    ASSERT_TRUE(archive.hasNextSection());
    EXPECT_EQ(archive.getNextSectionName(), "s");
    {
        const ArchiveSectionManager section(archive, "s");
        archive >> SerializationIItem<unsigned int>{"k", &value};
        EXPECT_EQ(archive.getNextSectionName(), "inner");
    }
    EXPECT_EQ(value, 2U);
    const ArchiveSectionManager section(archive, "t");
    archive >> SerializationIItem<unsigned int>{"k", &value};
    EXPECT_EQ(value, 3U);
    EXPECT_FALSE(archive.hasNextSection());
    EXPECT_EQ(archive.getNextSectionName(), "");
}
} // namespace kovis
