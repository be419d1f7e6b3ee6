#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAttribute.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <string>

namespace kovis::processor
{
/// How a rule is built.
enum eRuleType : int
{
    eRT_Constant = 0,
    eRT_Combination = 1,
    eRT_Attribute = 2
};

/// What an attribute rule looks at.
enum eAttributeRuleType : int
{
    eART_Optional = 0,
    eART_DataItem = 1,
    eART_Image = 2,
    eART_Strip = 3,
    eART_Mixed = 4 ///< images and parameters together
};

/// A condition on the attributes of a processor, tested before its run. It reads only.
class KOVISBASEPROCESSING_EXPORT BaseRule
{
public:
    virtual ~BaseRule();
    BaseRule(const BaseRule&) = delete;
    BaseRule& operator=(const BaseRule&) = delete;

    virtual eRuleType getRuleType() const = 0;
    virtual bool testRule() const = 0;
    /// What the rule demands, with the names of the attributes.
    virtual std::string createRuleFormalString() const = 0;
    /// What the rule demands, with the values at hand. Of a combination, the part that decides: the first that does not hold.
    virtual std::string createRuleEvaluatedString(unsigned int indentation) const = 0;

    /// The head of an evaluated text at an indentation, two blanks a level.
    std::string createRuleEvaluatedStartString(unsigned int indentation) const;

protected:
    BaseRule();
};

/// A rule on up to two attributes, which it does not keep alive.
class KOVISBASEPROCESSING_EXPORT BaseAttributeRule : public BaseRule
{
public:
    ~BaseAttributeRule() override;

    eRuleType getRuleType() const override;
    virtual eAttributeRuleType getAttributeRuleType() const = 0;

    void initBase(const boost::weak_ptr<const BaseAttribute>& first, const boost::weak_ptr<const BaseAttribute>& second);

protected:
    BaseAttributeRule();

    bool isInitialised() const { return m_bInitialised; }
    /// Each throws KOVISBaseProcessingException for a rule that is not initialised and for an attribute that is gone.
    boost::shared_ptr<const BaseAttribute> getAttribute1() const;
    boost::shared_ptr<const BaseAttribute> getAttribute2() const;

private:
    boost::weak_ptr<const BaseAttribute> m_attribute1;
    boost::weak_ptr<const BaseAttribute> m_attribute2;
    bool m_bInitialised = false;
};

/// A rule on an optional attribute, the first of its two.
class KOVISBASEPROCESSING_EXPORT BaseOptionalRule : public BaseAttributeRule
{
public:
    ~BaseOptionalRule() override;

    eAttributeRuleType getAttributeRuleType() const override;

protected:
    BaseOptionalRule();
};

/// Holds if an optional attribute is set, and not to a null pointer.
class KOVISBASEPROCESSING_EXPORT RuleOptionalIsSet : public BaseOptionalRule
{
public:
    RuleOptionalIsSet();
    ~RuleOptionalIsSet() override;

    void init(const boost::weak_ptr<const BaseAttribute>& attribute);

    bool testRule() const override;
    std::string createRuleFormalString() const override;
    std::string createRuleEvaluatedString(unsigned int indentation) const override;
};

/// Both must hold; the second is not looked at if the first does not. An empty pointer is refused with
/// KOVISBaseProcessingException.
KOVISBASEPROCESSING_EXPORT boost::shared_ptr<BaseRule> operator&&(const boost::shared_ptr<BaseRule>& first,
                                                                  const boost::shared_ptr<BaseRule>& second);
/// The branch that the condition takes; the other one is not looked at.
KOVISBASEPROCESSING_EXPORT boost::shared_ptr<BaseRule> If(const boost::shared_ptr<BaseRule>& condition,
                                                          const boost::shared_ptr<BaseRule>& thenRule,
                                                          const boost::shared_ptr<BaseRule>& elseRule);
/// Always holds.
KOVISBASEPROCESSING_EXPORT boost::shared_ptr<BaseRule> none();
} // namespace kovis::processor
