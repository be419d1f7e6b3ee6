#include "Explanation.h"

#include "ColourSpace.h"
#include "InstructionSets.h"
#include "LibraryImage.h"
#include "LinkDescription.h"
#include "Numbers.h"
#include "Ranges.h"
#include "ToolError.h"

#include "KOVIS/KOVISBaseImageTools/getLinearTransform.h"

namespace kovis::tool
{
namespace
{
std::vector<std::vector<double>> fetchMatrix(const ExplainedSpace& from, const ExplainedSpace& to)
{
    const image::LinearTransform transform =
        image::getLinearTransform(from.space, to.space, toBufferType(from.type), toBufferType(to.type));
    std::vector<std::vector<double>> rows;
    for (std::size_t row = 0; row < transform.getNbRows(); ++row)
    {
        const double* const begin = transform.getData() + row * transform.getNbColumns();
        rows.emplace_back(begin, begin + transform.getNbColumns());
    }
    return rows;
}

ExplainedLink explainLink(const ExplainedSpace& from, const ExplainedSpace& to, bool bInPlace)
{
    const LinkDescription description = describeLink(from.space, to.space);
    ExplainedLink link = {description.kernel, description.formula, {}, {}};
    const bool bUser = from.space == image::eCGT_User || to.space == image::eCGT_User;
    if (bUser)
        link.note = "--matrix gives the matrix: a row for each channel of " + std::string(getSpaceName(to.space)) +
                    ", in it a factor for each channel of " + getSpaceName(from.space) + ", then an offset";
    else if (description.bMatrix)
        link.matrix = fetchMatrix(from, to);
    if (bInPlace)
        link.note = "in place: the second row reads what the first wrote, the third what both wrote";
    return link;
}

void explainKernel(Explanation& explanation)
{
    const KernelRow row = findConversionKernel(explanation.kernelInput, explanation.spaces.back().type);
    explanation.kernelForm = row.form;
    explanation.kernelSets = row.sets;
}

void explainRun(Explanation& explanation, bool bRangeTested)
{
    const ElementType inputType = explanation.spaces.front().type;
    explanation.kernelInput = inputType;
    if (!bRangeTested)
    {
        explanation.run = "one step, straight from the input";
        return;
    }
    if (inputType == ElementType::eF32)
    {
        explanation.run = "the range of the samples is tested, then convert runs level 2 on each slice; level 1 would read a "
                          "working image that nothing fills, and give the result of zeros";
        return;
    }
    explanation.kernelInput = ElementType::eF32;
    explanation.run = "three steps: the range of the samples is tested, a working image takes them as f32, the kernels read that";
}
} // namespace

Explanation explainConversion(image::eColorGeometryType from, image::eColorGeometryType to, ElementType inputType,
                              const std::optional<ElementType>& resultType)
{
    const WayOfNumbers way(from, to);
    const ElementType targetType = resultType.value_or(getLibraryType(from, to, inputType));
    Explanation explanation;
    explanation.bCopy = way.isCopy();
    explanation.spaces.push_back({from, inputType});
    for (std::size_t place = 1; place + 1 < way.m_route.size(); ++place)
        explanation.spaces.push_back({way.m_route[place], ElementType::eF32});
    explanation.spaces.push_back({to, targetType});
    if (explanation.bCopy)
    {
        const LinkDescription copy = describeCopy();
        explanation.links.push_back({copy.kernel, copy.formula, {}, {}});
    }
    for (std::size_t place = 1; !explanation.bCopy && place < explanation.spaces.size(); ++place)
        explanation.links.push_back(
            explainLink(explanation.spaces[place - 1], explanation.spaces[place], way.isInPlace() && place == 2));
    explanation.sourceRange = describeSource(from, to, inputType);
    explanation.targetRange = describeRange(from, to, targetType);
    explanation.loss = describeSaturation(from, to, targetType);
    explainRun(explanation, way.isRangeTested());
    explainKernel(explanation);
    return explanation;
}
} // namespace kovis::tool
