#include "ColourSpace.h"
#include "GpuAppend.h"
#include "InstructionSets.h"
#include "LibraryImage.h"
#include "OutputFile.h"
#include "PictureFile.h"
#include "PictureRun.h"
#include "ToolError.h"

#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImg.h"
#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl1.h"

#include <boost/make_shared.hpp>

namespace kovis::tool
{
namespace
{
using ImagePtr = boost::shared_ptr<image::BaseImage>;

std::string tellSize(const PictureShape& shape)
{
    return std::to_string(shape.sizeX) + " x " + std::to_string(shape.sizeY) + " pixels on " + std::to_string(shape.pages) +
           (shape.pages == 1 ? " page" : " pages");
}

/// The image with elements of another type: rounded and saturated.
ImagePtr changeType(const ImagePtr& image, const PictureShape& shape, ElementType type, const ProgressListener& listener,
                    double begin)
{
    const ImagePtr result = createResult(shape, image::eCGT_User, image->getSizeC(), type);
    const auto conversion = boost::make_shared<imaproc::util::ConvertImgLvl1>();
    conversion->init(processor::ePRP_Rules);
    conversion->set<imaproc::attr::InImg>(image);
    conversion->set<imaproc::attr::InConvertImageBufferType>(toBufferType(type));
    conversion->set<imaproc::attr::OutImg>(result);
    conversion->run(core::eST_Asynchronous);
    follow(*conversion, listener, begin, 1.0);
    return result;
}

/// One run of `append`.
class AppendRun : private PictureRun
{
public:
    AppendRun(const AppendOptions& options, std::ostream& out, std::ostream& err)
        : PictureRun(options, out, err), m_options(options)
    {
    }

    void run();

private:
    void checkCommand();
    void readAll();
    void checkPicture(const std::string& input, const PictureShape& shape) const;
    /// One step, on the processor or the GPU, as the part of the progress from `begin` to `end`.
    ImagePtr appendTwo(const boost::shared_ptr<const image::BaseImage>& first,
                       const boost::shared_ptr<const image::BaseImage>& second, const ProgressListener& listener, double begin,
                       double end) const;
    ImagePtr append(ElementType type, const ProgressListener& listener) const;

    const AppendOptions& m_options;
    boost::shared_ptr<imaproc::color::AppendColorChannelImgLvl1> m_processor;
    std::vector<boost::shared_ptr<Picture>> m_pictures;
    std::string m_gpuName; ///< empty without --gpu
};

/// What can be told before the inputs are read.
void AppendRun::checkCommand()
{
    checkOutputFormat();
    if (!m_options.type.empty())
        parseType("--type", m_options.type);
    if (m_options.inputs.size() < 2)
        throw ToolError("append", "there is only one picture",
                        "name the pictures whose channels are to follow, from left to right", eMisused);
    for (const std::string& input : m_options.inputs)
        checkNotTheInput(m_options.output, input);
    if (!m_options.isa.empty())
        forceAppendForm(m_options.isa);
    if (m_options.bGpu)
        m_gpuName = getGpuName();
    begin();
}

/// Size, pages and type, by the names of the files. The library tells them too, by its attributes. Numbers of channels always fit
/// here, for each result is made: what the format can hold (checkCanHold) is the only limit.
void AppendRun::checkPicture(const std::string& input, const PictureShape& shape) const
{
    const PictureShape& first = m_pictures.front()->shape;
    const std::string& name = m_options.inputs.front();
    if (shape.sizeX != first.sizeX || shape.sizeY != first.sizeY || shape.pages != first.pages)
        throw ToolError(input, "has " + tellSize(shape) + ", but " + name + " has " + tellSize(first),
                        "give pictures of one size and number of pages", eMisused);
    if (shape.type != first.type)
        throw ToolError(input,
                        std::string("has ") + getElementName(shape.type) + " samples, but " + name + " has " +
                            getElementName(first.type),
                        "give pictures of one element type (kovis-color convert --type changes it)", eMisused);
}

void AppendRun::readAll()
{
    for (const std::string& input : m_options.inputs)
    {
        m_pictures.push_back(read(input));
        checkPicture(input, m_pictures.back()->shape);
    }
}

ImagePtr AppendRun::appendTwo(const boost::shared_ptr<const image::BaseImage>& first,
                              const boost::shared_ptr<const image::BaseImage>& second, const ProgressListener& listener,
                              double begin, double end) const
{
    if (m_options.bGpu)
    {
        const ImagePtr result = appendOnGpu(first, second);
        listener(end);
        return result;
    }
    m_processor->getAttribute(imaproc::attr::OutColorImg::getObjectNameStr())->clear();
    m_processor->set<imaproc::attr::InImg1>(first);
    m_processor->set<imaproc::attr::InImg2>(second);
    m_processor->run(core::eST_Asynchronous);
    follow(*m_processor, listener, begin, end);
    return imaproc::color::getAsyncProcessorOutput(m_processor);
}

/// From left to right, each step a part of the progress, as is a change of type.
ImagePtr AppendRun::append(ElementType type, const ProgressListener& listener) const
{
    const PictureShape& shape = m_pictures.front()->shape;
    const double nbSteps = static_cast<double>(m_pictures.size() - 1 + (type == shape.type ? 0U : 1U));
    boost::shared_ptr<const image::BaseImage> first = wrapPicture(m_pictures.front(), image::eCGT_User);
    ImagePtr result;
    double step = 0.0;
    for (std::size_t k = 1; k < m_pictures.size(); ++k, step += 1.0)
    {
        result = appendTwo(first, wrapPicture(m_pictures[k], image::eCGT_User), listener, step / nbSteps, (step + 1.0) / nbSteps);
        first = result;
    }
    return type == shape.type ? result : changeType(result, shape, type, listener, step / nbSteps);
}

void AppendRun::run()
{
    checkCommand();
    m_processor = m_options.processor;
    if (!m_processor)
    {
        m_processor = boost::make_shared<imaproc::color::AppendColorChannelImgLvl1>();
        m_processor->init();
    }
    readAll();
    const PictureShape& shape = m_pictures.front()->shape;
    std::size_t nbChannels = 0;
    for (const auto& picture : m_pictures)
        nbChannels += picture->shape.channels;
    checkCanHold(m_options.output, getFormat(), nbChannels, shape.pages);
    const ElementType wanted = m_options.type.empty() ? shape.type : parseType("--type", m_options.type);
    const ElementType type = chooseFileType(wanted, image::eCGT_User, shape.type);

    const ImagePtr result = work(m_options.output, [&](const ProgressListener& listener) { return append(type, listener); });
    const PictureShape written = write(*result, image::eCGT_User);
    save(m_processor, std::string());
    // PNG has no other kind of a picture of so many channels.
    if (getFormat() == FileFormat::ePng && nbChannels % 2 == 0)
        warn(m_options.output, std::string("note: the ") + (nbChannels == 2 ? "second" : "fourth") +
                                   " channel of a PNG will be read as alpha; write a .tif for a channel like the others");
    nlohmann::json answer;
    std::string counts;
    for (std::size_t k = 0; k < m_pictures.size(); ++k)
    {
        const PictureShape& input = m_pictures[k]->shape;
        answer["inputs"].push_back(describe(m_options.inputs[k], input, getDefaultSpace(input.channels)));
        counts += (k == 0 ? "" : " + ") + std::to_string(input.channels);
    }
    answer["output"] = describe(m_options.output, written, image::eCGT_User);
    if (m_options.bGpu)
        answer["gpu"] = m_gpuName;
    report(answer, "user " + std::string(getElementName(written.type)) + ": " + std::to_string(nbChannels) + " channels, " +
                       counts + (m_options.bGpu ? ", appended on the GPU (" + m_gpuName + ")" : ""));
}
} // namespace

void runAppend(const AppendOptions& options, std::ostream& out, std::ostream& err)
{
    AppendRun(options, out, err).run();
}
} // namespace kovis::tool
