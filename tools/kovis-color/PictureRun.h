#pragma once

#include "Commands.h"
#include "Conversion.h"
#include "Numbers.h"
#include "Picture.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessor.h"
#include "KOVIS/KOVISImage/BaseImage.h"

#include <boost/shared_ptr.hpp>
#include <nlohmann/json.hpp>

#include <chrono>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace kovis::tool
{
/// What the verbs that make a picture file of others have in common: reading, notes, the work behind a progress bar, writing, and
/// the answer.
class PictureRun
{
protected:
    using Work = std::function<boost::shared_ptr<image::BaseImage>(const ProgressListener&)>;

    PictureRun(const PictureOptions& options, std::ostream& out, std::ostream& err) : m_options(options), m_out(out), m_err(err)
    {
    }

    /// Takes the format of the output from its name. Throws ToolError (misused) for one that names none.
    void checkOutputFormat();
    /// Takes over the number of threads, and throws ToolError for an output, or a file of --save, that cannot be written.
    void begin();

    boost::shared_ptr<Picture> read(const std::string& input);

    /// The space that the input is read in: the one of --from, else the one that its channel count says. Throws ToolError for a
    /// picture that leaves it in doubt.
    image::eColorGeometryType chooseSpace(const std::string& input, const std::string& from, const Picture& picture);

    /// The type for the file where `wanted` is what the result has, with a warning where they differ.
    ElementType chooseFileType(ElementType wanted, image::eColorGeometryType space, ElementType inputType);

    /// What the library throws comes out as a ToolError of that subject, in the library's own words.
    boost::shared_ptr<image::BaseImage> work(const std::string& subject, const Work& work);

    /// Writes the file, and gives the shape that it has there.
    PictureShape write(const image::BaseImage& image, image::eColorGeometryType space);

    /// Keeps the processor of the run, and the space that the input was said to be in, where --save says so.
    void save(const boost::shared_ptr<processor::BaseProcessor>& processor, const std::string& from);

    void warn(const std::string& subject, const std::string& text);

    /// Without --json: one line on the result. With it: `answer`, which then has the warnings and the seconds too.
    void report(nlohmann::json answer, const std::string& line);

    static nlohmann::json describe(const std::string& file, const PictureShape& shape, image::eColorGeometryType space);

    FileFormat getFormat() const { return m_format; }

private:
    /// Seconds since the last call.
    double lap();

    const PictureOptions& m_options;
    std::ostream& m_out;
    std::ostream& m_err;
    FileFormat m_format = FileFormat::eTiff;
    std::vector<std::string> m_warnings;
    std::chrono::steady_clock::time_point m_lapBegin;
    double m_readSeconds = 0.0;
    double m_workSeconds = 0.0;
    double m_writeSeconds = 0.0;
};
} // namespace kovis::tool
