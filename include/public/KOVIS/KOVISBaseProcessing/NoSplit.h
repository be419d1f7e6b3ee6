#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseDataSplit.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

namespace kovis::processor
{
namespace detail
{
/// What the split templates have in common: the names of their attribute and the class of their processor.
template <class TBase, class TProcessor, class TAttribute>
class BoundSplit : public TBase
{
public:
    const std::string& getAttributeName() const override { return TAttribute::getObjectNameStr(); }
    const std::string& getAttributeToolTip() const override { return TAttribute::getToolTipStr(); }
    bool checkProcessorType(const BaseProcessor& processor) const override
    {
        return dynamic_cast<const TProcessor*>(&processor) != nullptr;
    }

protected:
    template <class TValue>
    static BoolResult setAttribute(BaseProcessor& processor, const TValue& value)
    {
        static_cast<TProcessor&>(processor).template set<TAttribute>(value);
        return BoolResult(true);
    }
};

/// The location of a value that is not cut: one element.
inline ElementsLocationInfo getUnSplittedLocation()
{
    ElementsLocationInfo location;
    location.insertNonLocalized(ElementsRange(0, 1), 0);
    return location;
}
} // namespace detail

/// Every processor of a static dispatch gets the same value.
template <class TProcessor, class TAttribute>
class StaticNoSplit : public detail::BoundSplit<BaseStaticSplit, TProcessor, TAttribute>
{
public:
    eSplitStaticType getSplitStaticType() const override { return eSST_NoSplit; }
    BoolResult processAttribute(BaseProcessor& processor, unsigned int, const core::BaseRequestOrigin&) override
    {
        return this->setAttribute(processor, m_value);
    }

    void setValue(const typename TAttribute::StorageType& value) { m_value = value; }

private:
    typename TAttribute::StorageType m_value{};
};

/// Every processor of a dynamic dispatch gets the same value.
template <class TProcessor, class TAttribute>
class DynamicNoSplit : public detail::BoundSplit<BaseDynamicSplit, TProcessor, TAttribute>
{
public:
    eSplitDynamicType getSplitDynamicType() const override { return eSDT_NoSplit; }
    BoolResult processAttribute(BaseProcessor& processor, unsigned long, unsigned long, const core::BaseRequestOrigin&) override
    {
        return this->setAttribute(processor, m_value);
    }

    void setValue(const typename TAttribute::StorageType& value) { m_value = value; }

private:
    typename TAttribute::StorageType m_value{};
};

template <class TProcessor, class TAttribute>
boost::shared_ptr<StaticNoSplit<TProcessor, TAttribute>> staticNoSplit(const typename TAttribute::StorageType& value)
{
    const auto split = boost::make_shared<StaticNoSplit<TProcessor, TAttribute>>();
    split->initBaseUnSplitted(detail::getUnSplittedLocation());
    split->setValue(value);
    return split;
}

template <class TProcessor, class TAttribute>
boost::shared_ptr<DynamicNoSplit<TProcessor, TAttribute>> dynamicNoSplit(const typename TAttribute::StorageType& value)
{
    const auto split = boost::make_shared<DynamicNoSplit<TProcessor, TAttribute>>();
    split->initUnSplitted(detail::getUnSplittedLocation());
    split->setValue(value);
    return split;
}
} // namespace kovis::processor
