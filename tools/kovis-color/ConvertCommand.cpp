#include "ColourSpace.h"
#include "Commands.h"
#include "Conversion.h"
#include "InstructionSets.h"
#include "LibraryImage.h"
#include "MatrixText.h"
#include "Numbers.h"
#include "OutputFile.h"
#include "PictureFile.h"
#include "ProgressBar.h"
#include "Ranges.h"
#include "SampleNote.h"
#include "SpaceTag.h"
#include "ToolError.h"

#include "KOVIS/KOVISCore/Scheduler.h"

#include <boost/make_shared.hpp>
#include <nlohmann/json.hpp>

#include <chrono>
#include <filesystem>
#include <ostream>
#include <vector>

namespace kovis::tool
{
namespace
{
/// Seconds since the last call.
class Stopwatch
{
public:
    double lap()
    {
        const auto now = std::chrono::steady_clock::now();
        const std::chrono::duration<double> seconds = now - m_begin;
        m_begin = now;
        return seconds.count();
    }

private:
    std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
};

/// One run of `convert`.
class ConvertRun
{
public:
    ConvertRun(const ConvertOptions& options, std::ostream& out, std::ostream& err) : m_options(options), m_out(out), m_err(err)
    {
    }

    void run();

private:
    void checkCommand();
    void chooseSource(const Picture& picture);
    void chooseType(const PictureShape& shape);
    void warn(const std::string& subject, const std::string& text);
    void report(const Picture& picture, const PictureShape& result);

    const ConvertOptions& m_options;
    std::ostream& m_out;
    std::ostream& m_err;
    FileFormat m_format = FileFormat::eTiff;
    Conversion m_conversion;
    ElementType m_resultType = ElementType::eF32;
    std::vector<std::string> m_warnings;
    double m_readSeconds = 0.0;
    double m_convertSeconds = 0.0;
    double m_writeSeconds = 0.0;
};

/// What can be told before the input is read.
void ConvertRun::checkCommand()
{
    m_format = getOutputFormat(m_options.output);
    m_conversion.to = parseSpace("--to", m_options.to);
    if (!m_options.from.empty())
        m_conversion.from = parseSpace("--from", m_options.from);
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
        forceKernelForm(m_options.isa);
    core::setMaxConcurrency(m_options.threads);
    // Where the output cannot be written, that is said before the work.
    const OutputFile probe(m_options.output);
}

void ConvertRun::warn(const std::string& subject, const std::string& text)
{
    m_warnings.push_back(toOneLine(text));
    m_err << "kovis-color: " << toOneLine(subject) << ": " << m_warnings.back() << "\n";
}

void ConvertRun::chooseSource(const Picture& picture)
{
    if (!picture.note.empty())
        warn(m_options.input, "note: " + picture.note);
    if (!m_options.from.empty())
        return;
    if (!picture.doubt.empty())
        throw ToolError(m_options.input, picture.doubt, "say by --from how its channels are to be read (user takes any)");
    m_conversion.from = getDefaultSpace(picture.shape.channels);
    const std::string note = noteOnSpaceTag(picture.description, m_conversion.from);
    if (!note.empty())
        warn(m_options.input, "note: " + note);
}

void ConvertRun::chooseType(const PictureShape& shape)
{
    const ElementType chosen =
        m_options.type.empty() ? getLibraryType(m_conversion.from, m_conversion.to, shape.type) : m_resultType;
    m_resultType = getNearestType(m_format, chosen, m_conversion.to, shape.type);
    if (m_resultType != chosen)
        warn(m_options.output, "warning: " + std::string(getFormatName(m_format)) + " cannot hold " + getElementName(chosen) +
                                   " samples, so they become " + getElementName(m_resultType) + "; write a .tif to keep them");
    if (!m_options.type.empty() || m_resultType != chosen)
        m_conversion.resultType = m_resultType;
}

void ConvertRun::report(const Picture& picture, const PictureShape& result)
{
    const std::string note = noteOnSamples(picture, m_conversion.from, m_conversion.to);
    if (!note.empty())
        warn(m_options.input, "note: " + note);
    const std::string range = describeRange(m_conversion.from, m_conversion.to, result.type);
    const std::string saturation = describeSaturation(m_conversion.from, m_conversion.to, result.type);
    if (!m_options.bJson)
    {
        m_err << "kovis-color: " << toOneLine(m_options.output) << ": " << getSpaceName(m_conversion.to) << " "
              << getElementName(result.type) << ": " << range << (saturation.empty() ? "" : "; ") << saturation << "\n";
        return;
    }
    const auto describe = [](const std::string& file, const PictureShape& shape, image::eColorGeometryType space)
    {
        return nlohmann::json{{"file", file},
                              {"sizeX", shape.sizeX},
                              {"sizeY", shape.sizeY},
                              {"pages", shape.pages},
                              {"channels", shape.channels},
                              {"type", getElementName(shape.type)},
                              {"space", getSpaceName(space)}};
    };
    nlohmann::json answer;
    answer["input"] = describe(m_options.input, picture.shape, m_conversion.from);
    answer["output"] = describe(m_options.output, result, m_conversion.to);
    answer["range"] = range;
    answer["saturation"] = saturation;
    answer["warnings"] = m_warnings;
    answer["seconds"] = {{"read", m_readSeconds}, {"convert", m_convertSeconds}, {"write", m_writeSeconds}};
    m_out << answer.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
}

void ConvertRun::run()
{
    checkCommand();
    Stopwatch stopwatch;
    ReadLimits limits;
    if (m_options.maxMemory != 0)
        limits.maxBytes = m_options.maxMemory << 20;
    const auto picture = boost::make_shared<Picture>(readPicture(m_options.input, limits));
    m_readSeconds = stopwatch.lap();

    chooseSource(*picture);
    checkConversion(m_options.input, m_conversion, picture->shape.channels);
    checkCanHold(m_options.output, m_format, getResultChannels(m_conversion, picture->shape.channels), picture->shape.pages);
    chooseType(picture->shape);

    boost::shared_ptr<image::BaseImage> result;
    try
    {
        ProgressBar bar(stderr);
        result = convertPicture(picture, m_conversion, [&bar](double progress) { bar.show(progress); });
    }
    catch (const ToolError&)
    {
        throw;
    }
    catch (const std::exception& error)
    {
        // The library's own words, and nothing of ours behind them.
        throw ToolError(m_options.input, error.what(), "");
    }
    m_convertSeconds = stopwatch.lap();

    PictureView view = viewOf(*result);
    view.description = makeSpaceTag(m_conversion.to);
    writePicture(m_options.output, view);
    m_writeSeconds = stopwatch.lap();
    report(*picture, view.shape);
}
} // namespace

void runConvert(const ConvertOptions& options, std::ostream& out, std::ostream& err)
{
    ConvertRun(options, out, err).run();
}
} // namespace kovis::tool
