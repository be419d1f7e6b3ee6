#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISBaseProcessing/RetrievalResult.h"

#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>
#include <gtest/gtest.h>

#include <string>
#include <vector>

// The steps of a level, its dispatchers and their pieces.

namespace kovis::test
{
using DynamicSplits = std::vector<boost::shared_ptr<processor::BaseDynamicSplit>>;
using StaticSplits = std::vector<boost::shared_ptr<processor::BaseStaticSplit>>;

/// A level with its step at hand.
template <class T>
class Step : public T
{
public:
    using T::retrieveProvider;
};

/// Defines the function at which a dispatcher's splits can be seen, in their order: nothing else shows it.
template <class TDispatcher, class TSplits, TSplits TDispatcher::*Member>
struct SplitsAccess
{
    friend const TSplits& getSplits(const TDispatcher& dispatcher) { return dispatcher.*Member; }
};
const DynamicSplits& getSplits(const processor::BaseDynamicProcessorDispatcher& dispatcher);
const StaticSplits& getSplits(const processor::BaseStaticProcessorDispatcher& dispatcher);
template struct SplitsAccess<processor::BaseDynamicProcessorDispatcher, DynamicSplits,
                             &processor::BaseDynamicProcessorDispatcher::m_splits>;
template struct SplitsAccess<processor::BaseStaticProcessorDispatcher, StaticSplits,
                             &processor::BaseStaticProcessorDispatcher::m_splits>;

/// The names of the attributes of a dispatcher's splits.
template <class TDispatcher>
std::vector<std::string> getSplitNames(const TDispatcher& dispatcher)
{
    std::vector<std::string> names;
    for (const auto& split : getSplits(dispatcher))
    {
        names.push_back(split->getAttributeName());
    }
    return names;
}

/// The next piece of a dispatcher, as a T; null where there is none, or one of another class.
template <class T>
boost::shared_ptr<T> takePiece(processor::BaseProcessorDispatcher& dispatcher)
{
    boost::shared_ptr<core::BaseActionRequest> request;
    boost::shared_ptr<BaseSerializationObject> data;
    bool bGiven = false;
    if (!dispatcher.queryNextAction(core::BaseRequestOrigin(), request, bGiven, data) || !bGiven)
    {
        return boost::shared_ptr<T>();
    }
    return boost::dynamic_pointer_cast<T>(request->getAction());
}

/// The dispatcher of a level 2 that cuts its images into strips of 16 rows; null where the step gives none.
template <class T>
boost::shared_ptr<processor::BaseDynamicProcessorDispatcher> cutIntoStrips(Step<T>& step, const core::BasePriority& priority)
{
    processor::setStripHeight(16);
    core::ActionProviderPtr provider;
    const processor::RetrievalResult result = step.retrieveProvider(priority, provider);
    processor::setStripHeight(0);
    EXPECT_EQ(result.getStatus(), processor::eRS_Provided) << result.getMessage();
    return boost::dynamic_pointer_cast<processor::BaseDynamicProcessorDispatcher>(provider);
}

/// What a processor's attribute of that class holds.
template <class TAttribute>
auto getStorage(const processor::BaseProcessor& processor, const std::string& name)
{
    return boost::static_pointer_cast<const TAttribute>(processor.getAttribute(name))->getStorage();
}
} // namespace kovis::test
