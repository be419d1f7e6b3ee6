#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISBaseProcessing/NoSplit.h"
#include "KOVIS/KOVISBaseProcessing/RetrievalResult.h"
#include "KOVIS/KOVISImageProcessing/CudaSubImageSplit.h"
#include "KOVIS/KOVISImageProcessing/ImageSplit.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

// How a level answers with a dispatcher of the level below. Splits are added output first and last attribute first, and handed to
// the dispatcher the other way round, in the order of the attributes. After a split that refuses its image the others are not
// made.

namespace kovis::imaproc
{
/// The splits of one step, and the dispatcher that takes them.
template <class TDispatcher, class TSplit>
class DispatchStep
{
public:
    /// Stores the dispatcher in the provider and answers status 0, or answers status 2 with the message of what was refused.
    processor::RetrievalResult provide(const core::BasePriority& priority, core::ActionProviderPtr& provider)
    {
        if (m_result)
        {
            m_result =
                m_dispatcher->initBase(priority, std::vector<boost::shared_ptr<TSplit>>(m_splits.rbegin(), m_splits.rend()));
        }
        if (!m_result)
        {
            return processor::RetrievalResult(processor::eRS_Failed, m_result.getMessage());
        }
        provider = m_dispatcher;
        return processor::eRS_Provided;
    }

protected:
    /// Adds a split that takes its image by initBase with these arguments.
    template <class TImageSplit, class... TArguments>
    void addImageSplit(const TArguments&... arguments)
    {
        if (m_result)
        {
            const auto split = boost::make_shared<TImageSplit>();
            m_result = split->initBase(arguments...);
            m_splits.push_back(split);
        }
    }

    std::vector<boost::shared_ptr<TSplit>> m_splits;

private:
    boost::shared_ptr<TDispatcher> m_dispatcher = boost::make_shared<TDispatcher>();
    BoolResult m_result = BoolResult(true);
};

/// A whole image cut into 2D sub-images, one TProcessor for each.
template <class TProcessor>
class SubImageStep : public DispatchStep<processor::StaticProcessorDispatcher<TProcessor>, processor::BaseStaticSplit>
{
public:
    /// One piece per T and Z, all channels together.
    template <class TAttribute>
    void addSlices(const typename TAttribute::StorageType& image)
    {
        this->template addImageSplit<SubImageSplit<TProcessor, TAttribute>>(eSIST_Slices, eVPT_Slices, eCPT_AllChannels,
                                                                            eTPT_Steps, image);
    }
    /// One piece per T, Z and channel.
    template <class TAttribute>
    void addPlanes(const typename TAttribute::StorageType& image)
    {
        this->template addImageSplit<SubImageSplit<TProcessor, TAttribute>>(eSIST_PlaneWise, eVPT_Slices, eCPT_Channels,
                                                                            eTPT_Steps, image);
    }
    /// The same value for every piece.
    template <class TAttribute>
    void addValue(const typename TAttribute::StorageType& value)
    {
        this->m_splits.push_back(processor::staticNoSplit<TProcessor, TAttribute>(value));
    }
};

/// A whole image on the GPU, for one TProcessor.
template <class TProcessor>
class CudaImageStep : public DispatchStep<processor::StaticProcessorDispatcher<TProcessor>, processor::BaseStaticSplit>
{
public:
    template <class TAttribute>
    void addImage(const typename TAttribute::StorageType& image)
    {
        this->template addImageSplit<CudaSubImageSplit<TProcessor, TAttribute>>(eSIST_WholeOnGpu, image);
    }
};

/// A sub-image cut into Y strips, one TProcessor for each.
template <class TProcessor>
class StripStep : public DispatchStep<processor::DynamicProcessorDispatcher<TProcessor>, processor::BaseDynamicSplit>
{
public:
    /// Strips of all channels, to read or to write as TImage says: const image::BaseImage or image::BaseImage.
    template <class TAttribute, class TImage>
    void addColorStrips(const boost::shared_ptr<TImage>& image)
    {
        this->template addImageSplit<ImageYStripColor2dSplit<TProcessor, TImage, TAttribute>>(image, eSAT_InImage,
                                                                                              eSPD_TopToBottom, false);
    }
    /// Strips of a one-channel image, to write.
    template <class TAttribute>
    void addStrips(const boost::shared_ptr<image::BaseImage>& image)
    {
        this->template addImageSplit<ImageYStrip2dSplit<TProcessor, image::BaseImage, TAttribute>>(
            image, eSAT_InImage, eSPD_TopToBottom, eSPD_TopToBottom);
    }
    /// The same value for every strip.
    template <class TAttribute>
    void addValue(const typename TAttribute::StorageType& value)
    {
        this->m_splits.push_back(processor::dynamicNoSplit<TProcessor, TAttribute>(value));
    }
};
} // namespace kovis::imaproc
