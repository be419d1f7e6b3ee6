// Kernel tables: which row a key and the forced sets take, and what is refused.
#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/BaseProcessingAlgorithm.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISUtil/LogMessageFormater.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
using namespace kovis;
using namespace kovis::processor;
using testing::HasSubstr;
using IS = eInstructionSet;

class ToyType : public BaseDataTypeIdentifier
{
public:
    explicit ToyType(int id) : m_id(id) {}
    int getId() const override { return m_id; }
    const char* getName() const override { return m_id == 7 ? "f32" : "u8"; }

private:
    int m_id;
};

class Kernels : public BaseProcessingAlgorithm
{
public:
    ProcessingResult<bool> work(const ProcessingInfo&) { return ProcessingResult<bool>(true); }
};
const auto g_function = static_cast<AlgorithmFunctionIdentifier::Function>(&Kernels::work);

InstructionSetsIdentifier sets(IS::domain first)
{
    InstructionSetsIdentifier identifier;
    identifier.init(first);
    return identifier;
}

InstructionSetsIdentifier sets(IS::domain first, IS::domain second)
{
    InstructionSetsIdentifier identifier;
    identifier.init(first, second);
    return identifier;
}

DataTypeIdentifierColl key(int first, int second)
{
    DataTypeIdentifierColl types;
    types.init(ToyType(first), ToyType(second));
    return types;
}

AlgorithmFunctionIdentifier row(const DataTypeIdentifierColl& types, const InstructionSetsIdentifier& instructionSets,
                                unsigned int efficiency)
{
    AlgorithmFunctionIdentifier identifier;
    identifier.init(types, instructionSets, efficiency, g_function);
    return identifier;
}

TEST(InstructionSetsIdentifier, TellsSetsApart)
{
    EXPECT_TRUE(InstructionSetsIdentifier().isEmpty());
    EXPECT_FALSE(sets(IS::eIS_Generic, IS::eIS_Generic).isEmpty());
    EXPECT_EQ(sets(IS::eIS_Generic), sets(IS::eIS_Generic, IS::eIS_Generic));
    EXPECT_EQ(sets(IS::eIS_AVX2), sets(IS::eIS_AVX2, IS::eIS_AVX2));
    EXPECT_FALSE(sets(IS::eIS_AVX2) == sets(IS::eIS_FMA3, IS::eIS_AVX2));
    EXPECT_EQ(sets(IS::eIS_AVX2, IS::eIS_FMA3), sets(IS::eIS_FMA3, IS::eIS_AVX2));
    EXPECT_TRUE(sets(IS::eIS_FMA3, IS::eIS_AVX2).contains(IS::eIS_FMA3));
    EXPECT_FALSE(sets(IS::eIS_AVX2).contains(IS::eIS_FMA3));
    EXPECT_EQ("generic", sets(IS::eIS_Generic).getName());
    EXPECT_EQ("FMA3 with AVX2", sets(IS::eIS_FMA3, IS::eIS_AVX2).getName());
    EXPECT_EQ("none", InstructionSetsIdentifier().getName());
    InstructionSetsIdentifier cleared = sets(IS::eIS_SSE2);
    cleared.clear();
    EXPECT_TRUE(cleared.isEmpty());
}

TEST(DataTypeIdentifierColl, NamesAndComparesItsTypes)
{
    DataTypeIdentifierColl one;
    one.init(ToyType(2));
    DataTypeIdentifierColl three;
    three.init(ToyType(2), ToyType(8), ToyType(7));
    EXPECT_EQ(1U, one.getSize());
    EXPECT_EQ("u8 (2)", one.getName());
    EXPECT_EQ("u8 (2), u8 (8), f32 (7)", three.getName());
    EXPECT_EQ(8, three.getId(1));
    EXPECT_THROW(three.getId(3), std::out_of_range);
    EXPECT_FALSE(one == three);
    EXPECT_FALSE(key(2, 7) == key(8, 7));
    three.init(ToyType(2));
    EXPECT_TRUE(one == three);
}

TEST(AlgorithmFunctionSelector, TakesTheBestRowUnlessSetsAreForced)
{
    AlgorithmFunctionSelector selector;
    ASSERT_TRUE(selector.registerFunction(row(key(2, 7), sets(IS::eIS_Generic, IS::eIS_Generic), 0)).getResult());
    ASSERT_TRUE(selector.registerFunction(row(key(2, 7), sets(IS::eIS_SSE2, IS::eIS_SSE2), 10)).getResult());
    ASSERT_TRUE(selector.registerFunction(row(key(7, 7), sets(IS::eIS_Generic), 0)).getResult());

    AlgorithmFunctionIdentifier chosen;
    ASSERT_TRUE(selector.select(key(2, 7), InstructionSetsIdentifier(), chosen).getResult());
    EXPECT_EQ(sets(IS::eIS_SSE2), chosen.getInstructionSets());
    ASSERT_TRUE(selector.select(key(2, 7), sets(IS::eIS_Generic, IS::eIS_Generic), chosen).getResult());
    EXPECT_EQ(sets(IS::eIS_Generic), chosen.getInstructionSets());
    ASSERT_TRUE(selector.select(key(2, 7), sets(IS::eIS_SSE2), chosen).getResult());
    EXPECT_EQ(sets(IS::eIS_SSE2), chosen.getInstructionSets());
    ASSERT_TRUE(selector.select(key(7, 7), InstructionSetsIdentifier(), chosen).getResult());
    EXPECT_EQ(key(7, 7), chosen.getDataTypes());
}

TEST(AlgorithmFunctionSelector, OfEqualRowsTheFirstIsTaken)
{
    AlgorithmFunctionSelector selector;
    selector.registerFunction(row(key(2, 7), sets(IS::eIS_SSE2), 10));
    selector.registerFunction(row(key(2, 7), sets(IS::eIS_Generic), 10));
    AlgorithmFunctionIdentifier chosen;
    ASSERT_TRUE(selector.select(key(2, 7), InstructionSetsIdentifier(), chosen).getResult());
    EXPECT_EQ(sets(IS::eIS_SSE2), chosen.getInstructionSets());
}

TEST(AlgorithmFunctionSelector, FusedAndPlainAvx2AreTwoRows)
{
    if (!core::isAvailable(IS::eIS_AVX2) || !core::isAvailable(IS::eIS_FMA3))
    {
        GTEST_SKIP() << "this processor has no AVX2 with FMA3";
    }
    AlgorithmFunctionSelector selector;
    ASSERT_TRUE(selector.registerFunction(row(key(7, 7), sets(IS::eIS_AVX2, IS::eIS_AVX2), 30)).getResult());
    ASSERT_TRUE(selector.registerFunction(row(key(7, 7), sets(IS::eIS_FMA3, IS::eIS_AVX2), 31)).getResult());
    AlgorithmFunctionIdentifier chosen;
    ASSERT_TRUE(selector.select(key(7, 7), sets(IS::eIS_AVX2), chosen).getResult());
    EXPECT_EQ(30U, chosen.getEfficiency());
    ASSERT_TRUE(selector.select(key(7, 7), sets(IS::eIS_FMA3, IS::eIS_AVX2), chosen).getResult());
    EXPECT_EQ(31U, chosen.getEfficiency());
    ASSERT_TRUE(selector.select(key(7, 7), InstructionSetsIdentifier(), chosen).getResult());
    EXPECT_EQ(31U, chosen.getEfficiency());
    EXPECT_FALSE(selector.select(key(7, 7), sets(IS::eIS_FMA3), chosen).getResult());
}

TEST(AlgorithmFunctionSelector, ErrorsNameKeyAndSets)
{
    AlgorithmFunctionSelector selector;
    selector.registerFunction(row(key(2, 7), sets(IS::eIS_Generic), 0));
    AlgorithmFunctionIdentifier chosen;
    BoolResult result = selector.select(key(2, 7), sets(IS::eIS_AVX), chosen);
    EXPECT_FALSE(result.getResult());
    EXPECT_THAT(result.getMessage(), HasSubstr("data types u8 (2), f32 (7) with the forced instruction sets AVX:"));
    result = selector.select(key(8, 7), InstructionSetsIdentifier(), chosen);
    EXPECT_FALSE(result.getResult());
    EXPECT_EQ("there is no kernel for data types u8 (8), f32 (7)", result.getMessage());
}

TEST(AlgorithmFunctionSelector, RefusesRowsThatCannotBe)
{
    AlgorithmFunctionSelector selector;
    EXPECT_TRUE(selector.registerFunction(row(key(2, 7), sets(IS::eIS_Generic), 0)).getResult());
    EXPECT_THAT(selector.registerFunction(row(key(2, 7), sets(IS::eIS_Generic), 1)).getMessage(), HasSubstr("already"));
    EXPECT_THAT(selector.registerFunction(row(DataTypeIdentifierColl(), sets(IS::eIS_Generic), 0)).getMessage(),
                HasSubstr("no data types"));
    EXPECT_THAT(selector.registerFunction(row(key(2, 7), InstructionSetsIdentifier(), 0)).getMessage(),
                HasSubstr("names no instruction sets"));
    EXPECT_THAT(selector.registerFunction(row(key(2, 7), sets(static_cast<IS::domain>(9)), 0)).getMessage(),
                HasSubstr("does not have"));
    EXPECT_THAT(selector.registerFunction(row(key(2, 7), sets(static_cast<IS::domain>(-1)), 0)).getMessage(),
                HasSubstr("does not have"));
    AlgorithmFunctionIdentifier noFunction;
    noFunction.init(key(2, 7), sets(IS::eIS_SSE2), 0, nullptr);
    EXPECT_THAT(selector.registerFunction(noFunction).getMessage(), HasSubstr("has no function"));
    EXPECT_EQ(1U, selector.getFunctions().size());
}

TEST(AlgorithmFunctionSelector, IsSupportedAsksForEverySet)
{
    const AlgorithmFunctionSelector selector;
    EXPECT_TRUE(selector.isSupported(sets(IS::eIS_Generic)));
    EXPECT_FALSE(selector.isSupported(InstructionSetsIdentifier()));
    for (const IS::domain first : {IS::eIS_SSE2, IS::eIS_AVX, IS::eIS_FMA3, IS::eIS_AVX2, IS::eIS_AVX512})
    {
        for (const IS::domain second : {IS::eIS_SSE2, IS::eIS_AVX, IS::eIS_FMA3, IS::eIS_AVX2, IS::eIS_AVX512})
        {
            EXPECT_EQ(core::isAvailable(first) && core::isAvailable(second), selector.isSupported(sets(first, second)));
        }
    }
}

TEST(AlgorithmFunctionSelector, HoldsAFullTableOfThreeTypes)
{
    AlgorithmFunctionSelector selector;
    unsigned int nbRows = 0;
    for (const IS::domain set : {IS::eIS_Generic, IS::eIS_SSE2})
    {
        for (int first = 1; first <= 11; ++first)
        {
            for (int second = 1; second <= 11; ++second)
            {
                for (int third = 1; third <= 11; ++third)
                {
                    DataTypeIdentifierColl types;
                    types.init(ToyType(first), ToyType(second), ToyType(third));
                    ASSERT_TRUE(selector.registerFunction(row(types, sets(set), nbRows++)).getResult());
                }
            }
        }
    }
    ASSERT_EQ(2662U, selector.getFunctions().size());
    for (unsigned int i = 0; i < nbRows; ++i)
    {
        // In the order of registration, and each found by its key and sets.
        ASSERT_EQ(i, selector.getFunctions()[i].getEfficiency());
        AlgorithmFunctionIdentifier chosen;
        ASSERT_TRUE(
            selector.select(selector.getFunctions()[i].getDataTypes(), selector.getFunctions()[i].getInstructionSets(), chosen)
                .getResult());
        ASSERT_EQ(i, chosen.getEfficiency());
    }
}

TEST(ProcessingMessages, NumbersOfOtherLibrariesHaveTheirTexts)
{
    LogMessageFormater notInitialised(getKOVISBaseProcessingLogMessageManager());
    notInitialised.setMsgId("N5kovis9processor17eProcessorMessage6domainE", 33);
    notInitialised % std::string("ColorConvertImgLvl1");
    EXPECT_EQ("processor ColorConvertImgLvl1 must be initialised before its attributes are used", notInitialised.string());
    LogMessageFormater errors(getKOVISBaseProcessingLogMessageManager());
    errors.setMsgId("N5kovis9processor25eAlgorithmFunctionMessage6domainE", 12);
    errors % std::string("one\ntwo\n");
    EXPECT_EQ("Kernels could not be registered:\none\ntwo\n", errors.string());
}
} // namespace
