#include "KOVIS/KOVISCore/BaseActionProvider.h"

namespace kovis::core
{
BaseActionRequest::~BaseActionRequest() = default;

BaseActionProvider::BaseActionProvider() = default;

BaseActionProvider::~BaseActionProvider() = default;

void BaseActionProvider::requestCancellationDerived()
{
    m_bCancelled.store(true, std::memory_order_release);
}
} // namespace kovis::core
