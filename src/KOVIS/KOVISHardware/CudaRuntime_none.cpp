#include "KOVIS/KOVISHardware/CudaRuntime.h"

// The runtime of a build without device code.

namespace kovis::gpu
{
namespace
{
class NoRuntime : public CudaRuntime
{
public:
    CudaResult countDevices(int&) override { return refuse(); }
    CudaResult readProperties(int, DeviceProperties&) override { return refuse(); }
    bool hasCodeFor(int, int) override { return false; }
    CudaResult getDevice(int&) override { return refuse(); }
    CudaResult setDevice(int) override { return refuse(); }
    CudaResult allocate(std::size_t, void*&) override { return refuse(); }
    CudaResult release(void*) override { return refuse(); }
    CudaResult fillWithZeros(void*, std::size_t) override { return refuse(); }
    CudaResult copyToDevice(void*, const void*, std::size_t) override { return refuse(); }
    CudaResult copyToHost(void*, const void*, std::size_t) override { return refuse(); }

private:
    static CudaResult refuse() { return {false, g_noDeviceCode}; }
};
} // namespace

CudaRuntime& detail::getBuiltRuntime()
{
    // Never destroyed: images may be dropped while the process ends.
    static auto* const g_pRuntime = new NoRuntime();
    return *g_pRuntime;
}
} // namespace kovis::gpu
