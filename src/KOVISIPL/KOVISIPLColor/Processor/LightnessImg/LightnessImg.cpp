#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImg.h"

#include "KOVISIPL/KOVISIPLColor/Processor/entryFunction.h"

// This unit has no static initialiser.

namespace kovis::imaproc::color
{
namespace
{
using InputImage = boost::shared_ptr<const image::BaseImage>;
using OutputImage = boost::shared_ptr<image::BaseImage>;
using LightType = attr::eLightnessType;

boost::shared_ptr<LightnessImgLvl1> makeLightness(const InputImage& image, const LightType& type)
{
    return details::makeProcessor<LightnessImgLvl1, attr::InColorImg, attr::InLightnessType>(image, type);
}

boost::shared_ptr<LightnessImgLvl1> makeLightness(const InputImage& image, const LightType& type, const OutputImage& result)
{
    return details::makeProcessor<LightnessImgLvl1, attr::InColorImg, attr::InLightnessType, attr::OutLightImg>(image, type,
                                                                                                                result);
}
} // namespace

OutputImage lightnessImg(const InputImage& image)
{
    return lightnessImg(image, attr::eLT_Average);
}

OutputImage lightnessImg(const InputImage& image, const LightType& type)
{
    return details::runToResult<attr::OutLightImg>(makeLightness(image, type));
}

void lightnessImg(const InputImage& image, const OutputImage& result)
{
    lightnessImg(image, attr::eLT_Average, result);
}

void lightnessImg(const InputImage& image, const LightType& type, const OutputImage& result)
{
    processor::executeSyncRun(makeLightness(image, type, result));
}

boost::shared_ptr<LightnessImgLvl1> lightnessImg_async(const InputImage& image)
{
    return lightnessImg_async(image, attr::eLT_Average);
}

boost::shared_ptr<LightnessImgLvl1> lightnessImg_async(const InputImage& image, const LightType& type)
{
    return details::start(makeLightness(image, type));
}

boost::shared_ptr<LightnessImgLvl1> lightnessImg_async(const InputImage& image, const OutputImage& result)
{
    return lightnessImg_async(image, attr::eLT_Average, result);
}

boost::shared_ptr<LightnessImgLvl1> lightnessImg_async(const InputImage& image, const LightType& type, const OutputImage& result)
{
    return details::start(makeLightness(image, type, result));
}

OutputImage getAsyncProcessorOutput(boost::shared_ptr<LightnessImgLvl1> processor)
{
    return details::getOutput<attr::OutLightImg>(processor, "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImg",
                                                 __LINE__);
}
} // namespace kovis::imaproc::color
