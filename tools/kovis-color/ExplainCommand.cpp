#include "ColourSpace.h"
#include "Commands.h"
#include "Explanation.h"
#include "Numbers.h"

#include <nlohmann/json.hpp>

#include <iomanip>
#include <ostream>
#include <sstream>

namespace kovis::tool
{
namespace
{
using Json = nlohmann::ordered_json;

std::string describeSpace(const ExplainedSpace& entry)
{
    return std::string(getSpaceName(entry.space)) + " " + getElementName(entry.type);
}

Json describeEnd(const ExplainedSpace& entry, const std::string& range)
{
    Json answer = {{"space", getSpaceName(entry.space)}, {"type", getElementName(entry.type)}};
    answer["channels"] = Json::array();
    for (std::size_t channel = 0; channel < getSpaceChannels(entry.space); ++channel)
        answer["channels"].push_back(getChannelName(entry.space, channel));
    answer["range"] = range;
    return answer;
}

/// What pictures and results of convert have in that space.
ElementType getUsualType(image::eColorGeometryType space)
{
    return space == image::eCGT_Grey ? ElementType::eU8 : getLibraryType(image::eCGT_Rgb, space, ElementType::eU8);
}

void printJson(const Explanation& explanation, std::ostream& out)
{
    Json answer;
    answer["from"] = describeEnd(explanation.spaces.front(), explanation.sourceRange);
    answer["to"] = describeEnd(explanation.spaces.back(), explanation.targetRange);
    answer["loss"] = explanation.loss;
    answer["copy"] = explanation.bCopy;
    for (const ExplainedSpace& entry : explanation.spaces)
        answer["chain"].push_back({{"space", getSpaceName(entry.space)}, {"type", getElementName(entry.type)}});
    for (std::size_t place = 0; place < explanation.links.size(); ++place)
    {
        const ExplainedLink& link = explanation.links[place];
        answer["links"].push_back({{"from", getSpaceName(explanation.spaces[place].space)},
                                   {"to", getSpaceName(explanation.spaces[place + 1].space)},
                                   {"kernel", link.kernel},
                                   {"formula", link.formula},
                                   {"matrix", link.matrix.empty() ? Json() : Json(link.matrix)},
                                   {"note", link.note}});
    }
    answer["run"] = explanation.run;
    answer["row"] = {{"input", getElementName(explanation.kernelInput)},
                     {"output", getElementName(explanation.spaces.back().type)},
                     {"form", explanation.kernelForm},
                     {"instructionSets", explanation.kernelSets}};
    out << answer.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
}

// Rows under each other, as they are multiplied; the offset behind a bar.
void printMatrix(const std::vector<std::vector<double>>& matrix, std::ostream& out)
{
    constexpr int g_width = 13;
    for (const std::vector<double>& row : matrix)
    {
        std::ostringstream line;
        line << std::setprecision(9);
        for (std::size_t column = 0; column < row.size(); ++column)
            line << (column + 1 == row.size() ? "  | " : " ") << std::setw(column + 1 == row.size() ? 0 : g_width) << row[column];
        out << "    " << line.str() << "\n";
    }
}

void printText(const Explanation& explanation, std::ostream& out)
{
    const std::vector<ExplainedSpace>& spaces = explanation.spaces;
    out << "chain:   ";
    for (std::size_t place = 0; place < spaces.size(); ++place)
        out << (place == 0 ? "" : " -> ") << describeSpace(spaces[place]);
    out << (explanation.bCopy ? " (a plain copy)" : "") << "\n";
    for (std::size_t place = 0; place < explanation.links.size(); ++place)
    {
        const ExplainedLink& link = explanation.links[place];
        out << "link " << place + 1 << ":  " << getSpaceName(spaces[place].space) << " to "
            << getSpaceName(spaces[place + 1].space) << " by " << link.kernel << ": " << link.formula << "\n";
        if (!link.note.empty())
            out << "    " << link.note << "\n";
        printMatrix(link.matrix, out);
    }
    out << "reads:   " << explanation.sourceRange << "\n";
    out << "gives:   " << explanation.targetRange << "\n";
    out << "loses:   " << (explanation.loss.empty() ? "nothing but float rounding" : explanation.loss) << "\n";
    out << "runs:    " << explanation.run << "\n";
    out << "row:     " << getElementName(explanation.kernelInput) << " to " << getElementName(spaces.back().type) << ", "
        << explanation.kernelForm << " form (" << explanation.kernelSets << ")\n";
}
} // namespace

void runExplain(const ExplainOptions& options, std::ostream& out)
{
    const image::eColorGeometryType from = parseSpace("--from", options.from);
    const image::eColorGeometryType to = parseSpace("--to", options.to);
    const ElementType inputType = options.inputType.empty() ? getUsualType(from) : parseType("--input-type", options.inputType);
    std::optional<ElementType> resultType;
    if (!options.type.empty())
        resultType = parseType("--type", options.type);
    const Explanation explanation = explainConversion(from, to, inputType, resultType);
    if (options.bJson)
        printJson(explanation, out);
    else
        printText(explanation, out);
}
} // namespace kovis::tool
