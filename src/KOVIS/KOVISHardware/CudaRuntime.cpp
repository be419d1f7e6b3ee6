#include "KOVIS/KOVISHardware/CudaRuntime.h"

#include <atomic>

namespace kovis::gpu
{
namespace
{
std::atomic<CudaRuntime*> g_pReplacement{nullptr};
} // namespace

CudaRuntime::~CudaRuntime() = default;

CudaRuntime& CudaRuntime::getInstance()
{
    CudaRuntime* const pReplacement = g_pReplacement.load();
    return pReplacement != nullptr ? *pReplacement : detail::getBuiltRuntime();
}

CudaRuntime* CudaRuntime::exchange(CudaRuntime* pRuntime)
{
    return g_pReplacement.exchange(pRuntime);
}

DeviceScope::DeviceScope(int device)
{
    CudaRuntime& runtime = CudaRuntime::getInstance();
    m_result = runtime.getDevice(m_before);
    if (m_result && m_before != device)
    {
        m_result = runtime.setDevice(device);
        m_bChanged = m_result.m_bSuccess;
    }
}

DeviceScope::~DeviceScope()
{
    if (m_bChanged)
    {
        // Where that fails the work is done all the same, and whoever comes next takes the device that he needs.
        CudaRuntime::getInstance().setDevice(m_before);
    }
}

DeviceMemory::~DeviceMemory()
{
    if (m_pData != nullptr)
    {
        CudaRuntime::getInstance().release(m_pData);
    }
}

CudaResult DeviceMemory::allocate(std::size_t nbBytes)
{
    return CudaRuntime::getInstance().allocate(nbBytes, m_pData);
}
} // namespace kovis::gpu
