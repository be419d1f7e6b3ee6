#include "PictureRun.h"

#include "ColourSpace.h"
#include "LibraryImage.h"
#include "OutputFile.h"
#include "PictureFile.h"
#include "ProgressBar.h"
#include "SavedRun.h"
#include "SpaceTag.h"
#include "ToolError.h"

#include "KOVIS/KOVISCore/Scheduler.h"

#include <boost/make_shared.hpp>

#include <filesystem>
#include <ostream>

namespace kovis::tool
{
namespace
{
/// Throws ToolError (misused) where the file of --save is another of the run, `whatElse`. Neither need be there yet.
void checkSavePath(const std::string& savePath, const std::string& otherPath, const std::string& whatElse)
{
    std::error_code error;
    if (!savePath.empty() &&
        std::filesystem::weakly_canonical(savePath, error) == std::filesystem::weakly_canonical(otherPath, error))
        throw ToolError(savePath, "is " + whatElse + " itself", "give --save another name", eMisused);
}
} // namespace

double PictureRun::lap()
{
    const auto now = std::chrono::steady_clock::now();
    const std::chrono::duration<double> seconds = now - m_lapBegin;
    m_lapBegin = now;
    return seconds.count();
}

void PictureRun::checkOutputFormat()
{
    m_format = getOutputFormat(m_options.output);
}

void PictureRun::begin()
{
    core::setMaxConcurrency(m_options.threads);
    // Where a file cannot be written, that is said before the work.
    {
        const OutputFile probe(m_options.output);
    }
    checkSavePath(m_options.save, m_options.output, "the output");
    if (!m_options.save.empty())
    {
        const OutputFile probe(m_options.save);
    }
    lap();
}

boost::shared_ptr<Picture> PictureRun::read(const std::string& input)
{
    checkSavePath(m_options.save, input, "an input");
    ReadLimits limits;
    if (m_options.maxMemory != 0)
        limits.maxBytes = m_options.maxMemory << 20;
    const auto picture = boost::make_shared<Picture>(readPicture(input, limits));
    m_readSeconds += lap();
    if (!picture->note.empty())
        warn(input, "note: " + picture->note);
    return picture;
}

image::eColorGeometryType PictureRun::chooseSpace(const std::string& input, const std::string& from, const Picture& picture)
{
    if (!from.empty())
        return parseSpace("--from", from);
    if (!picture.doubt.empty())
        throw ToolError(input, picture.doubt, "say by --from how its channels are to be read (user takes any)");
    const image::eColorGeometryType space = getDefaultSpace(picture.shape.channels);
    const std::string note = noteOnSpaceTag(picture.description, space);
    if (!note.empty())
        warn(input, "note: " + note);
    return space;
}

ElementType PictureRun::chooseFileType(ElementType wanted, image::eColorGeometryType space, ElementType inputType)
{
    const ElementType chosen = getNearestType(m_format, wanted, space, inputType);
    if (chosen != wanted)
        warn(m_options.output, "warning: " + std::string(getFormatName(m_format)) + " cannot hold " + getElementName(wanted) +
                                   " samples, so they become " + getElementName(chosen) + "; write a .tif to keep them");
    return chosen;
}

boost::shared_ptr<image::BaseImage> PictureRun::work(const std::string& subject, const Work& work)
{
    boost::shared_ptr<image::BaseImage> result;
    try
    {
        ProgressBar bar(stderr);
        result = work([&bar](double progress) { bar.show(progress); });
    }
    catch (const ToolError&)
    {
        throw;
    }
    catch (const std::exception& error)
    {
        // The library's own words, and nothing of ours behind them.
        throw ToolError(subject, error.what(), "");
    }
    m_workSeconds = lap();
    return result;
}

PictureShape PictureRun::write(const image::BaseImage& image, image::eColorGeometryType space)
{
    PictureView view = viewOf(image);
    view.description = makeSpaceTag(space);
    writePicture(m_options.output, view);
    m_writeSeconds = lap();
    return view.shape;
}

void PictureRun::save(const boost::shared_ptr<processor::BaseProcessor>& processor, const std::string& from)
{
    if (!m_options.save.empty())
        writeSavedRun(m_options.save, {processor, from, m_options.type});
}

void PictureRun::warn(const std::string& subject, const std::string& text)
{
    m_warnings.push_back(toOneLine(text));
    m_err << "kovis-color: " << toOneLine(subject) << ": " << m_warnings.back() << "\n";
}

void PictureRun::report(nlohmann::json answer, const std::string& line)
{
    if (!m_options.bJson)
    {
        m_err << "kovis-color: " << toOneLine(m_options.output) << ": " << line << "\n";
        return;
    }
    answer["warnings"] = m_warnings;
    answer["seconds"] = {{"read", m_readSeconds}, {"convert", m_workSeconds}, {"write", m_writeSeconds}};
    m_out << answer.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
}

nlohmann::json PictureRun::describe(const std::string& file, const PictureShape& shape, image::eColorGeometryType space)
{
    return {{"file", file},
            {"sizeX", shape.sizeX},
            {"sizeY", shape.sizeY},
            {"pages", shape.pages},
            {"channels", shape.channels},
            {"type", getElementName(shape.type)},
            {"space", getSpaceName(space)}};
}
} // namespace kovis::tool
