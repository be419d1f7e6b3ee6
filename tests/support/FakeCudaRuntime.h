#pragma once

#include "KOVIS/KOVISHardware/CudaRuntime.h"

#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace kovis::test
{
/// A CUDA runtime on a computer without a GPU: device memory is host memory that nobody else gets, every range is checked, and
/// any call can be made to fail.
class FakeCudaRuntime : public gpu::CudaRuntime
{
public:
    static constexpr const char* g_failure = "the fake device refuses";
    static constexpr const char* g_badRange = "a range lies outside the fake device's memory";

    /// Puts one in the place of the runtime for the rest of the process: to be called before anybody asks for devices.
    static FakeCudaRuntime& install()
    {
        static auto* const g_pRuntime = new FakeCudaRuntime();
        exchange(g_pRuntime);
        return *g_pRuntime;
    }

    /// Lets the call of that name fail, after so many good ones of it.
    void failAt(const std::string& call, int nbGoodCalls = 0)
    {
        const std::lock_guard lock(m_mutex);
        m_failing = call;
        m_nbGoodCalls = nbGoodCalls;
    }
    void failNowhere() { failAt(std::string()); }
    std::size_t getNbAllocated() const
    {
        const std::lock_guard lock(m_mutex);
        return m_memory.size();
    }
    /// How often a call was asked for.
    int getNbCalls(const std::string& call) const
    {
        const std::lock_guard lock(m_mutex);
        int nbCalls = 0;
        for (std::size_t at = m_calls.find(call + " "); at != std::string::npos; at = m_calls.find(call + " ", at + 1))
        {
            ++nbCalls;
        }
        return nbCalls;
    }

    // For a test to read and to set while no thread is at work.
    std::vector<gpu::DeviceProperties> m_devices = {{"Fake", 7, 5, 3, 2048, 1024}};
    int m_device = 0;
    std::string m_calls; ///< names of the calls, one after the other

    gpu::CudaResult countDevices(int& nbDevices) override
    {
        nbDevices = static_cast<int>(m_devices.size());
        return answer("countDevices");
    }
    gpu::CudaResult readProperties(int device, gpu::DeviceProperties& properties) override
    {
        properties = m_devices.at(static_cast<std::size_t>(device));
        return answer("readProperties");
    }
    bool hasCodeFor(int major, int) override { return major >= 7; }
    gpu::CudaResult getDevice(int& device) override
    {
        const gpu::CudaResult result = answer("getDevice");
        const std::lock_guard lock(m_mutex);
        device = m_device;
        return result;
    }
    gpu::CudaResult setDevice(int device) override
    {
        const gpu::CudaResult result = answer("setDevice");
        const std::lock_guard lock(m_mutex);
        m_device = result ? device : m_device;
        return result;
    }
    gpu::CudaResult allocate(std::size_t nbBytes, void*& pMemory) override
    {
        const gpu::CudaResult result = answer("allocate");
        if (result)
        {
            const std::lock_guard lock(m_mutex);
            pMemory = std::malloc(nbBytes);
            std::memset(pMemory, 0xCD, nbBytes);
            m_memory[static_cast<char*>(pMemory)] = nbBytes;
        }
        return result;
    }
    gpu::CudaResult release(void* pMemory) override
    {
        const std::lock_guard lock(m_mutex);
        const bool bKnown = m_memory.erase(static_cast<char*>(pMemory)) == 1;
        if (bKnown)
        {
            std::free(pMemory);
        }
        return bKnown ? gpu::CudaResult{} : gpu::CudaResult{false, g_badRange};
    }
    gpu::CudaResult fillWithZeros(void* pMemory, std::size_t nbBytes) override
    {
        return touch("fillWithZeros", pMemory, nbBytes, [&] { std::memset(pMemory, 0, nbBytes); });
    }
    gpu::CudaResult copyToDevice(void* pTarget, const void* pSource, std::size_t nbBytes) override
    {
        return touch("copyToDevice", pTarget, nbBytes, [&] { std::memcpy(pTarget, pSource, nbBytes); });
    }
    gpu::CudaResult copyToHost(void* pTarget, const void* pSource, std::size_t nbBytes) override
    {
        return touch("copyToHost", pSource, nbBytes, [&] { std::memcpy(pTarget, pSource, nbBytes); });
    }

private:
    gpu::CudaResult answer(const std::string& call)
    {
        const std::lock_guard lock(m_mutex);
        m_calls += call + " ";
        return m_failing == call && m_nbGoodCalls-- <= 0 ? gpu::CudaResult{false, g_failure} : gpu::CudaResult{};
    }

    template <class TWork>
    gpu::CudaResult touch(const std::string& call, const void* pDevice, std::size_t nbBytes, const TWork& work)
    {
        const gpu::CudaResult result = answer(call);
        if (!result)
        {
            return result;
        }
        const std::lock_guard lock(m_mutex);
        const auto after = m_memory.upper_bound(static_cast<char*>(const_cast<void*>(pDevice)));
        if (after == m_memory.begin())
        {
            return {false, g_badRange};
        }
        const auto& [pBegin, size] = *std::prev(after);
        const auto offset = static_cast<std::size_t>(static_cast<const char*>(pDevice) - pBegin);
        if (offset > size || nbBytes > size - offset)
        {
            return {false, g_badRange};
        }
        work();
        return {};
    }

    mutable std::mutex m_mutex;
    std::map<char*, std::size_t> m_memory;
    std::string m_failing;
    int m_nbGoodCalls = 0;
};
} // namespace kovis::test
