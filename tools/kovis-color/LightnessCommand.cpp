#include "ColourSpace.h"
#include "InstructionSets.h"
#include "LibraryImage.h"
#include "OutputFile.h"
#include "PictureFile.h"
#include "PictureRun.h"
#include "ToolError.h"

#include "KOVISIPL/KOVISIPLAttributes/ColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImg.h"

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>

#include <algorithm>
#include <cctype>
#include <iterator>

namespace kovis::tool
{
namespace
{
using imaproc::attr::eLightnessType;
using imaproc::color::LightnessImgLvl1;

/// In the order of their numbers.
constexpr const char* g_formulas[] = {"average", "lightness", "luminosity"};

eLightnessType parseFormula(const std::string& name)
{
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const auto found = std::find(std::begin(g_formulas), std::end(g_formulas), lower);
    if (found == std::end(g_formulas))
        throw ToolError("--formula", "there is no formula " + quoteWord(name),
                        "did you mean '" + findNearest(name, g_formulas, std::size(g_formulas)) +
                            "'? Take average, lightness or luminosity",
                        eMisused);
    return static_cast<eLightnessType>(found - std::begin(g_formulas));
}

/// The grey image with elements of another type: rounded and saturated.
boost::shared_ptr<image::BaseImage> changeType(const boost::shared_ptr<const image::BaseImage>& grey, const PictureShape& shape,
                                               ElementType type, const ProgressListener& listener)
{
    const bool bRounded = toElementType(grey->getBufferType()) == ElementType::eF32 && type != ElementType::eF32;
    // Grey to grey keeps integers exactly but cuts fractions off; a matrix rounds.
    const image::eColorGeometryType space = bRounded ? image::eCGT_User : image::eCGT_Grey;
    const auto transform = imaproc::attr::createColorConversionTransform(space);
    if (bRounded)
        transform->setMatrix({1.0F, 0.0F});
    const auto result = createResult(shape, space, 1, type);
    const boost::shared_ptr<const imaproc::attr::ColorConversionTransform> constant = transform;
    follow(*imaproc::color::colorConvertImg_async(grey, constant, result), listener, 0.9, 1.0);
    return result;
}

/// One run of `lightness`.
class LightnessRun : private PictureRun
{
public:
    LightnessRun(const LightnessOptions& options, std::ostream& out, std::ostream& err)
        : PictureRun(options, out, err), m_options(options)
    {
    }

    void run();

private:
    void checkCommand();
    boost::shared_ptr<image::BaseImage> compute(const boost::shared_ptr<Picture>& picture, image::eColorGeometryType space,
                                                ElementType type, const ProgressListener& listener) const;

    const LightnessOptions& m_options;
    boost::shared_ptr<LightnessImgLvl1> m_processor;
    eLightnessType m_formula = imaproc::attr::eLT_Average;
};

/// The formula of a saved processor.
eLightnessType getFormula(const LightnessImgLvl1& processor)
{
    const auto attribute = boost::dynamic_pointer_cast<imaproc::attr::InLightnessType>(
        processor.getAttribute(imaproc::attr::InLightnessType::getObjectNameStr()));
    return attribute ? attribute->getValue() : imaproc::attr::eLT_Average;
}

/// What can be told before the input is read.
void LightnessRun::checkCommand()
{
    checkOutputFormat();
    if (!m_options.formula.empty())
        m_formula = parseFormula(m_options.formula);
    m_processor = m_options.processor;
    if (m_processor)
        m_formula = getFormula(*m_processor);
    else
    {
        m_processor = boost::make_shared<LightnessImgLvl1>();
        m_processor->init();
        m_processor->set<imaproc::attr::InLightnessType>(m_formula);
    }
    if (!m_options.from.empty())
        parseSpace("--from", m_options.from);
    if (!m_options.type.empty())
        parseType("--type", m_options.type);
    checkNotTheInput(m_options.output, m_options.input);
    if (!m_options.isa.empty())
        forceLightnessForm(m_options.isa);
    begin();
}

boost::shared_ptr<image::BaseImage> LightnessRun::compute(const boost::shared_ptr<Picture>& picture,
                                                          image::eColorGeometryType space, ElementType type,
                                                          const ProgressListener& listener) const
{
    m_processor->set<imaproc::attr::InColorImg>(wrapPicture(picture, space));
    m_processor->run(core::eST_Asynchronous);
    const bool bSameType = type == picture->shape.type;
    follow(*m_processor, listener, 0.0, bSameType ? 1.0 : 0.9);
    const boost::shared_ptr<image::BaseImage> grey = imaproc::color::getAsyncProcessorOutput(m_processor);
    return bSameType ? grey : changeType(grey, picture->shape, type, listener);
}

void LightnessRun::run()
{
    checkCommand();
    const boost::shared_ptr<Picture> picture = read(m_options.input);
    const PictureShape& shape = picture->shape;
    const image::eColorGeometryType space = chooseSpace(m_options.input, m_options.from, *picture);
    checkChannels(m_options.input, space, shape.channels);
    checkCanHold(m_options.output, getFormat(), 1, shape.pages);
    const ElementType wanted = m_options.type.empty() ? shape.type : parseType("--type", m_options.type);
    const ElementType type = chooseFileType(wanted, image::eCGT_Grey, shape.type);

    const boost::shared_ptr<image::BaseImage> result =
        work(m_options.input, [&](const ProgressListener& listener) { return compute(picture, space, type, listener); });
    const PictureShape written = write(*result, image::eCGT_Grey);
    save(m_processor, m_options.from);
    nlohmann::json answer;
    answer["input"] = describe(m_options.input, shape, space);
    answer["output"] = describe(m_options.output, written, image::eCGT_Grey);
    answer["formula"] = g_formulas[m_formula];
    report(answer, std::string("grey ") + getElementName(written.type) + ": " + g_formulas[m_formula] + " of " +
                       std::to_string(shape.channels) + (shape.channels == 1 ? " channel" : " channels"));
}
} // namespace

void runLightness(const LightnessOptions& options, std::ostream& out, std::ostream& err)
{
    LightnessRun(options, out, err).run();
}
} // namespace kovis::tool
