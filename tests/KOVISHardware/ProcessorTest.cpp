#include "KOVIS/KOVISHardware/ComputerDescription.h"
#include "KOVIS/KOVISHardware/ProcessorFeatures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <thread>

namespace kovis::hard
{
namespace
{
/// The flags of the first processor, as the kernel lists them; it leaves out those whose registers it does not save.
std::set<std::string> readKernelFlags()
{
    std::ifstream file("/proc/cpuinfo");
    std::set<std::string> flags;
    for (std::string line; std::getline(file, line);)
    {
        if (line.rfind("flags", 0) == 0)
        {
            std::istringstream words(line.substr(line.find(':') + 1));
            for (std::string word; words >> word;)
            {
                flags.insert(word);
            }
            break;
        }
    }
    return flags;
}

bool has(unsigned int sets, eInstructionSet::domain set)
{
    return ((sets >> set) & 1u) != 0;
}

// A processor that has everything, bit by bit.
ProcessorFeatures makeAll()
{
    ProcessorFeatures all;
    all.m_leaf1Ecx = (1u << 12) | (1u << 27) | (1u << 28);
    all.m_leaf1Edx = (1u << 25) | (1u << 26);
    all.m_leaf7Ebx = (1u << 5) | (1u << 16) | (1u << 17) | (1u << 30) | (1u << 31);
    all.m_xcr0 = 0xe7;
    return all;
}
} // namespace

TEST(Processor, agreesWithTheKernel)
{
    const std::set<std::string> flags = readKernelFlags();
    if (flags.empty())
    {
        GTEST_SKIP() << "/proc/cpuinfo lists no flags";
    }
    const auto flag = [&flags](const char* name) { return flags.count(name) != 0; };
    const ProcessorDescription processor;
    EXPECT_TRUE(processor.hasInstructionSet(eInstructionSet::eIS_Generic));
    EXPECT_EQ(flag("sse2"), processor.hasInstructionSet(eInstructionSet::eIS_SSE2));
    EXPECT_EQ(flag("avx"), processor.hasInstructionSet(eInstructionSet::eIS_AVX));
    EXPECT_EQ(flag("avx") && flag("fma"), processor.hasInstructionSet(eInstructionSet::eIS_FMA3));
    EXPECT_EQ(flag("avx2"), processor.hasInstructionSet(eInstructionSet::eIS_AVX2));
    EXPECT_EQ(flag("avx512f") && flag("avx512bw") && flag("avx512dq") && flag("avx512vl"),
              processor.hasInstructionSet(eInstructionSet::eIS_AVX512));
}

TEST(Processor, hasNoSetOfAnotherNumber)
{
    const ProcessorDescription processor;
    for (int number : {-1, 2, 3, 4, 9, 31, 32, 64, 1000})
    {
        EXPECT_FALSE(processor.hasInstructionSet(eInstructionSet(static_cast<eInstructionSet::domain>(number)))) << number;
    }
}

TEST(Processor, tellsNameNumberAndCache)
{
    const ProcessorDescription processor;
    EXPECT_FALSE(processor.getName().empty());
    EXPECT_EQ(std::string::npos, processor.getName().find('\0'));
    EXPECT_GE(processor.getNbProcessors(), 1u);
    EXPECT_LE(processor.getNbProcessors(), std::max(1u, std::thread::hardware_concurrency()));
    EXPECT_GE(processor.getLevel2CacheSize(), std::size_t(64) * 1024);
    EXPECT_LE(processor.getLevel2CacheSize(), std::size_t(64) * 1024 * 1024);
}

TEST(ProcessorFeatures, everythingGivesEverySet)
{
    EXPECT_EQ(0b111100011u, toInstructionSets(makeAll()));
    EXPECT_EQ(1u, toInstructionSets(ProcessorFeatures()));
}

TEST(ProcessorFeatures, eachSetNeedsAllItsBits)
{
    const auto without = [](unsigned int ProcessorFeatures::*reg, unsigned int bit)
    {
        ProcessorFeatures features = makeAll();
        features.*reg &= ~(1u << bit);
        return toInstructionSets(features);
    };
    EXPECT_FALSE(has(without(&ProcessorFeatures::m_leaf1Edx, 26), eInstructionSet::eIS_SSE2));

    // OSXSAVE and AVX carry all that is wider.
    EXPECT_EQ(0b11u, without(&ProcessorFeatures::m_leaf1Ecx, 27));
    EXPECT_EQ(0b11u, without(&ProcessorFeatures::m_leaf1Ecx, 28));

    const unsigned int noFma = without(&ProcessorFeatures::m_leaf1Ecx, 12);
    EXPECT_FALSE(has(noFma, eInstructionSet::eIS_FMA3));
    EXPECT_TRUE(has(noFma, eInstructionSet::eIS_AVX));
    EXPECT_TRUE(has(noFma, eInstructionSet::eIS_AVX2));

    const unsigned int noAvx2 = without(&ProcessorFeatures::m_leaf7Ebx, 5);
    EXPECT_FALSE(has(noAvx2, eInstructionSet::eIS_AVX2));
    EXPECT_TRUE(has(noAvx2, eInstructionSet::eIS_FMA3));

    for (unsigned int bit : {16u, 17u, 30u, 31u})
    {
        EXPECT_EQ(0b011100011u, without(&ProcessorFeatures::m_leaf7Ebx, bit)) << bit;
    }
}

TEST(ProcessorFeatures, registersThatAreNotSavedCannotBeUsed)
{
    ProcessorFeatures features = makeAll();
    for (unsigned int saved : {0x0u, 0x1u, 0x3u, 0x5u, 0xe3u})
    {
        features.m_xcr0 = saved;
        EXPECT_EQ(0b11u, toInstructionSets(features)) << saved;
    }
    for (unsigned int saved : {0x07u, 0x27u, 0x67u, 0xa7u, 0xc7u})
    {
        features.m_xcr0 = saved;
        EXPECT_EQ(0b011100011u, toInstructionSets(features)) << saved;
    }
}
} // namespace kovis::hard
