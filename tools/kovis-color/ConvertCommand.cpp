#include "ColourSpace.h"
#include "Commands.h"
#include "Conversion.h"
#include "InstructionSets.h"
#include "MatrixText.h"
#include "Numbers.h"
#include "OutputFile.h"
#include "PictureFile.h"
#include "PictureRun.h"
#include "Ranges.h"
#include "SampleNote.h"
#include "ToolError.h"

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl1.h"

namespace kovis::tool
{
namespace
{
/// One run of `convert`.
class ConvertRun : private PictureRun
{
public:
    ConvertRun(const ConvertOptions& options, std::ostream& out, std::ostream& err)
        : PictureRun(options, out, err), m_options(options)
    {
    }

    void run();

private:
    void checkCommand();
    void chooseType(const PictureShape& shape);
    void tell(const Picture& picture, const PictureShape& result);

    const ConvertOptions& m_options;
    Conversion m_conversion;
    ElementType m_resultType = ElementType::eF32;
};

/// What can be told before the input is read.
void ConvertRun::checkCommand()
{
    checkOutputFormat();
    if (m_options.processor)
        takeTransform(*m_options.processor, m_conversion);
    else
        m_conversion.to = parseSpace("--to", m_options.to);
    if (!m_options.from.empty())
        parseSpace("--from", m_options.from);
    if (!m_options.type.empty())
        m_resultType = parseType("--type", m_options.type);
    checkNotTheInput(m_options.output, m_options.input);
    if (!m_options.matrix.empty())
    {
        if (!isMatrixList(m_options.matrix))
            checkNotTheInput(m_options.output, m_options.matrix);
        m_conversion.matrix = readMatrix(m_options.matrix);
    }
    if (!m_options.isa.empty())
        forceConversionForm(m_options.isa);
    begin();
}

void ConvertRun::chooseType(const PictureShape& shape)
{
    const ElementType chosen =
        m_options.type.empty() ? getLibraryType(m_conversion.from, m_conversion.to, shape.type) : m_resultType;
    m_resultType = chooseFileType(chosen, m_conversion.to, shape.type);
    if (!m_options.type.empty() || m_resultType != chosen)
        m_conversion.resultType = m_resultType;
}

void ConvertRun::tell(const Picture& picture, const PictureShape& result)
{
    const std::string note = noteOnSamples(picture, m_conversion.from, m_conversion.to);
    if (!note.empty())
        warn(m_options.input, "note: " + note);
    const std::string range = describeRange(m_conversion.from, m_conversion.to, result.type);
    const std::string saturation = describeSaturation(m_conversion.from, m_conversion.to, result.type);
    nlohmann::json answer;
    answer["input"] = describe(m_options.input, picture.shape, m_conversion.from);
    answer["output"] = describe(m_options.output, result, m_conversion.to);
    answer["range"] = range;
    answer["saturation"] = saturation;
    report(answer, std::string(getSpaceName(m_conversion.to)) + " " + getElementName(result.type) + ": " + range +
                       (saturation.empty() ? "" : "; ") + saturation);
}

void ConvertRun::run()
{
    checkCommand();
    const boost::shared_ptr<Picture> picture = read(m_options.input);
    m_conversion.from = chooseSpace(m_options.input, m_options.from, *picture);
    checkConversion(m_options.input, m_conversion, picture->shape.channels, m_options.processorFile);
    checkCanHold(m_options.output, getFormat(), getResultChannels(m_conversion, picture->shape.channels), picture->shape.pages);
    chooseType(picture->shape);
    const auto processor = m_options.processor ? m_options.processor : makeProcessor(m_conversion);
    const boost::shared_ptr<image::BaseImage> result =
        work(m_options.input,
             [&](const ProgressListener& listener) { return convertPicture(processor, picture, m_conversion, listener); });
    const PictureShape written = write(*result, m_conversion.to);
    save(processor, m_options.from);
    tell(*picture, written);
}
} // namespace

void runConvert(const ConvertOptions& options, std::ostream& out, std::ostream& err)
{
    ConvertRun(options, out, err).run();
}
} // namespace kovis::tool
