#include "Conversion.h"

#include "ColourSpace.h"
#include "LibraryImage.h"
#include "Numbers.h"
#include "Ranges.h"
#include "ToolError.h"

#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLAttributes/ColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl2.h"

#include <boost/make_shared.hpp>

#include <chrono>
#include <stdexcept>

namespace kovis::tool
{
namespace
{
using image::BaseImage;
using imaproc::attr::ColorConversionTransform;
using imaproc::color::ColorConvertImgLvl1;
using TransformPtr = boost::shared_ptr<const ColorConversionTransform>;

constexpr std::chrono::milliseconds g_listeningInterval(100);
constexpr float g_minSample = 0.0F;
constexpr float g_maxSample = 255.0F;

TransformPtr makeTransform(const Conversion& conversion)
{
    const boost::shared_ptr<ColorConversionTransform> transform = imaproc::attr::createColorConversionTransform(conversion.to);
    if (!conversion.matrix.empty())
        transform->setMatrix(conversion.matrix);
    return transform;
}

/// The test that the library makes before it reads samples by the sRGB curve. A NaN fails it.
void checkRange(const Picture& picture)
{
    for (std::size_t page = 0; page < picture.shape.pages; ++page)
    {
        for (std::size_t channel = 0; channel < picture.shape.channels; ++channel)
        {
            const float* plane = picture.getPlane<float>(page, channel);
            bool bInside = true;
            for (std::size_t sample = 0; sample < picture.shape.getPlaneSamples(); ++sample)
                bInside &= plane[sample] >= g_minSample && plane[sample] <= g_maxSample;
            if (!bInside)
                throw std::runtime_error("Error: the image values does not match the range [0, 255]");
        }
    }
}

boost::shared_ptr<BaseImage> makeResult(const PictureShape& shape, const Conversion& conversion, ElementType type)
{
    return createResult(shape, conversion.to, getResultChannels(conversion, shape.channels), type);
}

bool usesMatrix(const Conversion& conversion)
{
    return conversion.from == image::eCGT_User || conversion.to == image::eCGT_User;
}

/// Channels at the other end of the link that a user source begins with.
std::size_t getFirstLinkChannels(image::eColorGeometryType to)
{
    const std::size_t channels = getSpaceChannels(to);
    return channels == 0 ? 3 : channels;
}

void checkMatrix(const std::string& subject, ExitCode exitCode, const Conversion& conversion, std::size_t inputChannels)
{
    const std::size_t nbNumbers = conversion.matrix.size();
    const std::string columns = std::to_string(inputChannels + 1);
    if (!usesMatrix(conversion))
    {
        if (nbNumbers != 0)
            throw ToolError(
                subject, "is of no use from " + std::string(getSpaceName(conversion.from)) + " to " + getSpaceName(conversion.to),
                "use it with --to user or --from user", exitCode);
        return;
    }
    if (nbNumbers == 0)
        throw ToolError(subject, "is missing, and only a matrix says what a user space is",
                        "give rows of " + columns + " numbers: a factor for each channel of the input, then an offset", exitCode);
    if (conversion.to == image::eCGT_User)
    {
        if (nbNumbers % (inputChannels + 1) != 0)
            throw ToolError(subject, "has " + std::to_string(nbNumbers) + " numbers, which do not make whole rows of " + columns,
                            "give each row a factor for each channel of the input and then an offset", exitCode);
        return;
    }
    const std::size_t rows = getFirstLinkChannels(conversion.to);
    if (nbNumbers != rows * (inputChannels + 1))
        throw ToolError(subject, "has " + std::to_string(nbNumbers) + " numbers",
                        "give " + std::to_string(rows) + " rows of " + columns + " numbers to lead " +
                            std::to_string(inputChannels) + " channel(s) to " + getSpaceName(conversion.to),
                        exitCode);
}
} // namespace

std::size_t getResultChannels(const Conversion& conversion, std::size_t inputChannels)
{
    return conversion.to == image::eCGT_User ? conversion.matrix.size() / (inputChannels + 1) : getSpaceChannels(conversion.to);
}

void follow(const core::BaseAction& action, const ProgressListener& listener, double begin, double end)
{
    while (!action.waitFor(g_listeningInterval) && action.getState() == core::eActionState::running)
        listener(begin + (end - begin) * action.getProgress());
    const BoolResult result = action.getRunResult();
    if (!result)
        throw std::runtime_error(result.getMessage());
    listener(end);
}

void checkChannels(const std::string& subject, image::eColorGeometryType space, std::size_t channels)
{
    const std::size_t wanted = getSpaceChannels(space);
    if (wanted != 0 && wanted != channels)
        throw ToolError(subject,
                        "has " + std::to_string(channels) + " channel(s), but " + getSpaceName(space) + " has " +
                            std::to_string(wanted),
                        "choose --from to fit, user takes any number", eMisused);
}

void checkConversion(const std::string& subject, const Conversion& conversion, std::size_t inputChannels,
                     const std::string& savedFile)
{
    checkChannels(subject, conversion.from, inputChannels);
    if (savedFile.empty())
        checkMatrix("--matrix", eMisused, conversion, inputChannels);
    else
        checkMatrix(savedFile + ": the matrix", eFailed, conversion, inputChannels);
}

bool isLeftEmptyByTheLibrary(const Conversion& conversion, ElementType inputType)
{
    return inputType == ElementType::eF32 && WayOfNumbers(conversion.from, conversion.to).isRangeTested();
}

boost::shared_ptr<BaseImage> convertSlices(const boost::shared_ptr<Picture>& picture, const Conversion& conversion,
                                           bool bRangeTest, const ProgressListener& listener)
{
    using imaproc::color::ColorConvertImgLvl2;
    if (bRangeTest)
        checkRange(*picture);
    const boost::shared_ptr<const BaseImage> input = wrapPicture(picture, conversion.from);
    const TransformPtr transform = makeTransform(conversion);
    const ElementType libraryType = getLibraryType(conversion.from, conversion.to, picture->shape.type);
    const auto result = makeResult(picture->shape, conversion, conversion.resultType.value_or(libraryType));
    const std::size_t nbSlices = picture->shape.pages;
    for (std::size_t z = 0; z < nbSlices; ++z)
    {
        const auto processor = boost::make_shared<ColorConvertImgLvl2>();
        processor->init();
        processor->set<imaproc::attr::InSubColorImg2d>(image::getSlice2d(input, z, 0));
        processor->set<imaproc::attr::InColorConversionTransform>(transform);
        processor->set<imaproc::attr::OutSubColorImg2d>(image::getSlice2d(result, z, 0));
        const BoolResult started = processor->run(core::eST_Asynchronous);
        if (!started)
            throw std::runtime_error(started.getMessage());
        const auto all = static_cast<double>(nbSlices);
        follow(*processor, listener, static_cast<double>(z) / all, static_cast<double>(z + 1) / all);
    }
    return result;
}

boost::shared_ptr<ColorConvertImgLvl1> makeProcessor(const Conversion& conversion)
{
    const auto processor = boost::make_shared<ColorConvertImgLvl1>();
    processor->init();
    processor->set<imaproc::attr::InColorConversionTransform>(makeTransform(conversion));
    return processor;
}

void takeTransform(const ColorConvertImgLvl1& processor, Conversion& conversion)
{
    const auto attribute = boost::dynamic_pointer_cast<imaproc::attr::InColorConversionTransform>(
        processor.getAttribute(imaproc::attr::InColorConversionTransform::getObjectNameStr()));
    const TransformPtr transform = attribute ? attribute->getStorage() : TransformPtr();
    if (!transform)
        throw std::runtime_error("the conversion has no transform: set it before the processor is saved");
    conversion.to = transform->getTargetGeometry();
    conversion.matrix = transform->getMatrix();
}

boost::shared_ptr<BaseImage> convertPicture(const boost::shared_ptr<ColorConvertImgLvl1>& processor,
                                            const boost::shared_ptr<Picture>& picture, const Conversion& conversion,
                                            const ProgressListener& listener)
{
    if (isLeftEmptyByTheLibrary(conversion, picture->shape.type))
        return convertSlices(picture, conversion, true, listener);
    processor->set<imaproc::attr::InColorImg>(wrapPicture(picture, conversion.from));
    if (conversion.resultType)
        processor->set<imaproc::attr::OutColorImg>(makeResult(picture->shape, conversion, *conversion.resultType));
    processor->run(core::eST_Asynchronous);
    follow(*processor, listener, 0.0, 1.0);
    return imaproc::color::getAsyncProcessorOutput(processor);
}

boost::shared_ptr<BaseImage> convertPicture(const boost::shared_ptr<Picture>& picture, const Conversion& conversion,
                                            const ProgressListener& listener)
{
    return convertPicture(makeProcessor(conversion), picture, conversion, listener);
}
} // namespace kovis::tool
