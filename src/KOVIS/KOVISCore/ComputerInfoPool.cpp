#include "KOVIS/KOVISCore/ComputerInfoPool.h"

namespace kovis::core
{
BaseComputerInfo::BaseComputerInfo() : m_id(Guid::create()) {}

ComputerInfoPool::ComputerInfoPool() = default;

ComputerInfoPool::~ComputerInfoPool() = default;

ComputerInfoPool& ComputerInfoPool::getInstance()
{
    // Never destroyed: a background run may still ask while the process ends.
    static auto* const g_instance = new ComputerInfoPool();
    return *g_instance;
}
} // namespace kovis::core
