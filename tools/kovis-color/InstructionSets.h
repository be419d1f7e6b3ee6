#pragma once

#include "Picture.h"

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"

#include <string>
#include <utility>
#include <vector>

namespace kovis::tool
{
/// A form of the kernels by its name on the command line: "generic", "sse2", "avx", "avx2", "fma3", "avx512".
struct KernelForm
{
    const char* name;
    eInstructionSet::domain first;
    eInstructionSet::domain second;

    processor::InstructionSetsIdentifier getSets() const;
    /// Whether this machine can run it.
    bool isAvailable() const;
};

/// All forms, the weakest first.
const std::vector<KernelForm>& getKernelForms();

/// Makes all conversions, lightness computations or appends run that form. Throws ToolError for a name that they have no kernels of
/// (misused) and for a form that cannot run here.
void forceConversionForm(const std::string& name);
void forceLightnessForm(const std::string& name);
void forceAppendForm(const std::string& name);

/// A row of the conversion's kernel table.
struct KernelRow
{
    std::string form; ///< as --isa takes it
    std::string sets; ///< the library's name of its instruction sets
};

/// The row that a conversion between images of these element types takes on this machine. Throws ToolError if there is none.
KernelRow findConversionKernel(ElementType inputType, ElementType resultType);

/// The kernel tables by the names of their classes.
std::vector<std::pair<std::string, const processor::AlgorithmFunctionSelector*>> getKernelTables();

/// Throws ToolError (misused) when KOVIS_MAX_INSTRUCTION_SET holds an unknown name.
void checkEnvironment();
} // namespace kovis::tool
