#include "KOVIS/KOVISImageProcessing/KernelTable.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessingAlgorithm.h"
#include "support/RecordingAppender.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

namespace kovis::imaproc
{
namespace
{
using Domain = eInstructionSet::domain;
using test::Recording;

/// A class with kernels, of which only the table is looked at. Each number has a table of its own.
template <int number>
class ToyKernels : public processor::BaseProcessingAlgorithm
{
public:
    static processor::AlgorithmFunctionSelector& retrieveFunctionSelector()
    {
        static processor::AlgorithmFunctionSelector g_selector;
        return g_selector;
    }

    template <class... T>
    ProcessingResult<bool> run(const processor::ProcessingInfo&)
    {
        return ProcessingResult<bool>(true);
    }

    static const auto& getRows() { return retrieveFunctionSelector().getFunctions(); }
};

template <int number>
struct ToyKernelOf
{
    template <class... T>
    auto operator()() const
    {
        return &ToyKernels<number>::template run<T...>;
    }
};

constexpr SourcePlace g_place{"bool functionRegistration()", "KOVISIPL/Toy", 321};
constexpr int g_types[] = {1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10};

/// The level of the logger that tells refused rows, as long as this lives.
class Level
{
public:
    explicit Level(int level) { processor::getKOVISBaseProcessingLogger().setLogLevel(level); }
    ~Level() { processor::getKOVISBaseProcessingLogger().setLogLevel(log4cplus::NOT_SET_LOG_LEVEL); }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
};

TEST(KernelTable, KnowsTheElementOfEachBufferType)
{
    EXPECT_TRUE((std::is_same_v<BufferElement<1>, signed char>));
    EXPECT_TRUE((std::is_same_v<BufferElement<2>, unsigned char>));
    EXPECT_TRUE((std::is_same_v<BufferElement<3>, short>));
    EXPECT_TRUE((std::is_same_v<BufferElement<4>, unsigned short>));
    EXPECT_TRUE((std::is_same_v<BufferElement<5>, int>));
    EXPECT_TRUE((std::is_same_v<BufferElement<6>, unsigned int>));
    EXPECT_TRUE((std::is_same_v<BufferElement<7>, float>));
    EXPECT_TRUE((std::is_same_v<BufferElement<8>, unsigned char>));
    EXPECT_TRUE((std::is_same_v<BufferElement<9>, unsigned short>));
    EXPECT_TRUE((std::is_same_v<BufferElement<10>, unsigned int>));
    EXPECT_TRUE((std::is_same_v<BufferElement<11>, unsigned char>));
}

TEST(KernelTable, HasOneRowForEachBufferType)
{
    KernelTable<ToyKernels<1>, Domain::eIS_SSE2> table(g_place);
    table.registerTable<1>(ToyKernelOf<1>());
    EXPECT_TRUE(table.report());
    const auto& rows = ToyKernels<1>::getRows();
    ASSERT_EQ(rows.size(), 11U);
    processor::InstructionSetsIdentifier sets;
    sets.init(Domain::eIS_SSE2);
    for (std::size_t i = 0; i < rows.size(); ++i)
    {
        EXPECT_EQ(rows[i].getDataTypes().getSize(), 1U);
        EXPECT_EQ(rows[i].getDataTypes().getId(0), g_types[i]);
        EXPECT_EQ(rows[i].getInstructionSets(), sets);
        EXPECT_EQ(rows[i].getEfficiency(),
                  (AlgorithmFunctionEfficiency<Domain::eIS_SSE2, Domain::eIS_Generic, Domain::eIS_Generic>::getEfficiency()));
    }
    using Function = processor::AlgorithmFunctionIdentifier::Function;
    EXPECT_EQ(rows[6].getFunction(), static_cast<Function>(&ToyKernels<1>::run<float>));
    EXPECT_EQ(rows[8].getFunction(), rows[1].getFunction());
}

TEST(KernelTable, RunsTheLastOfThreePositionsFastest)
{
    KernelTable<ToyKernels<3>> table(g_place);
    table.registerTable<3>(ToyKernelOf<3>());
    EXPECT_TRUE(table.report());
    const auto& rows = ToyKernels<3>::getRows();
    ASSERT_EQ(rows.size(), 1331U);
    for (std::size_t i = 0; i < rows.size(); ++i)
    {
        ASSERT_EQ(rows[i].getDataTypes().getSize(), 3U);
        ASSERT_EQ(rows[i].getDataTypes().getId(0), g_types[i / 121]);
        ASSERT_EQ(rows[i].getDataTypes().getId(1), g_types[i / 11 % 11]);
        ASSERT_EQ(rows[i].getDataTypes().getId(2), g_types[i % 11]);
    }
    using Function = processor::AlgorithmFunctionIdentifier::Function;
    EXPECT_EQ(rows[6 * 121 + 2].getFunction(), static_cast<Function>(&ToyKernels<3>::run<float, signed char, short>));
}

TEST(KernelTable, ARowRegisteredTwiceIsToldAtTraceAndTheLoadGoesOn)
{
    const Level level(log4cplus::TRACE_LOG_LEVEL);
    const Recording recording(processor::getKOVISBaseProcessingLogger());
    KernelTable<ToyKernels<4>> table(g_place);
    table.registerRow<2, 7>(ToyKernelOf<4>());
    table.registerRow<2, 7>(ToyKernelOf<4>());
    table.registerRow<5>(ToyKernelOf<4>());
    table.registerRow<5>(ToyKernelOf<4>());
    table.registerRow<3, 7>(ToyKernelOf<4>());
    EXPECT_TRUE(recording.getEvents().empty());
    EXPECT_TRUE(table.report());
    EXPECT_EQ(ToyKernels<4>::getRows().size(), 3U);
    EXPECT_EQ(ToyKernels<4>::getRows()[2].getDataTypes().getId(0), 3);

    const auto events = recording.getEvents();
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].m_logger, processor::getKOVISBaseProcessingLogger().getName());
    EXPECT_EQ(events[0].m_level, log4cplus::TRACE_LOG_LEVEL);
    EXPECT_EQ(events[0].m_message, "Kernels could not be registered:\n"
                                   "there is a row of data types u8 (2), f32 (7) and instruction sets generic already\n"
                                   "there is a row of data types i32 (5) and instruction sets generic already\n");
    EXPECT_EQ(events[0].m_file, g_place.m_file);
    EXPECT_EQ(events[0].m_line, 321);
    EXPECT_EQ(static_cast<int>(processor::eAlgorithmFunctionMessage::eAFM_RegistrationErrors), 12);
}

TEST(KernelTable, ARefusedRowIsSilentAboveTrace)
{
    const Level level(log4cplus::DEBUG_LOG_LEVEL);
    const Recording recording(processor::getKOVISBaseProcessingLogger());
    KernelTable<ToyKernels<5>> table(g_place);
    table.registerRow<2, 7>(ToyKernelOf<5>());
    table.registerRow<2, 7>(ToyKernelOf<5>());
    EXPECT_TRUE(table.report());
    EXPECT_TRUE(recording.getEvents().empty());
    EXPECT_EQ(ToyKernels<5>::getRows().size(), 1U);
}

// 3 is no instruction set that a kernel can be written for.
TEST(KernelTable, SetsThatAreNotSupportedHaveNoRowsAndAreNoError)
{
    const Level level(log4cplus::TRACE_LOG_LEVEL);
    const Recording recording(processor::getKOVISBaseProcessingLogger());
    KernelTable<ToyKernels<6>, static_cast<Domain>(3)> table(g_place);
    table.registerTable<1>(ToyKernelOf<6>());
    EXPECT_TRUE(table.report());
    EXPECT_TRUE(recording.getEvents().empty());
    EXPECT_TRUE(ToyKernels<6>::getRows().empty());
}
} // namespace
} // namespace kovis::imaproc
