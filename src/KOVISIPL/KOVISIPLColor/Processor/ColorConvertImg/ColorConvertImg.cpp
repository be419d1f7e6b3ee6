#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"

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

/// A processor that has its input and its conversion. What a failed init leaves undone shows in the first set.
boost::shared_ptr<ColorConvertImgLvl1> makeProcessor(const InputImage& image, const Transform& transform)
{
    const auto processor = boost::make_shared<ColorConvertImgLvl1>();
    processor->init(processor::ePRP_Rules);
    processor->set<attr::InColorImg>(image);
    processor->set<attr::InColorConversionTransform>(transform);
    return processor;
}

boost::shared_ptr<ColorConvertImgLvl1> makeProcessor(const InputImage& image, const Transform& transform,
                                                     const OutputImage& result)
{
    const auto processor = makeProcessor(image, transform);
    processor->set<attr::OutColorImg>(result);
    return processor;
}

boost::shared_ptr<ColorConvertImgLvl1> start(const boost::shared_ptr<ColorConvertImgLvl1>& processor)
{
    processor->run(core::eST_Asynchronous);
    return processor;
}
} // namespace

OutputImage colorConvertImg(const InputImage& image, const image::eColorGeometryType& target)
{
    return colorConvertImg(image, Transform(attr::createColorConversionTransform(target)));
}

OutputImage colorConvertImg(const InputImage& image, const Transform& transform)
{
    const auto processor = makeProcessor(image, transform);
    processor::executeSyncRun(processor);
    return processor->getStorage<attr::OutColorImg>();
}

void colorConvertImg(const InputImage& image, const image::eColorGeometryType& target, const OutputImage& result)
{
    colorConvertImg(image, Transform(attr::createColorConversionTransform(target)), result);
}

void colorConvertImg(const InputImage& image, const Transform& transform, const OutputImage& result)
{
    processor::executeSyncRun(makeProcessor(image, transform, result));
}

boost::shared_ptr<ColorConvertImgLvl1> colorConvertImg_async(const InputImage& image, const image::eColorGeometryType& target)
{
    return start(makeProcessor(image, attr::createColorConversionTransform(target)));
}

boost::shared_ptr<ColorConvertImgLvl1> colorConvertImg_async(const InputImage& image, const Transform& transform)
{
    return start(makeProcessor(image, transform));
}

boost::shared_ptr<ColorConvertImgLvl1> colorConvertImg_async(const InputImage& image, const image::eColorGeometryType& target,
                                                             const OutputImage& result)
{
    return start(makeProcessor(image, attr::createColorConversionTransform(target), result));
}

boost::shared_ptr<ColorConvertImgLvl1> colorConvertImg_async(const InputImage& image, const Transform& transform,
                                                             const OutputImage& result)
{
    return start(makeProcessor(image, transform, result));
}

OutputImage getAsyncProcessorOutput(boost::shared_ptr<ColorConvertImgLvl1> processor)
{
    return processor->getStorage<attr::OutColorImg>();
}
} // namespace kovis::imaproc::color
