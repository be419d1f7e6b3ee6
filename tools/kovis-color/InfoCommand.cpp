#include "ChannelRange.h"
#include "ColourSpace.h"
#include "Commands.h"
#include "PictureFile.h"
#include "SpaceTag.h"
#include "ToolError.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <vector>

namespace kovis::tool
{
namespace
{
void printJson(const InfoOptions& options, const Picture& picture, image::eColorGeometryType space, std::ostream& out)
{
    nlohmann::json answer;
    answer["file"] = options.file;
    answer["format"] = picture.format;
    answer["sizeX"] = picture.shape.sizeX;
    answer["sizeY"] = picture.shape.sizeY;
    answer["pages"] = picture.shape.pages;
    answer["channels"] = picture.shape.channels;
    answer["type"] = getElementName(picture.shape.type);
    answer["space"] = getSpaceName(space);
    answer["alpha"] = picture.hasAlpha;
    answer["description"] = picture.description;
    answer["doubt"] = picture.doubt;
    answer["note"] = picture.note;
    answer["ranges"] = nlohmann::json::array();
    for (std::size_t channel = 0; channel < picture.shape.channels; ++channel)
    {
        const ChannelRange range = measureChannel(picture, channel);
        nlohmann::json entry = {{"min", nullptr}, {"max", nullptr}, {"notFinite", range.nbOthers}};
        if (range.nbFinite != 0)
        {
            entry["min"] = range.minimum;
            entry["max"] = range.maximum;
        }
        answer["ranges"].push_back(entry);
    }
    out << answer.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
}

void printText(const InfoOptions& options, const Picture& picture, image::eColorGeometryType space, std::ostream& out)
{
    const PictureShape& shape = picture.shape;
    out << toOneLine(options.file) << ": " << picture.format << ", " << shape.sizeX << " x " << shape.sizeY << ", "
        << shape.channels << " channel(s), " << getElementName(shape.type) << ", " << shape.pages << " page(s), read as "
        << getSpaceName(space) << "\n";
    if (!picture.description.empty())
        out << "  description: " << picture.description << "\n";
    if (!picture.doubt.empty())
        out << "  " << picture.doubt << "; convert needs --from\n";
    if (!picture.note.empty())
        out << "  " << picture.note << "\n";
    for (std::size_t channel = 0; channel < shape.channels; ++channel)
    {
        const ChannelRange range = measureChannel(picture, channel);
        out << "  channel " << getChannelName(space, channel) << ": ";
        if (range.nbFinite == 0)
            out << "no finite sample";
        else
            out << range.minimum << " to " << range.maximum;
        if (range.nbOthers != 0)
            out << ", " << range.nbOthers << " sample(s) not finite";
        out << "\n";
    }
}
} // namespace

void runInfo(const InfoOptions& options, std::ostream& out)
{
    ReadLimits limits;
    if (options.maxMemory != 0)
        limits.maxBytes = options.maxMemory << 20;
    Picture picture = readPicture(options.file, limits);
    const image::eColorGeometryType space = getDefaultSpace(picture.shape.channels);
    // What convert would point out.
    const std::string tagNote = noteOnSpaceTag(picture.description, space);
    if (!tagNote.empty())
        picture.note += (picture.note.empty() ? "" : "; ") + tagNote;
    if (options.bJson)
        printJson(options, picture, space, out);
    else
        printText(options, picture, space, out);
}
} // namespace kovis::tool
