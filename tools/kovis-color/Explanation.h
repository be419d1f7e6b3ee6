#pragma once

#include "Picture.h"

#include "KOVIS/KOVISImage/eColorGeometryType.h"

#include <optional>
#include <string>
#include <vector>

namespace kovis::tool
{
/// A space on a conversion's way: between the ends, 32-bit floats.
struct ExplainedSpace
{
    image::eColorGeometryType space;
    ElementType type;
};

struct ExplainedLink
{
    std::string kernel;
    std::string formula;
    std::vector<std::vector<double>> matrix; ///< rows with the offset at their ends; empty where the link has none of its own
    std::string note;                        ///< may be empty
};

/// All that there is to know of a conversion before it runs.
struct Explanation
{
    std::vector<ExplainedSpace> spaces; ///< source and target at the ends; both also for a copy
    bool bCopy = false;
    std::vector<ExplainedLink> links; ///< one fewer than the spaces; one for a copy, by copyConvert
    std::string sourceRange;
    std::string targetRange;
    std::string loss;        ///< what the result's type loses; empty for floats
    std::string run;         ///< the steps of a whole image
    ElementType kernelInput; ///< element type that the kernels read: not the input's where a working image lies between
    std::string kernelForm;  ///< as --isa takes it
    std::string kernelSets;  ///< the library's name of it
};

/// Explains the conversion of an image of inputType. Without resultType the library's own choice.
Explanation explainConversion(image::eColorGeometryType from, image::eColorGeometryType to, ElementType inputType,
                              const std::optional<ElementType>& resultType);
} // namespace kovis::tool
