// A kernel's call: which row runs, what it is handed, and that parsers are cleared whatever happens.
#include "ProcessorTestTypes.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessingAlgorithm.h"
#include "KOVIS/KOVISCore/KOVISCoreLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace
{
using namespace kovis;
using namespace kovis::test;
using namespace kovis::processor;
using core::KOVISCoreException;
using testing::ElementsAre;
using testing::HasSubstr;

class ToyParser : public BaseDataParser
{
public:
    ToyParser(std::vector<std::string>& log, unsigned long nbElements, unsigned long nbExactElements)
        : m_log(log), m_nbElements(nbElements), m_nbExactElements(nbExactElements)
    {
    }
    void clear() override { m_log.push_back("clear"); }
    unsigned long getNbElements() const override { return m_nbElements; }
    unsigned long getNbExactElements() const override { return m_nbExactElements; }
    void commit() override { m_log.push_back("commit"); }

private:
    std::vector<std::string>& m_log;
    const unsigned long m_nbElements;
    const unsigned long m_nbExactElements;
};

class ToyType : public BaseDataTypeIdentifier
{
public:
    int getId() const override { return 7; }
    const char* getName() const override { return "f32"; }
};

class ToyAlgorithm : public ToyProcessor<ToyAlgorithm, BaseProcessingAlgorithm>
{
    KOVIS_TOY_NAMES(ToyAlgorithm)

public:
    std::vector<std::string> m_log;
    std::vector<boost::shared_ptr<BaseDataParser>> m_parsers;
    std::function<BoolResult()> m_kernel;
    ProcessingInfo m_info;
    std::pair<unsigned long, unsigned long> m_noParse{0, 0};
    InstructionSetsIdentifier m_forced;
    AlgorithmFunctionSelector m_selector;

    void addRow()
    {
        DataTypeIdentifierColl types;
        types.init(ToyType());
        InstructionSetsIdentifier generic;
        generic.init(eInstructionSet::eIS_Generic);
        AlgorithmFunctionIdentifier row;
        row.init(types, generic, 0, static_cast<AlgorithmFunctionIdentifier::Function>(&ToyAlgorithm::runKernel));
        m_selector.registerFunction(row);
    }
    ProcessingResult<bool> runKernel(const ProcessingInfo& info)
    {
        m_log.push_back("kernel");
        m_info = info;
        return m_kernel ? m_kernel() : BoolResult(true);
    }

protected:
    BoolResult initDerived(Attributes& attributes, Initializers&, ProcessorDispatchPolicy&, boost::shared_ptr<BaseRule>&,
                           const eProcessorRulePolicy&) override
    {
        attributes.clear();
        return BoolResult(true);
    }
    const AlgorithmFunctionSelector& getFunctionSelector() const override { return m_selector; }
    const InstructionSetsIdentifier& getForcedInstructionSets() const override { return m_forced; }
    void getDataTypeIdColl(DataTypeIdentifierColl& types) const override { types.init(ToyType()); }
    void initDataParserColl(std::vector<boost::shared_ptr<BaseDataParser>>& parsers) override
    {
        m_log.push_back("parsers");
        parsers = m_parsers;
    }
    void clearDataParserColl() override { m_log.push_back("clear all"); }
    BoolResult preProcess() override
    {
        m_log.push_back("pre");
        return BaseProcessingAlgorithm::preProcess();
    }
    BoolResult postProcess() override
    {
        m_log.push_back("post");
        return BaseProcessingAlgorithm::postProcess();
    }
    void getNoParseInfo(unsigned long& nbElements, unsigned long& nbExactElements, unsigned long& firstElement) const override
    {
        BaseProcessingAlgorithm::getNoParseInfo(nbElements, nbExactElements, firstElement);
        EXPECT_EQ(0U, nbElements + nbExactElements + firstElement);
        nbElements = m_noParse.first;
        nbExactElements = m_noParse.second;
    }
};

boost::shared_ptr<ToyAlgorithm> makeAlgorithm()
{
    const auto algorithm = boost::make_shared<ToyAlgorithm>();
    algorithm->addRow();
    algorithm->init();
    return algorithm;
}

void addParser(ToyAlgorithm& algorithm, unsigned long nbElements, unsigned long nbExactElements)
{
    algorithm.m_parsers.push_back(boost::make_shared<ToyParser>(std::ref(algorithm.m_log), nbElements, nbExactElements));
}

TEST(ProcessingAlgorithm, CallsTheKernelWithTheParsersCounts)
{
    const auto algorithm = makeAlgorithm();
    addParser(*algorithm, 128, 100);
    addParser(*algorithm, 128, 100);
    executeSyncRun(algorithm);
    EXPECT_THAT(algorithm->m_log, ElementsAre("pre", "parsers", "kernel", "commit", "commit", "clear all", "post"));
    EXPECT_EQ(128U, algorithm->m_info.m_nbElements);
    EXPECT_EQ(100U, algorithm->m_info.m_nbExactElements);
}

TEST(ProcessingAlgorithm, NothingIsCalledForNoElements)
{
    const auto algorithm = makeAlgorithm();
    addParser(*algorithm, 0, 0);
    executeSyncRun(algorithm);
    EXPECT_THAT(algorithm->m_log, ElementsAre("pre", "parsers", "clear all", "post"));
}

TEST(ProcessingAlgorithm, AKernelWithoutParsersIsToldByTheClass)
{
    const auto algorithm = makeAlgorithm();
    algorithm->m_noParse = {64, 50};
    executeSyncRun(algorithm);
    EXPECT_THAT(algorithm->m_log, ElementsAre("pre", "parsers", "kernel", "clear all", "post"));
    EXPECT_EQ(64U, algorithm->m_info.m_nbElements);
    EXPECT_EQ(50U, algorithm->m_info.m_nbExactElements);
}

TEST(ProcessingAlgorithm, ParsersThatDisagreeOrAreMissingAreErrors)
{
    const auto algorithm = makeAlgorithm();
    addParser(*algorithm, 128, 100);
    addParser(*algorithm, 128, 101);
    EXPECT_EQ("the attributes of processor ToyAlgorithm do not cover the same elements: the first has 128, of which 100 exact, "
              "the one at place "
              "1, counted from 0, has 128, of which 101 exact",
              getRunFailure<KOVISCoreException>(algorithm));
    EXPECT_THAT(algorithm->m_log, ElementsAre("pre", "parsers", "clear all"));
    algorithm->m_parsers[1].reset();
    EXPECT_THAT(getRunFailure<KOVISCoreException>(algorithm), HasSubstr("there is no parser at place 1"));
}

TEST(ProcessingAlgorithm, ParsersAreClearedWhenTheKernelFails)
{
    const auto algorithm = makeAlgorithm();
    addParser(*algorithm, 64, 64);
    algorithm->m_kernel = [] { return BoolResult(false, "out of range"); };
    EXPECT_EQ("out of range", getRunFailure<KOVISCoreException>(algorithm));
    EXPECT_THAT(algorithm->m_log, ElementsAre("pre", "parsers", "kernel", "clear all"));
    algorithm->m_log.clear();
    algorithm->m_kernel = []() -> BoolResult { throw std::overflow_error("too much"); };
    EXPECT_EQ("too much", getRunFailure<std::overflow_error>(algorithm));
    EXPECT_THAT(algorithm->m_log, ElementsAre("pre", "parsers", "kernel", "clear all"));
}

TEST(ProcessingAlgorithm, NoRowForTheForcedSetsEndsTheRunBeforeTheParsers)
{
    const auto algorithm = makeAlgorithm();
    algorithm->m_forced.init(eInstructionSet::eIS_SSE2);
    EXPECT_THAT(getRunFailure<KOVISCoreException>(algorithm),
                HasSubstr("data types f32 (7) with the forced instruction sets SSE2"));
    EXPECT_TRUE(algorithm->m_log.empty());
    algorithm->m_forced.clear();
    executeSyncRun(algorithm);
    EXPECT_EQ(5U, algorithm->m_log.size());
}
} // namespace
