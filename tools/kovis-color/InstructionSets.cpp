#include "InstructionSets.h"

#include "ColourSpace.h"
#include "LibraryImage.h"
#include "ToolError.h"

#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISImageProcessing/ImageBufferTypeIdentifier.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"

#include <algorithm>
#include <cstdlib>

namespace kovis::tool
{
namespace
{
using imaproc::color::ColorConvertImgLvl3;
constexpr const char* g_variable = "KOVIS_MAX_INSTRUCTION_SET";
} // namespace

processor::InstructionSetsIdentifier KernelForm::getSets() const
{
    processor::InstructionSetsIdentifier sets;
    sets.init(first, second);
    return sets;
}

bool KernelForm::isAvailable() const
{
    return core::isAvailable(first) && core::isAvailable(second);
}

const std::vector<KernelForm>& getKernelForms()
{
    static const std::vector<KernelForm> g_forms = {{"generic", eInstructionSet::eIS_Generic, eInstructionSet::eIS_Generic},
                                                    {"sse2", eInstructionSet::eIS_SSE2, eInstructionSet::eIS_SSE2},
                                                    {"avx", eInstructionSet::eIS_AVX, eInstructionSet::eIS_AVX},
                                                    {"avx2", eInstructionSet::eIS_AVX2, eInstructionSet::eIS_AVX2},
                                                    {"fma3", eInstructionSet::eIS_FMA3, eInstructionSet::eIS_AVX2}};
    return g_forms;
}

void forceKernelForm(const std::string& name)
{
    std::vector<const char*> names;
    for (const KernelForm& form : getKernelForms())
    {
        if (name == form.name)
        {
            if (!form.isAvailable())
                throw ToolError("--isa", "this machine cannot run " + name, "see what it can run by kovis-color kernels");
            ColorConvertImgLvl3::forceInstructionSets(form.getSets());
            return;
        }
        names.push_back(form.name);
    }
    throw ToolError("--isa", "there is no instruction set '" + name + "'",
                    "did you mean '" + findNearest(name, names.data(), names.size()) + "'? Take generic, sse2, avx, avx2 or fma3",
                    eMisused);
}

KernelRow findConversionKernel(ElementType inputType, ElementType resultType)
{
    imaproc::ImageBufferTypeIdentifier input;
    input.init(toBufferType(inputType));
    imaproc::ImageBufferTypeIdentifier result;
    result.init(toBufferType(resultType));
    processor::DataTypeIdentifierColl key;
    key.init(input, result);
    processor::AlgorithmFunctionIdentifier row;
    const BoolResult found =
        ColorConvertImgLvl3::retrieveFunctionSelector().select(key, ColorConvertImgLvl3::retrieveForcedInstructionSets(), row);
    if (!found)
        throw ToolError("kovis-color", found.getMessage(), "");
    const processor::InstructionSetsIdentifier& sets = row.getInstructionSets();
    const auto form = std::find_if(getKernelForms().begin(), getKernelForms().end(),
                                   [&sets](const KernelForm& known) { return known.getSets() == sets; });
    return {form == getKernelForms().end() ? std::string() : form->name, sets.getName()};
}

std::vector<std::pair<std::string, const processor::AlgorithmFunctionSelector*>> getKernelTables()
{
    return {{ColorConvertImgLvl3::getObjectNameStr(), &ColorConvertImgLvl3::retrieveFunctionSelector()}};
}

void checkEnvironment()
{
    const char* value = std::getenv(g_variable);
    if (value != nullptr && *value != '\0' && !core::isInstructionSetName(value))
        throw ToolError(g_variable, "'" + std::string(value) + "' is no instruction set",
                        "set it to one of " + std::string(core::getInstructionSetNames()) + ", or unset it", eMisused);
}
} // namespace kovis::tool
