#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"

#include <cstddef>
#include <map>
#include <vector>

namespace kovis::processor
{
class BaseGpuProcessingAlgorithm;

/// A row of a table of GPU kernels: data types, and the member function that launches the kernel.
class KOVISBASEPROCESSING_EXPORT CudaFunctionIdentifier
{
public:
    using Function = ProcessingResult<bool> (BaseGpuProcessingAlgorithm::*)();

    void init(const DataTypeIdentifierColl& types, Function function);

    const DataTypeIdentifierColl& getDataTypes() const { return m_types; }
    Function getFunction() const { return m_function; }

private:
    DataTypeIdentifierColl m_types;
    Function m_function = nullptr;
};

/// The GPU kernels of one processor class. Filled while the library loads, by one thread, whether a GPU is there or not; read
/// without a lock afterwards.
class KOVISBASEPROCESSING_EXPORT CudaFunctionSelector
{
public:
    CudaFunctionSelector();
    ~CudaFunctionSelector();
    CudaFunctionSelector(const CudaFunctionSelector&) = delete;
    CudaFunctionSelector& operator=(const CudaFunctionSelector&) = delete;

    /// False, with a message: no function, an empty key, or a row of the same key.
    BoolResult registerFunction(const CudaFunctionIdentifier& identifier);

    /// The row of this key. False, with a message that names the key, if there is none.
    BoolResult select(const DataTypeIdentifierColl& types, CudaFunctionIdentifier& identifier) const;

    /// All rows, in the order of registration.
    const std::vector<CudaFunctionIdentifier>& getFunctions() const { return m_functions; }

private:
    std::vector<CudaFunctionIdentifier> m_functions;
    std::map<DataTypeIdentifierColl, std::size_t> m_rowByKey;
};
} // namespace kovis::processor
