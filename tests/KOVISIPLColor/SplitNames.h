#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

// A dispatcher's splits, in their order: nothing else shows it.

namespace kovis::test
{
using DynamicSplits = std::vector<boost::shared_ptr<processor::BaseDynamicSplit>>;
using StaticSplits = std::vector<boost::shared_ptr<processor::BaseStaticSplit>>;

/// Defines the function at which the splits can be seen.
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
} // namespace kovis::test
