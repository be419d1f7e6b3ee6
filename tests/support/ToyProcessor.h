#pragma once

// Processors for tests of the framework: attributes of plain values, and a base that has what every processor class repeats.

#include "KOVIS/KOVISBaseProcessing/BaseAsyncProcessor.h"
#include "KOVIS/KOVISBaseProcessing/BaseProcessor.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISBaseProcessing/PointerStorage.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <boost/make_shared.hpp>

#include <atomic>
#include <cstddef>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kovis::test
{
/// Gives an attribute class its names. The tool tip is the name with "tip of " before it.
#define KOVIS_TOY_NAMES(NAME)                                                                                                    \
public:                                                                                                                          \
    static const std::string& getObjectNameStr()                                                                                 \
    {                                                                                                                            \
        static const std::string g_name(#NAME);                                                                                  \
        return g_name;                                                                                                           \
    }                                                                                                                            \
    static const std::string& getToolTipStr()                                                                                    \
    {                                                                                                                            \
        static const std::string g_toolTip("tip of " #NAME);                                                                     \
        return g_toolTip;                                                                                                        \
    }                                                                                                                            \
    const std::string& getObjectName() const override                                                                            \
    {                                                                                                                            \
        return getObjectNameStr();                                                                                               \
    }                                                                                                                            \
    const std::string& getToolTip() const override                                                                               \
    {                                                                                                                            \
        return getToolTipStr();                                                                                                  \
    }

/// An attribute that holds a shared pointer to an int.
template <bool t_bOutput, bool t_bMandatory>
class ToyAttribute : public processor::PointerStorage<processor::BaseAttribute, int>
{
public:
    using StorageType = boost::shared_ptr<int>;
    static constexpr bool g_bOutput = t_bOutput;

    processor::eAttributeType getAttributeType() const override { return processor::eAT_DataItem; }
    bool isOutput() const override { return t_bOutput; }
    bool isMandatory() const override { return t_bMandatory; }
    void init(const StorageType& value) { setPointer(value); }
    StorageType getStorage() const { return getPointer(); }
};

class InToy : public ToyAttribute<false, true>
{
    KOVIS_TOY_NAMES(InToy)
};
class InToy2 : public ToyAttribute<false, true>
{
    KOVIS_TOY_NAMES(InToy2)
};
class OutOptToy : public ToyAttribute<true, false>
{
    KOVIS_TOY_NAMES(OutOptToy)
};
class OutToy : public ToyAttribute<true, true>
{
    KOVIS_TOY_NAMES(OutToy)
};

inline boost::shared_ptr<int> toyValue(int value)
{
    return boost::make_shared<int>(value);
}

/// What every processor class repeats, over the framework's base TBase.
template <class TDerived, class TBase>
class ToyProcessor : public TBase
{
public:
    const std::string& getClassName() const override { return TDerived::getObjectNameStr(); }
    BaseDynamicObject* createNew() const override { return new TDerived(); }
    DynamicObjectPtr createShared() const override { return boost::make_shared<TDerived>(); }
    bool hasCopySupport() const override { return false; }
    BaseDynamicObject* duplicate() const override { throw std::logic_error("no copy"); }
    DynamicObjectPtr duplicateShared() const override { throw std::logic_error("no copy"); }
    void copy(const BaseDynamicObject&) override { throw std::logic_error("no copy"); }

    template <class TAttribute>
    void set(const typename TAttribute::StorageType& value)
    {
        get<TAttribute>().init(value);
    }
    template <class TAttribute>
    typename TAttribute::StorageType getStorage() const
    {
        return get<TAttribute>().getStorage();
    }

private:
    template <class TAttribute>
    TAttribute& get() const
    {
        if (!this->isInitialised())
        {
            throwMessage<processor::KOVISBaseProcessingException>(
                processor::getKOVISBaseProcessingLogMessageManager(), processor::getKOVISBaseProcessingLogger(),
                processor::eProcessorMessage::ePM_NotInitialised, {"ToyProcessor::get", "ToyProcessor.h", __LINE__},
                this->getObjectName());
        }
        return dynamic_cast<TAttribute&>(*this->getAttribute(TAttribute::getObjectNameStr()));
    }
};

/// An output initializer that does what it is told.
class ToyInitializer : public processor::BaseOutputInitializer
{
public:
    explicit ToyInitializer(std::function<BoolResult()> work) : m_work(std::move(work)) {}
    BoolResult initOutputAttribute() override { return m_work(); }

private:
    const std::function<BoolResult()> m_work;
};

/// A rule that does what it is told and counts how often it was tested.
class ToyRule : public processor::BaseRule
{
public:
    ToyRule(std::string text, bool bHolds) : m_text(std::move(text)), m_bHolds(bHolds) {}

    processor::eRuleType getRuleType() const override { return processor::eRT_Constant; }
    bool testRule() const override
    {
        ++m_nbTests;
        return m_bHolds;
    }
    std::string createRuleFormalString() const override { return m_text; }
    std::string createRuleEvaluatedString(unsigned int indentation) const override
    {
        ++m_nbTexts;
        return createRuleEvaluatedStartString(indentation) + m_text + " with values";
    }

    const std::string m_text;
    const bool m_bHolds;
    mutable int m_nbTests = 0;
    mutable int m_nbTexts = 0;
};

/// A provider that gives out the actions that it was made with.
class ToyProvider : public core::BaseActionProvider
{
public:
    explicit ToyProvider(std::vector<boost::shared_ptr<core::BaseAction>> actions) : m_actions(std::move(actions))
    {
        m_nbPendingActions = m_actions.size();
    }

    BoolResult queryNextAction(const core::BaseRequestOrigin&, boost::shared_ptr<core::BaseActionRequest>& request, bool& bGiven,
                               boost::shared_ptr<BaseSerializationObject>&) override
    {
        const std::size_t place = isCancellationRequested() ? m_actions.size() : m_next.fetch_add(1);
        bGiven = place < m_actions.size();
        if (bGiven)
        {
            request = boost::make_shared<core::BaseActionRequest>(m_actions[place], ElementsRange(place, place + 1),
                                                                  1.0 / static_cast<double>(m_actions.size()));
        }
        return BoolResult(true);
    }
    bool hasPendingAction() const override { return !isCancellationRequested() && m_next < m_actions.size(); }
    BoolResult notifyDerived(const boost::shared_ptr<core::BaseActionRequest>&,
                             const boost::shared_ptr<const BaseSerializationObject>&, bool& bFinished) override
    {
        bFinished = m_nbNotified.fetch_add(1) + 1 == m_actions.size();
        return BoolResult(true);
    }
    void clearDerived() override { m_next = m_actions.size(); }

private:
    const std::vector<boost::shared_ptr<core::BaseAction>> m_actions;
    std::atomic<std::size_t> m_next{0};
    std::atomic<std::size_t> m_nbNotified{0};
};
} // namespace kovis::test
