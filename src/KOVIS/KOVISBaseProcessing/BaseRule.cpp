#include "KOVIS/KOVISBaseProcessing/BaseRule.h"

#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"

#include <boost/make_shared.hpp>

namespace kovis::processor
{
namespace
{
class RuleAnd : public BaseRule
{
public:
    RuleAnd(const boost::shared_ptr<BaseRule>& first, const boost::shared_ptr<BaseRule>& second)
        : m_first(first), m_second(second)
    {
    }

    eRuleType getRuleType() const override { return eRT_Combination; }
    bool testRule() const override { return m_first->testRule() && m_second->testRule(); }
    std::string createRuleFormalString() const override
    {
        return processingText(eRuleMessage::eRM_And, m_first->createRuleFormalString(), m_second->createRuleFormalString());
    }
    std::string createRuleEvaluatedString(unsigned int indentation) const override
    {
        if (!m_first->testRule())
        {
            return m_first->createRuleEvaluatedString(indentation);
        }
        const std::string second = m_second->createRuleEvaluatedString(indentation);
        return m_second->testRule() ? m_first->createRuleEvaluatedString(indentation) + "\n" + second : second;
    }

private:
    const boost::shared_ptr<BaseRule> m_first;
    const boost::shared_ptr<BaseRule> m_second;
};

class RuleIf : public BaseRule
{
public:
    RuleIf(const boost::shared_ptr<BaseRule>& condition, const boost::shared_ptr<BaseRule>& thenRule,
           const boost::shared_ptr<BaseRule>& elseRule)
        : m_condition(condition), m_then(thenRule), m_else(elseRule)
    {
    }

    eRuleType getRuleType() const override { return eRT_Combination; }
    bool testRule() const override { return getBranch().testRule(); }
    std::string createRuleFormalString() const override
    {
        return processingText(eRuleMessage::eRM_If, m_condition->createRuleFormalString(), m_then->createRuleFormalString(),
                              m_else->createRuleFormalString());
    }
    std::string createRuleEvaluatedString(unsigned int indentation) const override
    {
        return getBranch().createRuleEvaluatedString(indentation);
    }

private:
    const BaseRule& getBranch() const { return m_condition->testRule() ? *m_then : *m_else; }

    const boost::shared_ptr<BaseRule> m_condition;
    const boost::shared_ptr<BaseRule> m_then;
    const boost::shared_ptr<BaseRule> m_else;
};

class RuleNone : public BaseRule
{
public:
    eRuleType getRuleType() const override { return eRT_Constant; }
    bool testRule() const override { return true; }
    std::string createRuleFormalString() const override { return processingText(eRuleMessage::eRM_None); }
    std::string createRuleEvaluatedString(unsigned int indentation) const override
    {
        return createRuleEvaluatedStartString(indentation) + createRuleFormalString();
    }
};

void checkNotEmpty(const boost::shared_ptr<BaseRule>& rule, const char* builder, const SourcePlace& place)
{
    if (rule == nullptr)
    {
        throwProcessingMessage(eRuleMessage::eRM_EmptyRule, place, builder);
    }
}

boost::shared_ptr<const BaseAttribute> lockAttribute(bool bInitialised, const boost::weak_ptr<const BaseAttribute>& attribute,
                                                     const SourcePlace& place)
{
    if (!bInitialised)
    {
        throwProcessingMessage(eRuleMessage::eRM_NotInitialised, place);
    }
    const boost::shared_ptr<const BaseAttribute> locked = attribute.lock();
    if (locked == nullptr)
    {
        throwProcessingMessage(eRuleMessage::eRM_AttributeGone, place);
    }
    return locked;
}
} // namespace

BaseRule::BaseRule() = default;
BaseRule::~BaseRule() = default;

std::string BaseRule::createRuleEvaluatedStartString(unsigned int indentation) const
{
    return std::string(2UL * indentation, ' ');
}

BaseAttributeRule::BaseAttributeRule() = default;
BaseAttributeRule::~BaseAttributeRule() = default;

eRuleType BaseAttributeRule::getRuleType() const
{
    return eRT_Attribute;
}

void BaseAttributeRule::initBase(const boost::weak_ptr<const BaseAttribute>& first,
                                 const boost::weak_ptr<const BaseAttribute>& second)
{
    m_attribute1 = first;
    m_attribute2 = second;
    m_bInitialised = true;
}

boost::shared_ptr<const BaseAttribute> BaseAttributeRule::getAttribute1() const
{
    return lockAttribute(
        m_bInitialised, m_attribute1,
        {"boost::shared_ptr<const kovis::processor::BaseAttribute> kovis::processor::BaseAttributeRule::getAttribute1() const",
         "KOVIS/KOVISBaseProcessing/BaseRule.cpp", __LINE__});
}

boost::shared_ptr<const BaseAttribute> BaseAttributeRule::getAttribute2() const
{
    return lockAttribute(
        m_bInitialised, m_attribute2,
        {"boost::shared_ptr<const kovis::processor::BaseAttribute> kovis::processor::BaseAttributeRule::getAttribute2() const",
         "KOVIS/KOVISBaseProcessing/BaseRule.cpp", __LINE__});
}

BaseOptionalRule::BaseOptionalRule() = default;
BaseOptionalRule::~BaseOptionalRule() = default;

eAttributeRuleType BaseOptionalRule::getAttributeRuleType() const
{
    return eART_Optional;
}

RuleOptionalIsSet::RuleOptionalIsSet() = default;
RuleOptionalIsSet::~RuleOptionalIsSet() = default;

void RuleOptionalIsSet::init(const boost::weak_ptr<const BaseAttribute>& attribute)
{
    initBase(attribute, boost::weak_ptr<const BaseAttribute>());
}

bool RuleOptionalIsSet::testRule() const
{
    return getAttribute1()->isUsable();
}

std::string RuleOptionalIsSet::createRuleFormalString() const
{
    return processingText(eRuleMessage::eRM_OptionalIsSet, getAttribute1()->getObjectName());
}

std::string RuleOptionalIsSet::createRuleEvaluatedString(unsigned int indentation) const
{
    const boost::shared_ptr<const BaseAttribute> attribute = getAttribute1();
    return createRuleEvaluatedStartString(indentation) + processingText(eRuleMessage::eRM_OptionalEvaluated,
                                                                        attribute->getObjectName(),
                                                                        attribute->isUsable() ? "is set" : "is not set");
}

boost::shared_ptr<BaseRule> operator&&(const boost::shared_ptr<BaseRule>& first, const boost::shared_ptr<BaseRule>& second)
{
    const SourcePlace place{
        "boost::shared_ptr<kovis::processor::BaseRule> kovis::processor::operator&&(const "
        "boost::shared_ptr<kovis::processor::BaseRule>&, const boost::shared_ptr<kovis::processor::BaseRule>&)",
        "KOVIS/KOVISBaseProcessing/BaseRule.cpp", __LINE__};
    checkNotEmpty(first, "operator&&", place);
    checkNotEmpty(second, "operator&&", place);
    return boost::make_shared<RuleAnd>(first, second);
}

boost::shared_ptr<BaseRule> If(const boost::shared_ptr<BaseRule>& condition, const boost::shared_ptr<BaseRule>& thenRule,
                               const boost::shared_ptr<BaseRule>& elseRule)
{
    const SourcePlace place{
        "boost::shared_ptr<kovis::processor::BaseRule> kovis::processor::If(const "
        "boost::shared_ptr<kovis::processor::BaseRule>&, const "
        "boost::shared_ptr<kovis::processor::BaseRule>&, const boost::shared_ptr<kovis::processor::BaseRule>&)",
        "KOVIS/KOVISBaseProcessing/BaseRule.cpp", __LINE__};
    checkNotEmpty(condition, "If", place);
    checkNotEmpty(thenRule, "If", place);
    checkNotEmpty(elseRule, "If", place);
    return boost::make_shared<RuleIf>(condition, thenRule, elseRule);
}

boost::shared_ptr<BaseRule> none()
{
    return boost::make_shared<RuleNone>();
}
} // namespace kovis::processor
