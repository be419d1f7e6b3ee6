#include "InstructionSets.h"

#include "ColourSpace.h"
#include "LibraryImage.h"
#include "ToolError.h"

#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISImageProcessing/ImageBufferTypeIdentifier.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3.h"

#include <algorithm>
#include <cstdlib>

namespace kovis::tool
{
namespace
{
using imaproc::color::AppendColorChannelImgLvl3;
using imaproc::color::ColorConvertImgLvl3;
using imaproc::color::LightnessImgLvl3;
constexpr const char* g_variable = "KOVIS_MAX_INSTRUCTION_SET";

/// The form of that name, which --isa gave, among those that an algorithm has kernels of. Throws ToolError for another one
/// (misused), and for one that cannot run here.
const KernelForm& getAvailableForm(const std::string& name, const std::vector<const char*>& names)
{
    if (std::find(names.begin(), names.end(), name) == names.end())
    {
        std::string list = names.front();
        for (std::size_t i = 1; i < names.size(); ++i)
            list += (i + 1 == names.size() ? " or " : ", ") + std::string(names[i]);
        throw ToolError("--isa", "there is no instruction set " + quoteWord(name),
                        "did you mean '" + findNearest(name, names.data(), names.size()) + "'? Take " + list, eMisused);
    }
    const KernelForm& form = *std::find_if(getKernelForms().begin(), getKernelForms().end(),
                                           [&name](const KernelForm& known) { return name == known.name; });
    if (!form.isAvailable())
        throw ToolError("--isa", "this machine cannot run " + name, "see what it can run by kovis-color kernels");
    return form;
}
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
                                                    {"fma3", eInstructionSet::eIS_FMA3, eInstructionSet::eIS_AVX2},
                                                    {"avx512", eInstructionSet::eIS_AVX512, eInstructionSet::eIS_AVX512}};
    return g_forms;
}

void forceConversionForm(const std::string& name)
{
    ColorConvertImgLvl3::forceInstructionSets(getAvailableForm(name, {"generic", "sse2", "avx", "avx2", "fma3"}).getSets());
}

void forceLightnessForm(const std::string& name)
{
    LightnessImgLvl3::forceInstructionSets(getAvailableForm(name, {"generic", "sse2", "avx", "avx2", "avx512"}).getSets());
}

void forceAppendForm(const std::string& name)
{
    AppendColorChannelImgLvl3::forceInstructionSets(
        getAvailableForm(name, {"generic", "sse2", "avx", "avx2", "avx512"}).getSets());
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
    return {{ColorConvertImgLvl3::getObjectNameStr(), &ColorConvertImgLvl3::retrieveFunctionSelector()},
            {LightnessImgLvl3::getObjectNameStr(), &LightnessImgLvl3::retrieveFunctionSelector()},
            {AppendColorChannelImgLvl3::getObjectNameStr(), &AppendColorChannelImgLvl3::retrieveFunctionSelector()}};
}

void checkEnvironment()
{
    const char* value = std::getenv(g_variable);
    if (value != nullptr && *value != '\0' && !core::isInstructionSetName(value))
        throw ToolError(g_variable, quoteWord(value) + " is no instruction set",
                        "set it to one of " + std::string(core::getInstructionSetNames()) + ", or unset it", eMisused);
}
} // namespace kovis::tool
