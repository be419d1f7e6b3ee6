#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"

#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"
#include "KOVISIPL/KOVISIPLColor/ProcessorLogMessages.h"

#include <boost/make_shared.hpp>

namespace kovis::imaproc::color
{
namespace
{
using InputImage = boost::shared_ptr<const image::BaseImage>;
using OutputImage = boost::shared_ptr<image::BaseImage>;
using Transform = boost::shared_ptr<const attr::ColorConversionTransform>;

[[maybe_unused]] const bool g_bMessagesEntered = MessageMapRegistrator<eProcessorMessage, void>::process();

Transform toTransform(const Transform& transform)
{
    return transform;
}
Transform toTransform(const image::eColorGeometryType& target)
{
    return attr::createColorConversionTransform(target);
}

/// A processor that has its input and its conversion, a transform or the target of one. What a failed init leaves undone shows in
/// the first set.
template <class TConversion>
boost::shared_ptr<ColorConvertImgLvl1> makeProcessor(const InputImage& image, const TConversion& conversion)
{
    const auto processor = boost::make_shared<ColorConvertImgLvl1>();
    processor->init(processor::ePRP_Rules);
    processor->set<attr::InColorImg>(image);
    processor->set<attr::InColorConversionTransform>(toTransform(conversion));
    return processor;
}

template <class TConversion>
boost::shared_ptr<ColorConvertImgLvl1> makeProcessor(const InputImage& image, const TConversion& conversion,
                                                     const OutputImage& result)
{
    const boost::shared_ptr<ColorConvertImgLvl1> processor = makeProcessor(image, conversion);
    processor->set<attr::OutColorImg>(result);
    return processor;
}

OutputImage runToResult(const boost::shared_ptr<ColorConvertImgLvl1>& processor)
{
    processor::executeSyncRun(processor);
    return processor->getStorage<attr::OutColorImg>();
}

boost::shared_ptr<ColorConvertImgLvl1> start(const boost::shared_ptr<ColorConvertImgLvl1>& processor)
{
    processor->run(core::eST_Asynchronous);
    return processor;
}
} // namespace

OutputImage colorConvertImg(const InputImage& image, const image::eColorGeometryType& target)
{
    return runToResult(makeProcessor(image, target));
}

OutputImage colorConvertImg(const InputImage& image, const Transform& transform)
{
    return runToResult(makeProcessor(image, transform));
}

void colorConvertImg(const InputImage& image, const image::eColorGeometryType& target, const OutputImage& result)
{
    processor::executeSyncRun(makeProcessor(image, target, result));
}

void colorConvertImg(const InputImage& image, const Transform& transform, const OutputImage& result)
{
    processor::executeSyncRun(makeProcessor(image, transform, result));
}

boost::shared_ptr<ColorConvertImgLvl1> colorConvertImg_async(const InputImage& image, const image::eColorGeometryType& target)
{
    return start(makeProcessor(image, target));
}

boost::shared_ptr<ColorConvertImgLvl1> colorConvertImg_async(const InputImage& image, const Transform& transform)
{
    return start(makeProcessor(image, transform));
}

boost::shared_ptr<ColorConvertImgLvl1> colorConvertImg_async(const InputImage& image, const image::eColorGeometryType& target,
                                                             const OutputImage& result)
{
    return start(makeProcessor(image, target, result));
}

boost::shared_ptr<ColorConvertImgLvl1> colorConvertImg_async(const InputImage& image, const Transform& transform,
                                                             const OutputImage& result)
{
    return start(makeProcessor(image, transform, result));
}

OutputImage getAsyncProcessorOutput(boost::shared_ptr<ColorConvertImgLvl1> processor)
{
    if (!processor)
    {
        processor::throwProcessingMessage(processor::eProcessorMessage::ePM_NullProcessor,
                                          SourcePlace{"boost::shared_ptr<kovis::image::BaseImage> "
                                                      "kovis::imaproc::color::getAsyncProcessorOutput(boost::shared_ptr<kovis::"
                                                      "imaproc::color::ColorConvertImgLvl1>)",
                                                      "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg",
                                                      __LINE__});
    }
    return processor->getStorage<attr::OutColorImg>();
}
} // namespace kovis::imaproc::color
