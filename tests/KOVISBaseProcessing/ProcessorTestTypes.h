#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseSyncProcessor.h"
#include "support/ToyProcessor.h"

namespace kovis::test
{
using Attributes = std::vector<boost::shared_ptr<processor::BaseAttribute>>;
using Initializers = std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>;

/// What a test makes of a processor. What is left empty does the plain thing.
struct ToyHooks
{
    std::vector<std::string> m_log;
    std::function<BoolResult()> m_init;
    std::function<BoolResult()> m_initializer; ///< of OutToy, once m_bInitializer is set
    bool m_bInitializer = false;
    std::function<BoolResult()> m_main;
    std::function<void(Attributes&, Initializers&)> m_spoil; ///< changes what initDerived made
    boost::shared_ptr<processor::BaseRule> m_rule;
};

/// Adds its inputs into its output.
class ToySyncProcessor : public ToyProcessor<ToySyncProcessor, processor::BaseSyncProcessor>
{
    KOVIS_TOY_NAMES(ToySyncProcessor)

public:
    ToyHooks m_hooks;
    boost::shared_ptr<InToy> m_in;
    boost::shared_ptr<InToy2> m_in2;
    boost::shared_ptr<OutOptToy> m_outOpt;
    boost::shared_ptr<OutToy> m_out;

    using BaseProcessor::globalCleanDerived;
    using BaseSyncProcessor::getProcessorType;

protected:
    BoolResult initDerived(Attributes& attributes, Initializers& initializers, processor::ProcessorDispatchPolicy& policy,
                           boost::shared_ptr<processor::BaseRule>& rule,
                           const processor::eProcessorRulePolicy& rulePolicy) override
    {
        if (m_hooks.m_init)
        {
            const BoolResult result = m_hooks.m_init();
            if (!result)
            {
                return result;
            }
        }
        m_in = boost::make_shared<InToy>();
        m_in2 = boost::make_shared<InToy2>();
        m_outOpt = boost::make_shared<OutOptToy>();
        m_out = boost::make_shared<OutToy>();
        attributes = {m_in, m_in2, m_outOpt, m_out};
        initializers.clear();
        if (m_hooks.m_bInitializer)
        {
            initializers["OutToy"] = boost::make_shared<ToyInitializer>(
                [this]
                {
                    m_hooks.m_log.push_back("initializer");
                    if (m_hooks.m_initializer)
                    {
                        return m_hooks.m_initializer();
                    }
                    m_out->init(toyValue(0));
                    return BoolResult(true);
                });
        }
        policy.initDefault();
        if (rulePolicy == processor::ePRP_Rules)
        {
            rule = m_hooks.m_rule;
        }
        if (m_hooks.m_spoil)
        {
            m_hooks.m_spoil(attributes, initializers);
        }
        return BoolResult(true);
    }
    BoolResult mainProcess() override
    {
        m_hooks.m_log.push_back("main");
        if (m_hooks.m_main)
        {
            return m_hooks.m_main();
        }
        *m_out->getStorage() = *m_in->getStorage() + *m_in2->getStorage();
        return BoolResult(true);
    }
    BoolResult endProcess() override
    {
        m_hooks.m_log.push_back("end");
        return BaseSyncProcessor::endProcess();
    }
};

/// A processor of three steps, each of which does what it is told.
class ToyStepProcessor : public ToyProcessor<ToyStepProcessor, processor::BaseAsync3Processor>
{
    KOVIS_TOY_NAMES(ToyStepProcessor)

public:
    using Step = std::function<processor::RetrievalResult(core::ActionProviderPtr&)>;
    std::vector<std::string> m_log;
    Step m_steps[3];
    boost::shared_ptr<OutToy> m_out;
    std::vector<std::pair<unsigned int, unsigned int>> m_stepNumbers;

    using BaseAsync3Processor::getProcessorType;
    using BaseAsync3Processor::setNbWorkingSteps;

protected:
    BoolResult initDerived(Attributes& attributes, Initializers& initializers, processor::ProcessorDispatchPolicy& policy,
                           boost::shared_ptr<processor::BaseRule>&, const processor::eProcessorRulePolicy&) override
    {
        m_out = boost::make_shared<OutToy>();
        attributes = {m_out};
        initializers["OutToy"] = boost::make_shared<ToyInitializer>(
            [this]
            {
                m_out->init(toyValue(0));
                return BoolResult(true);
            });
        policy.initDefault();
        return BoolResult(true);
    }
    BoolResult preProcess() override
    {
        m_log.push_back("pre");
        return BoolResult(true);
    }
    BoolResult postProcess() override
    {
        m_log.push_back("post");
        return BoolResult(true);
    }
    BoolResult endProcess() override
    {
        m_log.push_back("end");
        return BoolResult(true);
    }
    processor::RetrievalResult retrieveProvider(const core::BasePriority& priority, unsigned int step, unsigned int nbSteps,
                                                core::ActionProviderPtr& provider) override
    {
        m_stepNumbers.emplace_back(step, nbSteps);
        return BaseAsync3Processor::retrieveProvider(priority, step, nbSteps, provider);
    }
    processor::RetrievalResult retrieveFirstProvider(const core::BasePriority&, core::ActionProviderPtr& provider) override
    {
        return answer(0, provider);
    }
    processor::RetrievalResult retrieveSecondProvider(const core::BasePriority&, core::ActionProviderPtr& provider) override
    {
        return answer(1, provider);
    }
    processor::RetrievalResult retrieveThirdProvider(const core::BasePriority&, core::ActionProviderPtr& provider) override
    {
        return answer(2, provider);
    }

private:
    processor::RetrievalResult answer(unsigned int step, core::ActionProviderPtr& provider)
    {
        m_log.push_back("step " + std::to_string(step));
        return m_steps[step] ? m_steps[step](provider) : processor::RetrievalResult(processor::eRS_NoWork);
    }
};

/// What a sync processor needs for a run that goes well.
inline boost::shared_ptr<ToySyncProcessor> makeReadyProcessor(int first = 3, int second = 4)
{
    const auto processor = boost::make_shared<ToySyncProcessor>();
    processor->init();
    processor->set<InToy>(toyValue(first));
    processor->set<InToy2>(toyValue(second));
    processor->set<OutToy>(toyValue(0));
    return processor;
}

/// The message that a run throws as TException; empty if it throws none.
template <class TException>
std::string getRunFailure(const boost::shared_ptr<processor::BaseProcessor>& processor)
{
    try
    {
        processor::executeSyncRun(processor);
    }
    catch (const TException& e)
    {
        return e.what();
    }
    return std::string();
}
} // namespace kovis::test
