#include "KOVIS/KOVISSerialization/JsonIArchive.h"
#include "KOVIS/KOVISSerialization/SerializationItem.h"
#include "KOVISSerialization/getRefusal.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <sstream>
#include <streambuf>
#include <vector>

namespace kovis
{
namespace
{
using test::getRefusal;

/// What the reader says of a text.
std::string getRefusal(const std::string& text, const JsonArchiveLimits& limits = JsonArchiveLimits())
{
    return getRefusal(
        [&]
        {
            std::istringstream stream(text);
            const JsonIArchive archive(stream, limits);
        });
}

/// What reading item "k" of section "s" as T says.
template <class T>
std::string getItemRefusal(const std::string& value)
{
    return getRefusal(
        [&]
        {
            std::istringstream stream("[{\"section\": \"s\", \"items\": {\"k\": " + value + "}}]");
            JsonIArchive archive(stream);
            const ArchiveSectionManager section(archive, "s");
            T read{};
            archive >> SerializationIItem<T>{"k", &read};
        });
}

/// A text that repeats a piece without ever being in memory as a whole; it counts what was read of it.
class RepeatingBuffer : public std::streambuf
{
public:
    RepeatingBuffer(std::string begin, std::string piece, unsigned long nbPieces)
        : m_piece(std::move(piece)), m_nbPieces(nbPieces), m_current(std::move(begin))
    {
        setg(m_current.data(), m_current.data(), m_current.data() + m_current.size());
    }
    unsigned long m_nbRead = 0;

protected:
    int_type underflow() override
    {
        if (m_nbRead == m_nbPieces)
        {
            return traits_type::eof();
        }
        ++m_nbRead;
        m_current = m_piece;
        setg(m_current.data(), m_current.data(), m_current.data() + m_current.size());
        return traits_type::to_int_type(m_current[0]);
    }

private:
    const std::string m_piece;
    const unsigned long m_nbPieces;
    std::string m_current;
};

/// Gives a few characters, and then fails as files do.
class FailingBuffer : public std::streambuf
{
protected:
    int_type underflow() override
    {
        if (m_bGiven)
        {
            throw std::ios_base::failure("the disk is gone");
        }
        m_bGiven = true;
        setg(m_begin, m_begin, m_begin + sizeof m_begin);
        return traits_type::to_int_type(m_begin[0]);
    }

private:
    char m_begin[2] = {'[', '{'};
    bool m_bGiven = false;
};

std::string getRefusalOfRepetition(const std::string& begin, const std::string& piece, unsigned long nbPieces,
                                   unsigned long& nbRead)
{
    RepeatingBuffer buffer(begin, piece, nbPieces);
    std::istream stream(&buffer);
    const std::string refusal = getRefusal([&stream] { const JsonIArchive archive(stream); });
    nbRead = buffer.m_nbRead;
    return refusal;
}
} // namespace

TEST(HostileArchive, IsRefusedInOtherShapes)
{
    EXPECT_EQ(getRefusal("{}"),
              "The archive is damaged at the outermost level: an object stands where an array of sections is expected");
    EXPECT_EQ(getRefusal("7"),
              "The archive is damaged at the outermost level: an integer stands where an array of sections is expected");
    EXPECT_EQ(getRefusal("[7]"), "The archive is damaged at the outermost level: an integer stands where a section is expected");
    EXPECT_EQ(getRefusal("[[]]"), "The archive is damaged at the outermost level: an array stands where a section is expected");
    EXPECT_EQ(getRefusal("[null]"), "The archive is damaged at the outermost level: null stands where a section is expected");
    EXPECT_EQ(getRefusal("[{}]"),
              "The archive has nothing at section \"?\", key \"section\": it was written by something else, or changed");
    EXPECT_EQ(getRefusal("[{\"section\": 1}]"),
              "The archive is damaged at section \"?\", key \"section\": an integer stands where the section's name is expected");
    EXPECT_EQ(getRefusal("[{\"section\": \"s\", \"items\": []}]"),
              "The archive is damaged at section \"s\", key \"items\": an array stands where an object of items is expected");
    EXPECT_EQ(
        getRefusal("[{\"section\": \"s\", \"sections\": true}]"),
        "The archive is damaged at section \"s\", key \"sections\": true or false stands where an array of sections is expected");
    EXPECT_EQ(
        getRefusal("[{\"section\": \"s\", \"item\": {}}]"),
        "The archive is damaged at section \"s\", key \"item\": an unknown key stands where one of \"section\", \"items\" and "
        "\"sections\" is expected");
    EXPECT_EQ(getRefusal("[{\"section\": \"s\", \"items\": {\"k\": {}}}]"),
              "The archive is damaged at section \"s\", key \"k\": an object stands where a value is expected");
    EXPECT_EQ(getRefusal("[{\"section\": \"s\", \"items\": {\"k\": null}}]"),
              "The archive is damaged at section \"s\", key \"k\": null stands where a value is expected");
    EXPECT_EQ(getRefusal("[{\"section\": \"s\", \"items\": {\"k\": [1, [2]]}}]"),
              "The archive is damaged at section \"s\", key \"k\": an array stands where a number is expected");
    EXPECT_EQ(getRefusal("[{\"section\": \"s\", \"items\": {\"k\": [true]}}]"),
              "The archive is damaged at section \"s\", key \"k\": true or false stands where a number is expected");
    EXPECT_NE(getRefusal("[{\"section\": \"s\", \"items\": {\"k\": 1e999}}]").find("section \"s\", key \"k\""),
              std::string::npos);
    EXPECT_EQ(getRefusal("[{\"section\": \"s\", \"items\": {\"k\": [1e39]}}]")
                  .find("The archive is damaged at section \"s\", key \"k\""),
              0U);
    EXPECT_EQ(getRefusal("[{\"section\": \"s\", \"items\": {\"k\": [\"\"]}}]"),
              "The archive is damaged at section \"s\", key \"k\": \"\" does not fit a float of a list");
    EXPECT_NE(getRefusal("[] []"), "nothing was thrown");
    EXPECT_NE(getRefusal(""), "nothing was thrown");
    EXPECT_NE(getRefusal("[{\"section\": \"\xff\"}]"), "nothing was thrown");
}

TEST(HostileArchive, IsRefusedWithDoubledKeys)
{
    EXPECT_EQ(getRefusal("[{\"section\": \"s\", \"section\": \"s\"}]"),
              "The archive is damaged at section \"s\", key \"section\": the key stands there twice");
    EXPECT_EQ(getRefusal("[{\"section\": \"s\", \"items\": {}, \"items\": {}}]"),
              "The archive is damaged at section \"s\", key \"items\": the key stands there twice");
    EXPECT_EQ(getRefusal("[{\"section\": \"s\", \"sections\": [], \"sections\": []}]"),
              "The archive is damaged at section \"s\", key \"sections\": the key stands there twice");
    EXPECT_EQ(
        getRefusal("[{\"section\": \"o\", \"sections\": [{\"section\": \"i\", \"items\": {\"k\": 1, \"l\": 2, \"k\": 1}}]}]"),
        "The archive is damaged at section \"o/i\", key \"k\": the key stands there twice");
}

TEST(HostileArchive, IsRefusedWhereAValueIsOfAnotherKindOrOutOfRange)
{
    EXPECT_EQ(getItemRefusal<int>("2147483648"), "The archive is damaged at section \"s\", key \"k\": 2147483648 does not fit an "
                                                 "integer of 32 bits with a sign");
    const std::string good = "nothing was thrown";
    EXPECT_EQ(getItemRefusal<int>("-2147483648"), good);
    EXPECT_NE(getItemRefusal<int>("-2147483649"), good);
    EXPECT_NE(getItemRefusal<unsigned int>("-1"), good);
    EXPECT_NE(getItemRefusal<unsigned int>("4294967296"), good);
    EXPECT_NE(getItemRefusal<long>("9223372036854775808"), good);
    EXPECT_NE(getItemRefusal<unsigned long>("18446744073709551616"), good);
    EXPECT_NE(getItemRefusal<unsigned long>("-1"), good);
    EXPECT_NE(getItemRefusal<float>("3.5e38"), good);
    EXPECT_NE(getItemRefusal<float>("\"nan:0000000\""), good);
    EXPECT_NE(getItemRefusal<float>("\"nan:00000000\""), good); // those are the bits of a zero
    EXPECT_NE(getItemRefusal<float>("\"nan:7fc0000g\""), good);
    // each kind asked for, each kind standing: good on the diagonal, and where an integer stands for a number
    const std::vector<std::string> values = {"true", "1", "1.5", "\"text\"", "[1]"};
    for (std::size_t i = 0; i < values.size(); ++i)
    {
        EXPECT_EQ(getItemRefusal<bool>(values[i]) == good, i == 0) << values[i];
        EXPECT_EQ(getItemRefusal<int>(values[i]) == good, i == 1) << values[i];
        EXPECT_EQ(getItemRefusal<unsigned long>(values[i]) == good, i == 1) << values[i];
        EXPECT_EQ(getItemRefusal<float>(values[i]) == good, i == 1 || i == 2) << values[i];
        EXPECT_EQ(getItemRefusal<double>(values[i]) == good, i == 1 || i == 2) << values[i];
        EXPECT_EQ(getItemRefusal<std::string>(values[i]) == good, i == 3) << values[i];
        EXPECT_EQ(getItemRefusal<std::vector<float>>(values[i]) == good, i == 4) << values[i];
    }
}

TEST(HostileArchive, IsRefusedWhereSomethingIsMissing)
{
    std::istringstream stream("[{\"section\": \"s\"}]");
    JsonIArchive archive(stream);
    EXPECT_EQ(
        getRefusal([&] { archive.beginSection("t"); }),
        "The archive holds section \"s\" at the outermost level where section \"t\" is expected: read objects in the order in "
        "which they were written");
    archive.beginSection("s");
    unsigned int value = 7;
    EXPECT_EQ(getRefusal(
                  [&] {
                      (archive >> SerializationIItem<unsigned int>{"version", &value});
                  }),
              "The archive has nothing at section \"s\", key \"version\": it was written by something else, or changed");
    EXPECT_EQ(value, 7U);
    EXPECT_EQ(
        getRefusal([&] { archive.beginSection("t"); }),
        "The archive holds no further section at section \"s\" where section \"t\" is expected: read objects in the order in "
        "which they were written");
    archive.endSection();
    EXPECT_NE(getRefusal([&] { archive.endSection(); }).find("none is open"), std::string::npos);
    EXPECT_NE(getRefusal(
                  [&] {
                      (archive >> SerializationIItem<unsigned int>{"k", &value});
                  })
                  .find("the outermost level, key \"k\""),
              std::string::npos);
}

TEST(HostileArchive, IsRefusedCutAtEveryByte)
{
    const std::string text = R"([{"section": "outer", "items": {"k": true, "l": [0.5, "nan:7fc00001", -1e9]},
                                 "sections": [{"section": "inner", "items": {"t": "x\u00e9"}}]}, {"section": "second"}])";
    ASSERT_EQ(getRefusal(text), "nothing was thrown");
    for (std::size_t length = 0; length < text.size(); ++length)
    {
        const std::string refusal = getRefusal(text.substr(0, length));
        EXPECT_EQ(refusal.find("The archive is damaged at "), 0U) << length << " " << refusal;
        EXPECT_LT(refusal.size(), 400U);
    }
}

TEST(HostileArchive, EndsBeforeItIsReadToItsEndWhereItHoldsTooMuch)
{
    unsigned long nbRead = 0;
    EXPECT_EQ(
        getRefusalOfRepetition("[{\"section\": \"s\", \"items\": {\"matrix\": [0", ",0", 10000000, nbRead),
        "The archive holds too much at section \"s\", key \"matrix\": more than 1048576 numbers in lists; read it with higher "
        "limits if it can be trusted");
    EXPECT_LT(nbRead, 1060000U);
    EXPECT_NE(getRefusalOfRepetition("[{\"section\": \"s\", \"sections\":", "[{\"section\": \"t\", \"sections\":", 100000, nbRead)
                  .find("more than 16 sections in each other"),
              std::string::npos);
    EXPECT_LT(nbRead, 1000U);
    EXPECT_EQ(getRefusalOfRepetition("", "[", 100000, nbRead),
              "The archive is damaged at the outermost level: an array stands where a section is expected");
    EXPECT_EQ(getRefusalOfRepetition("[{\"section\": \"s\", \"items\": {\"k\": ", "[", 100000, nbRead),
              "The archive is damaged at section \"s\", key \"k\": an array stands where a number is expected");
    EXPECT_NE(getRefusalOfRepetition("[{\"section\": \"s\", \"items\": {\"k\": ", "{\"a\":", 100000, nbRead),
              "nothing was thrown");
    EXPECT_NE(
        getRefusalOfRepetition("[{\"section\": \"s\"}", ",{\"section\": \"s\"}", 100000, nbRead).find("more than 65536 sections"),
        std::string::npos);
    EXPECT_NE(getRefusalOfRepetition("", std::string(4096, ' '), 1UL << 40, nbRead).find("more than 67108864 bytes"),
              std::string::npos);
    EXPECT_NE(
        getRefusal("[{\"section\": \"" + std::string(5000, 'x') + "\"}]").find("more than 4096 bytes in a name, key or text"),
        std::string::npos);
    std::string items = "[{\"section\": \"s\", \"items\": {\"0\": 0";
    for (int i = 1; i <= 65536; ++i)
    {
        items += ",\"" + std::to_string(i) + "\": 0";
    }
    EXPECT_NE(getRefusal(items).find("key \"65536\": more than 65536 items"), std::string::npos);
}

TEST(HostileArchive, EndsWithinATokenThatIsTooLong)
{
    const auto expectRefused = [](const std::string& begin, const std::string& piece, const std::string& what)
    {
        unsigned long nbRead = 0;
        EXPECT_EQ(getRefusalOfRepetition(begin, piece, 1UL << 20, nbRead),
                  "The archive holds too much at " + what + "; read it with higher limits if it can be trusted");
        // escapes of six bytes for one, and a block that is read ahead
        EXPECT_LT(nbRead * piece.size(), 6UL * 4097 + 2 * 4096) << begin << piece;
    };
    const std::string tooLong = "more than 4096 bytes in a name, key or text";
    const std::string item = "[{\"section\": \"s\", \"items\": {\"k\": ";
    const std::string place = "section \"s\", key \"k\": ";
    expectRefused("[{\"section\": \"", "x", "section \"?\", key \"section\": " + tooLong);
    expectRefused("[{\"", "x", "section \"?\": " + tooLong);
    expectRefused(item + "\"", "x", place + tooLong);
    expectRefused(item + "\"", "\\\"", place + tooLong);
    expectRefused(item + "\"", "\\u0041", place + tooLong);
    expectRefused(item + "\"\\\\", "]", place + tooLong);
    expectRefused(item + "[\"", "x", place + tooLong);
    for (const std::string number : {"1", "-1", "0.", "[0.1", "1e"})
    {
        expectRefused(item + number, "1", place + "more than 1024 bytes in a number");
    }
}

TEST(HostileArchive, IsReadWithTokensAsLongAsTheLimits)
{
    const auto read = [](const std::string& value)
    { return getRefusal("[{\"section\": \"s\", \"items\": {\"k\": " + value + "}}]"); };
    const std::string good = "nothing was thrown";
    std::string escapes;
    for (int i = 0; i < 4096; ++i)
    {
        escapes += "\\u0041";
    }
    EXPECT_EQ(read('"' + escapes + '"'), good);
    EXPECT_NE(read('"' + escapes + "x\""), good);
    EXPECT_EQ(read("0." + std::string(1022, '1')), good);
    EXPECT_NE(read("0." + std::string(1023, '1')), good);
    // what stands between tokens is no part of one
    std::string list = "[" + std::string(10000, ' ') + "1";
    for (int i = 0; i < 5000; ++i)
    {
        list += "\n,\t2";
    }
    EXPECT_EQ(read(list + "]"), good);
    EXPECT_EQ(read(std::string(100000, '\n') + "\"" + std::string(4096, ' ') + "\""), good);
}

TEST(HostileArchive, NamesThePlaceThatItsBytesEndAt)
{
    JsonArchiveLimits limits;
    limits.m_maxBytes = 60;
    EXPECT_EQ(
        getRefusal("[{\"section\": \"s\", \"items\": {\"k\": 1" + std::string(60, ' '), limits),
        "The archive holds too much at section \"s\", key \"k\": more than 60 bytes; read it with higher limits if it can be "
        "trusted");
}

TEST(HostileArchive, IsRefusedWhereItsStreamFails)
{
    const std::string failed =
        "The archive's stream cannot be read: see that its file exists and may be used, and that the disk has room";
    FailingBuffer buffer;
    std::istream stream(&buffer);
    EXPECT_EQ(getRefusal([&stream] { const JsonIArchive archive(stream); }), failed);
    std::ifstream directory("/");
    ASSERT_TRUE(directory.good());
    EXPECT_EQ(getRefusal([&directory] { const JsonIArchive archive(directory); }), failed);
}

TEST(HostileArchive, IsReadWithinHigherLimits)
{
    JsonArchiveLimits limits;
    limits.m_maxNumbers = 2;
    EXPECT_EQ(getRefusal("[{\"section\": \"s\", \"items\": {\"k\": [1,2]}}]", limits), "nothing was thrown");
    EXPECT_NE(getRefusal("[{\"section\": \"s\", \"items\": {\"k\": [1,2], \"l\": [3]}}]", limits), "nothing was thrown");
    limits.m_maxTextLength = 7;
    EXPECT_EQ(getRefusal("[{\"section\": \"1234567\"}]", limits), "nothing was thrown");
    EXPECT_NE(getRefusal("[{\"section\": \"12345678\"}]", limits), "nothing was thrown");
    limits.m_maxBytes = 10;
    EXPECT_NE(getRefusal("[         ]", limits), "nothing was thrown");
    EXPECT_EQ(getRefusal("[        ]", limits), "nothing was thrown");
}

TEST(HostileArchive, IsQuotedInOneShortLine)
{
    const std::string refusal = getRefusal("[{\"section\": \"a\\n\\u0007" + std::string(500, 'b') + "\", \"items\": 1}]");
    EXPECT_LT(refusal.size(), 400U);
    for (const char letter : refusal)
    {
        EXPECT_TRUE(letter >= ' ' && letter <= '~') << static_cast<int>(letter);
    }
}
} // namespace kovis
