#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseProcessor.h"
#include "KOVIS/KOVISImage/BaseImage.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <string>

// The steps of which every entry function consists.

namespace kovis::imaproc::color::details
{
/// A level 1 processor whose attributes have got these values, in this order. What a failed init leaves undone shows in the first
/// set.
template <class TProcessor, class... TAttributes>
boost::shared_ptr<TProcessor> makeProcessor(const typename TAttributes::StorageType&... values)
{
    const auto processor = boost::make_shared<TProcessor>();
    processor->init(processor::ePRP_Rules);
    (processor->template set<TAttributes>(values), ...);
    return processor;
}

/// Runs to the end, and gives what the output TOutput holds then.
template <class TOutput, class TProcessor>
boost::shared_ptr<image::BaseImage> runToResult(const boost::shared_ptr<TProcessor>& processor)
{
    processor::executeSyncRun(processor);
    return processor->template getStorage<TOutput>();
}

/// Starts a run in the background.
template <class TProcessor>
boost::shared_ptr<TProcessor> start(const boost::shared_ptr<TProcessor>& processor)
{
    processor->run(core::eST_Asynchronous);
    return processor;
}

/// Throws KOVISBaseProcessingException, logged before: the getAsyncProcessorOutput of the processor class of that name was given
/// no processor. It stands in the log's unit, since the headers of formatted messages bring a static initialiser, which not every
/// entry function's unit may have.
[[noreturn]] void throwNullProcessor(const std::string& typeName, const char* file, unsigned int line);

/// What getAsyncProcessorOutput gives: what the output TOutput of the processor holds now. Throws KOVISBaseProcessingException,
/// from this place, if there is no processor.
template <class TOutput, class TProcessor>
boost::shared_ptr<image::BaseImage> getOutput(const boost::shared_ptr<TProcessor>& processor, const char* file, unsigned int line)
{
    if (!processor)
    {
        throwNullProcessor(TProcessor::getTypeName(), file, line);
    }
    return processor->template getStorage<TOutput>();
}
} // namespace kovis::imaproc::color::details
