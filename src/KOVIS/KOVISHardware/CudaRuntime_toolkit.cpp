#include "KOVIS/KOVISHardware/CudaRuntime.h"

#include "KOVIS/KOVISHardware/deviceRules.h"

#include <cuda_runtime_api.h>

// The runtime of the CUDA toolkit, linked into this library: it looks for the driver when it is first called, so that the library
// loads on a machine without one.

namespace kovis::gpu
{
namespace
{
CudaResult toResult(cudaError_t error)
{
    if (error == cudaSuccess)
    {
        return {};
    }
    // The error is told here: it must not be found again by a later call.
    cudaGetLastError();
    return {false, cudaGetErrorString(error)};
}

class ToolkitRuntime : public CudaRuntime
{
public:
    CudaResult countDevices(int& nbDevices) override { return toResult(cudaGetDeviceCount(&nbDevices)); }

    CudaResult readProperties(int device, DeviceProperties& properties) override
    {
        cudaDeviceProp told{};
        const cudaError_t error = cudaGetDeviceProperties(&told, device);
        if (error == cudaSuccess)
        {
            properties = {told.name,
                          told.major,
                          told.minor,
                          told.multiProcessorCount,
                          told.maxThreadsPerMultiProcessor,
                          told.maxThreadsPerBlock};
        }
        return toResult(error);
    }

    bool hasCodeFor(int major, int minor) override
    {
        return isCovered({KOVIS_CUDA_CODE_ARCHITECTURES}, KOVIS_CUDA_PTX_ARCHITECTURE, major, minor);
    }

    CudaResult getDevice(int& device) override { return toResult(cudaGetDevice(&device)); }
    CudaResult setDevice(int device) override { return toResult(cudaSetDevice(device)); }
    CudaResult allocate(std::size_t nbBytes, void*& pMemory) override { return toResult(cudaMalloc(&pMemory, nbBytes)); }
    CudaResult release(void* pMemory) override { return toResult(cudaFree(pMemory)); }

    // A fill and a copy from pageable memory may return before they are done: what is told here has happened.
    CudaResult fillWithZeros(void* pMemory, std::size_t nbBytes) override
    {
        return toResultOfStream(cudaMemset(pMemory, 0, nbBytes));
    }
    CudaResult copyToDevice(void* pTarget, const void* pSource, std::size_t nbBytes) override
    {
        return toResultOfStream(cudaMemcpy(pTarget, pSource, nbBytes, cudaMemcpyHostToDevice));
    }
    CudaResult copyToHost(void* pTarget, const void* pSource, std::size_t nbBytes) override
    {
        return toResult(cudaMemcpy(pTarget, pSource, nbBytes, cudaMemcpyDeviceToHost));
    }

private:
    static CudaResult toResultOfStream(cudaError_t error)
    {
        return toResult(error == cudaSuccess ? cudaStreamSynchronize(nullptr) : error);
    }
};
} // namespace

CudaRuntime& detail::getBuiltRuntime()
{
    // Never destroyed: images may be dropped while the process ends.
    static auto* const g_pRuntime = new ToolkitRuntime();
    return *g_pRuntime;
}
} // namespace kovis::gpu
