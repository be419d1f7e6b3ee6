// Rules: combinations evaluate what decides and nothing else, and attributes are not kept alive.
#include "KOVIS/KOVISBaseProcessing/BaseDataItemAttribute.h"
#include "KOVIS/KOVISBaseProcessing/BaseDataItemRule.h"
#include "KOVIS/KOVISBaseProcessing/BaseRule.h"
#include "support/ToyProcessor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

// A namespace that sees the framework's operators by the types of their arguments alone.
namespace elsewhere
{
using RulePtr = boost::shared_ptr<kovis::processor::BaseRule>;

RulePtr joinAll(const RulePtr& first, const RulePtr& second, const RulePtr& third)
{
    static_assert(std::is_same_v<RulePtr, decltype(first && second && third)>);
    return first && second && third;
}
} // namespace elsewhere

namespace
{
using namespace kovis;
using namespace kovis::test;
using namespace kovis::processor;
using testing::HasSubstr;

boost::shared_ptr<ToyRule> rule(const std::string& text, bool bHolds)
{
    return boost::make_shared<ToyRule>(text, bHolds);
}

TEST(Rule, AndStopsAtTheFirstThatFailsAndNamesItAlone)
{
    const auto first = rule("first", true);
    const auto second = rule("second", false);
    const auto third = rule("third", false);
    const boost::shared_ptr<BaseRule> all = elsewhere::joinAll(first, second, third);
    EXPECT_EQ(eRT_Combination, all->getRuleType());
    EXPECT_FALSE(all->testRule());
    EXPECT_EQ(1, first->m_nbTests);
    EXPECT_EQ(1, second->m_nbTests);
    EXPECT_EQ(0, third->m_nbTests);
    EXPECT_EQ("    second with values", all->createRuleEvaluatedString(2));
    EXPECT_EQ(0, third->m_nbTests);
    EXPECT_EQ(0, first->m_nbTexts);
    EXPECT_EQ(0, third->m_nbTexts);
    EXPECT_EQ("first and second and third", all->createRuleFormalString());
}

TEST(Rule, AndHoldsIfAllHold)
{
    const boost::shared_ptr<BaseRule> both =
        boost::shared_ptr<BaseRule>(rule("first", true)) && boost::shared_ptr<BaseRule>(rule("second", true));
    EXPECT_TRUE(both->testRule());
    EXPECT_EQ("first with values\nsecond with values", both->createRuleEvaluatedString(0));
}

TEST(Rule, IfEvaluatesOnlyTheBranchTaken)
{
    for (const bool bCondition : {true, false})
    {
        const auto condition = rule("condition", bCondition);
        const auto thenRule = rule("then", false);
        const auto elseRule = rule("else", true);
        const boost::shared_ptr<BaseRule> either = If(condition, thenRule, elseRule);
        EXPECT_EQ(!bCondition, either->testRule());
        EXPECT_EQ(bCondition ? 1 : 0, thenRule->m_nbTests);
        EXPECT_EQ(bCondition ? 0 : 1, elseRule->m_nbTests);
        EXPECT_EQ(bCondition ? "then with values" : "else with values", either->createRuleEvaluatedString(0));
        EXPECT_EQ(bCondition ? 0 : 1, elseRule->m_nbTexts);
        EXPECT_EQ("if condition then then, else else", either->createRuleFormalString());
    }
}

TEST(Rule, NoneAlwaysHolds)
{
    EXPECT_TRUE(none()->testRule());
    EXPECT_EQ(eRT_Constant, none()->getRuleType());
    EXPECT_EQ("nothing is demanded", none()->createRuleFormalString());
    EXPECT_EQ("  nothing is demanded", none()->createRuleEvaluatedString(1));
}

TEST(Rule, EmptyPartsAreRefused)
{
    const boost::shared_ptr<BaseRule> empty;
    EXPECT_THROW(none() && empty, KOVISBaseProcessingException);
    EXPECT_THROW(empty && none(), KOVISBaseProcessingException);
    EXPECT_THROW(If(none(), none(), empty), KOVISBaseProcessingException);
    EXPECT_THROW(If(empty, none(), none()), KOVISBaseProcessingException);
}

TEST(Rule, OptionalIsSetTellsAValueFromNone)
{
    const auto attribute = boost::make_shared<OutOptToy>();
    RuleOptionalIsSet isSet;
    isSet.init(boost::weak_ptr<const BaseAttribute>(attribute));
    EXPECT_EQ(eRT_Attribute, isSet.getRuleType());
    EXPECT_EQ(eART_Optional, isSet.getAttributeRuleType());
    EXPECT_FALSE(isSet.testRule());
    EXPECT_EQ("optional attribute OutOptToy [is not set] has to be set", isSet.createRuleEvaluatedString(0));
    attribute->init(boost::shared_ptr<int>());
    EXPECT_FALSE(isSet.testRule());
    attribute->init(toyValue(1));
    EXPECT_TRUE(isSet.testRule());
    EXPECT_EQ("optional attribute OutOptToy is set", isSet.createRuleFormalString());
}

TEST(Rule, AttributesThatAreGoneOrNeverGivenThrow)
{
    RuleOptionalIsSet isSet;
    try
    {
        isSet.testRule();
        FAIL();
    }
    catch (const KOVISBaseProcessingException& e)
    {
        EXPECT_THAT(e.what(), HasSubstr("Initialise a rule"));
    }
    isSet.init(boost::weak_ptr<const BaseAttribute>(boost::make_shared<OutOptToy>()));
    try
    {
        isSet.createRuleEvaluatedString(0);
        FAIL();
    }
    catch (const KOVISBaseProcessingException& e)
    {
        EXPECT_THAT(e.what(), HasSubstr("Attribute weak pointer has expired"));
    }
}

class ToyNode : public BaseDataItemNode
{
};

class InToyNode : public PointerStorage<BaseInputMandatoryDataItemAttribute, const ToyNode>
{
    KOVIS_TOY_NAMES(InToyNode)

public:
    void init(const boost::shared_ptr<const ToyNode>& node) { setPointer(node); }
    boost::shared_ptr<const BaseDataItemNode> accessDataItemNodePtr() const override { return getPointer(); }
};

class ToyNodeRule : public BaseDataItemRule
{
public:
    bool testRule() const override { return getDataItemNode1() == getDataItemNode2(); }
    std::string createRuleFormalString() const override { return "same node"; }
    std::string createRuleEvaluatedString(unsigned int) const override { return "same node"; }
};

TEST(Rule, DataItemRulesReachTheNodes)
{
    const auto first = boost::make_shared<InToyNode>();
    const auto second = boost::make_shared<InToyNode>();
    const auto other = boost::make_shared<InToy>();
    ToyNodeRule sameNode;
    sameNode.initBase(boost::weak_ptr<const BaseAttribute>(first), boost::weak_ptr<const BaseAttribute>(second));
    EXPECT_EQ(eART_DataItem, sameNode.getAttributeRuleType());
    EXPECT_THROW(sameNode.testRule(), KOVISBaseProcessingException);
    EXPECT_THROW(first->getDataItemNode(), KOVISBaseProcessingException);
    const auto node = boost::make_shared<ToyNode>();
    first->init(node);
    second->init(node);
    EXPECT_EQ(node.get(), &first->getDataItemNode());
    EXPECT_TRUE(sameNode.testRule());
    second->init(boost::make_shared<ToyNode>());
    EXPECT_FALSE(sameNode.testRule());
    sameNode.initBase(boost::weak_ptr<const BaseAttribute>(first), boost::weak_ptr<const BaseAttribute>(other));
    EXPECT_THROW(sameNode.testRule(), KOVISBaseProcessingException);
}
} // namespace
