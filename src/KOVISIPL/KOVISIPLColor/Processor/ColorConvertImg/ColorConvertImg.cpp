#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"

#include "KOVISIPL/KOVISIPLColor/Processor/entryFunction.h"
#include "KOVISIPL/KOVISIPLColor/ProcessorLogMessages.h"

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

template <class TConversion>
boost::shared_ptr<ColorConvertImgLvl1> makeConversion(const InputImage& image, const TConversion& conversion)
{
    return details::makeProcessor<ColorConvertImgLvl1, attr::InColorImg, attr::InColorConversionTransform>(
        image, toTransform(conversion));
}

template <class TConversion>
boost::shared_ptr<ColorConvertImgLvl1> makeConversion(const InputImage& image, const TConversion& conversion,
                                                      const OutputImage& result)
{
    const boost::shared_ptr<ColorConvertImgLvl1> processor = makeConversion(image, conversion);
    processor->set<attr::OutColorImg>(result);
    return processor;
}
} // namespace

OutputImage colorConvertImg(const InputImage& image, const image::eColorGeometryType& target)
{
    return details::runToResult<attr::OutColorImg>(makeConversion(image, target));
}

OutputImage colorConvertImg(const InputImage& image, const Transform& transform)
{
    return details::runToResult<attr::OutColorImg>(makeConversion(image, transform));
}

void colorConvertImg(const InputImage& image, const image::eColorGeometryType& target, const OutputImage& result)
{
    processor::executeSyncRun(makeConversion(image, target, result));
}

void colorConvertImg(const InputImage& image, const Transform& transform, const OutputImage& result)
{
    processor::executeSyncRun(makeConversion(image, transform, result));
}

boost::shared_ptr<ColorConvertImgLvl1> colorConvertImg_async(const InputImage& image, const image::eColorGeometryType& target)
{
    return details::start(makeConversion(image, target));
}

boost::shared_ptr<ColorConvertImgLvl1> colorConvertImg_async(const InputImage& image, const Transform& transform)
{
    return details::start(makeConversion(image, transform));
}

boost::shared_ptr<ColorConvertImgLvl1> colorConvertImg_async(const InputImage& image, const image::eColorGeometryType& target,
                                                             const OutputImage& result)
{
    return details::start(makeConversion(image, target, result));
}

boost::shared_ptr<ColorConvertImgLvl1> colorConvertImg_async(const InputImage& image, const Transform& transform,
                                                             const OutputImage& result)
{
    return details::start(makeConversion(image, transform, result));
}

OutputImage getAsyncProcessorOutput(boost::shared_ptr<ColorConvertImgLvl1> processor)
{
    return details::getOutput<attr::OutColorImg>(processor, "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg",
                                                 __LINE__);
}
} // namespace kovis::imaproc::color
