#pragma once

#include "KOVIS/KOVISHardware/CudaResult.h"
#include "KOVIS/KOVISHardware/KOVISHardwareExport.h"

#include <cstddef>
#include <string>

namespace kovis::gpu
{
/// What is asked of a device.
struct DeviceProperties
{
    std::string m_name;
    int m_major = 0; ///< compute capability
    int m_minor = 0;
    int m_nbMultiProcessors = 0;
    int m_maxThreadsPerMultiProcessor = 0;
    int m_maxThreadsPerBlock = 0;
};

/// All that this system calls of the CUDA runtime, apart from the launch of its kernels. Nothing throws: what fails is answered
/// in the runtime's own words. In a build without device code every call fails, and says why. Safe from any thread.
class KOVISHARDWARE_EXPORT CudaRuntime
{
public:
    virtual ~CudaRuntime();
    CudaRuntime(const CudaRuntime&) = delete;
    CudaRuntime& operator=(const CudaRuntime&) = delete;

    static CudaRuntime& getInstance();
    /// Puts another in the place of the runtime, for tests, and returns the one before. Null stands for the real one.
    static CudaRuntime* exchange(CudaRuntime* pRuntime);

    virtual CudaResult countDevices(int& nbDevices) = 0;
    virtual CudaResult readProperties(int device, DeviceProperties& properties) = 0;
    /// Whether this build holds code for devices of that compute capability.
    virtual bool hasCodeFor(int major, int minor) = 0;
    /// The device that this thread works with.
    virtual CudaResult getDevice(int& device) = 0;
    virtual CudaResult setDevice(int device) = 0;
    virtual CudaResult allocate(std::size_t nbBytes, void*& pMemory) = 0;
    virtual CudaResult release(void* pMemory) = 0;
    virtual CudaResult fillWithZeros(void* pMemory, std::size_t nbBytes) = 0;
    virtual CudaResult copyToDevice(void* pTarget, const void* pSource, std::size_t nbBytes) = 0;
    virtual CudaResult copyToHost(void* pTarget, const void* pSource, std::size_t nbBytes) = 0;

protected:
    CudaRuntime() = default;
};

namespace detail
{
/// The real one: that of the toolkit, or in a build without device code the one that fails.
CudaRuntime& getBuiltRuntime();
} // namespace detail

/// The text of a build without device code.
inline constexpr const char* g_noDeviceCode =
    "device code was left out of this build: configure it with KOVIS_WITH_CUDA=ON where "
    "a CUDA toolkit is installed";

/// Makes a device that of this thread, and gives back the one before.
class KOVISHARDWARE_EXPORT DeviceScope
{
public:
    explicit DeviceScope(int device);
    ~DeviceScope();
    DeviceScope(const DeviceScope&) = delete;
    DeviceScope& operator=(const DeviceScope&) = delete;

    /// Whether the device was taken, and why not.
    const CudaResult& getResult() const { return m_result; }

private:
    CudaResult m_result;
    int m_before = 0;
    bool m_bChanged = false;
};

/// A run of bytes in the memory of a device, given back with the object.
class KOVISHARDWARE_EXPORT DeviceMemory
{
public:
    DeviceMemory() = default;
    ~DeviceMemory();
    DeviceMemory(const DeviceMemory&) = delete;
    DeviceMemory& operator=(const DeviceMemory&) = delete;

    /// To be called once, on the device that this thread works with.
    CudaResult allocate(std::size_t nbBytes);
    /// The device pointer; null before a successful allocate.
    void* getData() const { return m_pData; }

private:
    void* m_pData = nullptr;
};
} // namespace kovis::gpu
