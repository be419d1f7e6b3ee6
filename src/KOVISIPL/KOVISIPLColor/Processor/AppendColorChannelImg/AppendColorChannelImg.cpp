#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImg.h"

#include "KOVISIPL/KOVISIPLColor/Processor/entryFunction.h"
#include "KOVISIPL/KOVISIPLColor/ProcessorLogMessages.h"

namespace kovis::imaproc::color
{
namespace
{
using InputImage = boost::shared_ptr<const image::BaseImage>;
using OutputImage = boost::shared_ptr<image::BaseImage>;

[[maybe_unused]] const bool g_bMessagesEntered = MessageMapRegistrator<eProcessorMessage, void>::process();

boost::shared_ptr<AppendColorChannelImgLvl1> makeAppend(const InputImage& first, const InputImage& second)
{
    return details::makeProcessor<AppendColorChannelImgLvl1, attr::InImg1, attr::InImg2>(first, second);
}

boost::shared_ptr<AppendColorChannelImgLvl1> makeAppend(const InputImage& first, const InputImage& second,
                                                        const OutputImage& result)
{
    return details::makeProcessor<AppendColorChannelImgLvl1, attr::InImg1, attr::InImg2, attr::OutColorImg>(first, second,
                                                                                                            result);
}
} // namespace

OutputImage appendColorChannelImg(const InputImage& first, const InputImage& second)
{
    return details::runToResult<attr::OutColorImg>(makeAppend(first, second));
}

void appendColorChannelImg(const InputImage& first, const InputImage& second, const OutputImage& result)
{
    processor::executeSyncRun(makeAppend(first, second, result));
}

boost::shared_ptr<AppendColorChannelImgLvl1> appendColorChannelImg_async(const InputImage& first, const InputImage& second)
{
    return details::start(makeAppend(first, second));
}

boost::shared_ptr<AppendColorChannelImgLvl1> appendColorChannelImg_async(const InputImage& first, const InputImage& second,
                                                                         const OutputImage& result)
{
    return details::start(makeAppend(first, second, result));
}

OutputImage getAsyncProcessorOutput(boost::shared_ptr<AppendColorChannelImgLvl1> processor)
{
    return details::getOutput<attr::OutColorImg>(
        processor, "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImg", __LINE__);
}
} // namespace kovis::imaproc::color
