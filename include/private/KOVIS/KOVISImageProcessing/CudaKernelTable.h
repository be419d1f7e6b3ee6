#pragma once

#include "KOVIS/KOVISBaseProcessing/CudaFunctionSelector.h"
#include "KOVIS/KOVISImageProcessing/BufferTypeKeys.h"

#include <string>

namespace kovis::imaproc
{
/// Enters the GPU kernels of a processor class into the class's table, while its library loads, as KernelTable does those of the
/// processor; neither the device nor the computer is asked. Returns true whatever happened: refused rows are told in the log, by
/// the place.
template <unsigned int nbPositions, class TProcessor, class TKernelOf>
bool enterCudaTable(const TKernelOf& kernelOf, const SourcePlace& place)
{
    processor::CudaFunctionSelector& selector = TProcessor::retrieveFunctionSelector();
    processor::DataTypeIdentifierColl types;
    processor::CudaFunctionIdentifier row;
    std::string errors;
    forEachKey<nbPositions>(
        [&]<int... key>()
        {
            using Function = processor::CudaFunctionIdentifier::Function;
            types.init(getTypeIdentifier(static_cast<image::eImageBufferType>(key))...);
            row.init(types, static_cast<Function>(kernelOf.template operator()<BufferElement<key>...>()));
            addRefusal(selector.registerFunction(row), errors);
        });
    return reportRefusals(errors, place);
}
} // namespace kovis::imaproc
