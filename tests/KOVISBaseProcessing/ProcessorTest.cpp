// One processor: init, the checks of a run in their order, outputs that are made and withdrawn, failures.
#include "ProcessorTestTypes.h"

#include "KOVIS/KOVISCore/KOVISCoreLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace
{
using namespace kovis;
using namespace kovis::test;
using core::KOVISCoreException;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(Processor, InitMakesTheAttributesInTheirOrder)
{
    ToySyncProcessor processor;
    EXPECT_FALSE(processor.isInitialised());
    EXPECT_TRUE(processor.getAttributeNameColl().empty());
    processor.m_hooks.m_rule = boost::make_shared<ToyRule>("rule", true);
    EXPECT_TRUE(processor.init().getResult());
    EXPECT_TRUE(processor.isInitialised());
    EXPECT_THAT(processor.getAttributeNameColl(), ElementsAre("InToy", "InToy2", "OutOptToy", "OutToy"));
    EXPECT_EQ(processor.m_in2, processor.getAttribute("InToy2"));
    EXPECT_EQ(nullptr, processor.getAttribute("InToy3"));
    EXPECT_EQ(processor.m_hooks.m_rule, processor.getRule());
    EXPECT_TRUE(processor.getDispatchPolicy().isSet());
    EXPECT_EQ(processor::eProcessorType::sync, processor.getProcessorType());
}

TEST(Processor, RulePolicyOneLeavesTheRuleEmpty)
{
    ToySyncProcessor processor;
    processor.m_hooks.m_rule = boost::make_shared<ToyRule>("rule", false);
    EXPECT_TRUE(processor.init(processor::ePRP_NoRules).getResult());
    EXPECT_EQ(nullptr, processor.getRule());
    EXPECT_EQ(4U, processor.getAttributeNameColl().size());
}

TEST(Processor, FailedInitLeavesItUninitialised)
{
    const auto processor = makeReadyProcessor();
    processor->m_hooks.m_init = [] { return BoolResult(false, "out of luck"); };
    const BoolResult result = processor->init();
    EXPECT_FALSE(result.getResult());
    EXPECT_EQ("out of luck", result.getMessage());
    EXPECT_FALSE(processor->isInitialised());
    EXPECT_TRUE(processor->getAttributeNameColl().empty());
    try
    {
        processor->set<InToy>(toyValue(1));
        FAIL();
    }
    catch (const processor::KOVISBaseProcessingException& e)
    {
        EXPECT_STREQ("processor ToySyncProcessor must be initialised before its attributes are used", e.what());
    }
    processor->m_hooks.m_init = nullptr;
    EXPECT_TRUE(processor->init().getResult());
    processor->set<InToy>(toyValue(1));

    processor->m_hooks.m_init = []() -> BoolResult { throw std::runtime_error("thrown in init"); };
    EXPECT_THROW(processor->init(), std::runtime_error);
    EXPECT_FALSE(processor->isInitialised());
}

TEST(Processor, InitRefusesWhatCannotBeUsed)
{
    ToySyncProcessor processor;
    processor.m_hooks.m_spoil = [](Attributes& attributes, Initializers&) { attributes[1].reset(); };
    EXPECT_THAT(processor.init().getMessage(), HasSubstr("made no attribute at place 1"));
    processor.m_hooks.m_spoil = [](Attributes& attributes, Initializers&) { attributes[1] = attributes[0]; };
    EXPECT_THAT(processor.init().getMessage(), HasSubstr("two attributes of the name InToy"));
    processor.m_hooks.m_spoil = [](Attributes&, Initializers& initializers) { initializers["OutToi"] = nullptr; };
    EXPECT_THAT(processor.init().getMessage(), HasSubstr("under the name OutToi"));
    EXPECT_FALSE(processor.isInitialised());
}

TEST(Processor, SecondInitReplacesTheAttributes)
{
    const auto processor = makeReadyProcessor();
    const auto first = processor->m_in;
    EXPECT_TRUE(processor->init().getResult());
    EXPECT_NE(first, processor->m_in);
    EXPECT_EQ(processor->m_in, processor->getAttribute("InToy"));
    EXPECT_EQ(nullptr, processor->getStorage<InToy>());
    EXPECT_EQ(4U, processor->getAttributeNameColl().size());
}

TEST(Processor, RunsInTheOrderInitializerRuleWorkEnd)
{
    const auto processor = boost::make_shared<ToySyncProcessor>();
    ToyHooks& hooks = processor->m_hooks;
    hooks.m_bInitializer = true;
    const auto rule = boost::make_shared<ToyRule>("rule", true);
    hooks.m_rule = rule;
    processor->init();
    processor->set<InToy>(toyValue(3));
    processor->set<InToy2>(toyValue(4));
    processor::executeSyncRun(processor);
    EXPECT_THAT(hooks.m_log, ElementsAre("initializer", "main", "end"));
    EXPECT_EQ(1, rule->m_nbTests);
    EXPECT_EQ(0, rule->m_nbTexts);
    ASSERT_NE(nullptr, processor->getStorage<OutToy>());
    EXPECT_EQ(7, *processor->getStorage<OutToy>());
    EXPECT_FALSE(processor->m_outOpt->isInitialised());
}

TEST(Processor, AGivenOutputIsNotMade)
{
    const auto processor = boost::make_shared<ToySyncProcessor>();
    processor->m_hooks.m_bInitializer = true;
    processor->init();
    processor->set<InToy>(toyValue(3));
    processor->set<InToy2>(toyValue(4));
    const auto out = toyValue(0);
    processor->set<OutToy>(out);
    processor::executeSyncRun(processor);
    EXPECT_THAT(processor->m_hooks.m_log, ElementsAre("main", "end"));
    EXPECT_EQ(out, processor->getStorage<OutToy>());
    EXPECT_EQ(7, *out);
}

TEST(Processor, MissingInputIsNamedBeforeAnythingIsMade)
{
    const auto processor = boost::make_shared<ToySyncProcessor>();
    processor->m_hooks.m_bInitializer = true;
    const auto rule = boost::make_shared<ToyRule>("rule", false);
    processor->m_hooks.m_rule = rule;
    processor->init();
    processor->set<InToy>(toyValue(3));
    EXPECT_EQ("input InToy2 of processor ToySyncProcessor is not set: set it before the run",
              getRunFailure<KOVISCoreException>(processor));
    processor->set<InToy2>(boost::shared_ptr<int>());
    EXPECT_EQ("input InToy2 of processor ToySyncProcessor is a null pointer: set it to an object before the run",
              getRunFailure<KOVISCoreException>(processor));
    EXPECT_TRUE(processor->m_hooks.m_log.empty());
    EXPECT_EQ(0, rule->m_nbTests);
}

TEST(Processor, OutputThatNothingMakesIsNamed)
{
    const auto processor = makeReadyProcessor();
    processor->m_out->clear();
    EXPECT_THAT(getRunFailure<KOVISCoreException>(processor),
                HasSubstr("output OutToy of processor ToySyncProcessor is not set"));
    processor->set<OutToy>(boost::shared_ptr<int>());
    EXPECT_THAT(
        getRunFailure<KOVISCoreException>(processor),
        HasSubstr("output OutToy of processor ToySyncProcessor is a null pointer: set it to an object before the run, or leave "
                  "it unset"));

    processor->m_hooks.m_bInitializer = true;
    processor->m_hooks.m_initializer = [] { return BoolResult(true); };
    processor->init();
    processor->set<InToy>(toyValue(3));
    processor->set<InToy2>(toyValue(4));
    EXPECT_THAT(getRunFailure<KOVISCoreException>(processor), HasSubstr("its initializer made none"));
    processor->m_hooks.m_initializer = [] { return BoolResult(false, "no memory today"); };
    EXPECT_EQ("no memory today", getRunFailure<KOVISCoreException>(processor));
    processor->m_hooks.m_initializer = []() -> BoolResult { throw std::length_error("too long"); };
    EXPECT_EQ("too long", getRunFailure<std::length_error>(processor));
}

TEST(Processor, RefusedRuleSpeaksItsEvaluatedString)
{
    const auto processor = boost::make_shared<ToySyncProcessor>();
    processor->m_hooks.m_bInitializer = true;
    processor->m_hooks.m_rule = boost::make_shared<ToyRule>("size match", false);
    processor->init();
    processor->set<InToy>(toyValue(3));
    processor->set<InToy2>(toyValue(4));
    EXPECT_EQ("size match with values", getRunFailure<KOVISCoreException>(processor));
    // The rule reads outputs, so they are made before it, and taken out after it.
    EXPECT_THAT(processor->m_hooks.m_log, ElementsAre("initializer"));
    EXPECT_EQ(nullptr, processor->getStorage<OutToy>());
    EXPECT_FALSE(processor->m_out->isInitialised());
}

TEST(Processor, FailedWorkTakesOutWhatWasMadeAndLeavesWhatWasGiven)
{
    const auto processor = boost::make_shared<ToySyncProcessor>();
    ToyHooks& hooks = processor->m_hooks;
    hooks.m_bInitializer = true;
    hooks.m_main = [] { return BoolResult(false, "kernel broke"); };
    processor->init();
    processor->set<InToy>(toyValue(3));
    processor->set<InToy2>(toyValue(4));
    EXPECT_EQ("kernel broke", getRunFailure<KOVISCoreException>(processor));
    EXPECT_EQ(nullptr, processor->getStorage<OutToy>());
    EXPECT_EQ(3, *processor->getStorage<InToy>());

    const auto given = toyValue(5);
    processor->set<OutToy>(given);
    EXPECT_EQ("kernel broke", getRunFailure<KOVISCoreException>(processor));
    EXPECT_EQ(given, processor->getStorage<OutToy>());

    // What is set while the run is under way is the caller's too.
    processor->m_out->clear();
    hooks.m_main = [&]
    {
        processor->set<OutToy>(given);
        return BoolResult(false, "kernel broke");
    };
    EXPECT_EQ("kernel broke", getRunFailure<KOVISCoreException>(processor));
    EXPECT_EQ(given, processor->getStorage<OutToy>());

    hooks.m_main = nullptr;
    processor->m_out->clear();
    processor::executeSyncRun(processor);
    EXPECT_EQ(7, *processor->getStorage<OutToy>());

    // A later failure does not take out what an earlier run made.
    hooks.m_main = [] { return BoolResult(false, "kernel broke"); };
    EXPECT_EQ("kernel broke", getRunFailure<KOVISCoreException>(processor));
    EXPECT_EQ(7, *processor->getStorage<OutToy>());
}

TEST(Processor, FailureWithoutAReasonNamesTheProcessor)
{
    const auto processor = makeReadyProcessor();
    processor->m_hooks.m_main = [] { return BoolResult(false); };
    EXPECT_EQ("the work of processor ToySyncProcessor failed, and gave no reason", getRunFailure<KOVISCoreException>(processor));
}

TEST(Processor, AnExceptionOfTheWorkTravelsUnchanged)
{
    struct OwnError
    {
        int m_number;
    };
    const auto processor = makeReadyProcessor();
    processor->m_hooks.m_main = []() -> BoolResult { throw OwnError{42}; };
    try
    {
        processor::executeSyncRun(processor);
        FAIL();
    }
    catch (const OwnError& e)
    {
        EXPECT_EQ(42, e.m_number);
    }
    processor->m_hooks.m_main = nullptr;
    processor::executeSyncRun(processor);
    EXPECT_EQ(7, *processor->getStorage<OutToy>());
}

TEST(Processor, RunsOfNothingAndOfTheUninitialisedAreRefused)
{
    EXPECT_THAT(getRunFailure<processor::KOVISBaseProcessingException>(nullptr), HasSubstr("there is no processor to run"));
    const auto processor = boost::make_shared<ToySyncProcessor>();
    EXPECT_EQ("processor ToySyncProcessor must be initialised before its attributes are used",
              getRunFailure<processor::KOVISBaseProcessingException>(processor));
    const BoolResult result = processor->run(core::eST_Synchronous);
    EXPECT_FALSE(result.getResult());
    EXPECT_EQ("processor ToySyncProcessor must be initialised before its attributes are used", result.getMessage());
}

TEST(Processor, InitIsRefusedDuringARun)
{
    const auto processor = makeReadyProcessor();
    std::promise<void> begun;
    std::promise<void> goOn;
    processor->m_hooks.m_main = [&]
    {
        begun.set_value();
        goOn.get_future().wait();
        return BoolResult(true);
    };
    EXPECT_TRUE(processor->run(core::eST_Asynchronous).getResult());
    begun.get_future().wait();
    const BoolResult result = processor->init();
    EXPECT_FALSE(result.getResult());
    EXPECT_EQ("processor ToySyncProcessor cannot be initialised while a run of it is under way: wait for its end first",
              result.getMessage());
    EXPECT_TRUE(processor->isInitialised());
    goOn.set_value();
    EXPECT_TRUE(processor->wait().getResult());
    EXPECT_TRUE(processor->init().getResult());
}

TEST(Processor, GlobalCleanDropsAllValues)
{
    const auto processor = makeReadyProcessor();
    processor->globalCleanDerived();
    EXPECT_FALSE(processor->m_in->isInitialised());
    EXPECT_FALSE(processor->m_out->isInitialised());
    EXPECT_TRUE(processor->isInitialised());
}

TEST(Processor, AttributeStorageIsSafeFromManyThreads)
{
    InToy attribute;
    std::vector<std::thread> threads;
    std::atomic<int> nbBad{0};
    for (int i = 0; i < 4; ++i)
    {
        threads.emplace_back(
            [&attribute, &nbBad, i]
            {
                for (int round = 0; round < 2000; ++round)
                {
                    attribute.init(toyValue(i));
                    const boost::shared_ptr<int> value = attribute.getStorage();
                    nbBad += value != nullptr && (*value < 0 || *value > 3) ? 1 : 0;
                    if (round % 7 == 0)
                    {
                        attribute.clear();
                    }
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(0, nbBad);
    // 2000 values and 286 drops from each thread.
    EXPECT_EQ(4UL * (2000 + 286), attribute.getNbChanges());
}
} // namespace
