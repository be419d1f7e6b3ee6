#include "KOVIS/KOVISBaseProcessing/CudaFunctionSelector.h"

#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"

namespace kovis::processor
{
namespace
{
// Where messages name instruction sets, a GPU kernel has none.
const char* const g_sets = "of the GPU";
} // namespace

void CudaFunctionIdentifier::init(const DataTypeIdentifierColl& types, Function function)
{
    m_types = types;
    m_function = function;
}

CudaFunctionSelector::CudaFunctionSelector() = default;
CudaFunctionSelector::~CudaFunctionSelector() = default;

BoolResult CudaFunctionSelector::registerFunction(const CudaFunctionIdentifier& identifier)
{
    const DataTypeIdentifierColl& types = identifier.getDataTypes();
    if (types.getSize() == 0)
    {
        return BoolResult(false, processingText(eAlgorithmFunctionMessage::eAFM_EmptyKey, g_sets));
    }
    if (identifier.getFunction() == nullptr)
    {
        return BoolResult(false, processingText(eAlgorithmFunctionMessage::eAFM_NoFunction, types.getName(), g_sets));
    }
    if (!m_rowByKey.try_emplace(types, m_functions.size()).second)
    {
        return BoolResult(false, processingText(eAlgorithmFunctionMessage::eAFM_DoubledRow, types.getName(), g_sets));
    }
    m_functions.push_back(identifier);
    return BoolResult(true);
}

BoolResult CudaFunctionSelector::select(const DataTypeIdentifierColl& types, CudaFunctionIdentifier& identifier) const
{
    const auto found = m_rowByKey.find(types);
    if (found == m_rowByKey.end())
    {
        return BoolResult(false, processingText(eAlgorithmFunctionMessage::eAFM_NoRow, types.getName()));
    }
    identifier = m_functions[found->second];
    return BoolResult(true);
}
} // namespace kovis::processor
