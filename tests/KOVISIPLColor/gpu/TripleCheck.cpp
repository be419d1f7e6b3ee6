#include "TripleCheck.h"

#include "GpuFixture.h"

#include "KOVIS/KOVISHardware/CudaRuntime.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/AppendColorChannelImg_knlLauncher.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <stdexcept>
#include <utility>

namespace kovis::test
{
namespace
{
using Types = std::tuple<signed char, unsigned char, short, unsigned short, int, unsigned int, float>;
template <std::size_t i>
using TypeAt = std::tuple_element_t<i, Types>;

constexpr std::size_t g_nbCanaryBytes = 64;
constexpr unsigned char g_canary = 0xA5;

/// Calls work.operator()<T>() for the type.
template <class TWork>
auto withType(PixelType type, const TWork& work)
{
    switch (type)
    {
    case PixelType::i8:
        return work.template operator()<signed char>();
    case PixelType::u8:
        return work.template operator()<unsigned char>();
    case PixelType::i16:
        return work.template operator()<short>();
    case PixelType::u16:
        return work.template operator()<unsigned short>();
    case PixelType::i32:
        return work.template operator()<int>();
    case PixelType::u32:
        return work.template operator()<unsigned int>();
    case PixelType::f32:
        return work.template operator()<float>();
    }
    throw std::logic_error("no such pixel type");
}

std::vector<float> getFloatEdges()
{
    const float infinity = std::numeric_limits<float>::infinity();
    std::vector<float> edges = {0.0F,
                                -0.0F,
                                0.5F,
                                -0.5F,
                                0.999999F,
                                -0.999999F,
                                3.9F,
                                -3.9F,
                                1e-45F,
                                -1e-45F,
                                infinity,
                                -infinity,
                                std::bit_cast<float>(0x7FC00001U),
                                std::bit_cast<float>(0xFFC00002U),
                                300.0F,
                                40000.0F,
                                1e30F,
                                -1e30F};
    // Around the limits of every type, those of float by their bits.
    for (const float limit :
         {-128.0F, 127.0F, 255.0F, -32768.0F, 32767.0F, 65535.0F, -2147483648.0F, 2147483648.0F, 4294967296.0F,
          std::bit_cast<float>(0xFF7FFFEEU), std::bit_cast<float>(0xFF7FFFFFU), std::bit_cast<float>(0x7F7FFFFFU)})
    {
        for (const float value :
             {limit, std::nextafter(limit, infinity), std::nextafter(limit, -infinity), limit + 0.5F, limit - 0.5F})
        {
            edges.push_back(value);
        }
    }
    return edges;
}

template <class T>
std::vector<T> getEdges()
{
    if constexpr (std::is_same_v<T, float>)
    {
        return getFloatEdges();
    }
    else
    {
        std::vector<T> edges;
        for (const long long limit : {0LL, -128LL, 127LL, 255LL, -32768LL, 32767LL, 65535LL, 16777216LL, 2147483647LL,
                                      -2147483648LL, 4294967295LL, 4294967168LL, 4294934528LL, 2147483648LL})
        {
            for (const long long value : {limit - 1, limit, limit + 1})
            {
                if (value >= std::numeric_limits<T>::min() && value <= std::numeric_limits<T>::max())
                {
                    edges.push_back(static_cast<T>(value));
                }
            }
        }
        return edges;
    }
}

/// Planes in device memory, and the table of their addresses there.
class DevicePlanes
{
public:
    explicit DevicePlanes(const TypedPlanes& planes)
    {
        std::vector<void*> addresses;
        for (const auto& plane : planes.m_planes)
        {
            addresses.push_back(put(plane.data(), plane.size()));
        }
        m_pTable = put(addresses.data(), addresses.size() * sizeof(void*));
    }

    void* getTable() const { return m_pTable; }

    void fetch(TypedPlanes& planes) const
    {
        for (std::size_t c = 0; c < planes.m_planes.size(); ++c)
        {
            check(gpu::CudaRuntime::getInstance().copyToHost(planes.m_planes[c].data(), m_memory[c]->getData(),
                                                             planes.m_planes[c].size()));
        }
    }

private:
    static void check(const gpu::CudaResult& result)
    {
        if (!result)
        {
            throw std::runtime_error(result.m_text);
        }
    }

    void* put(const void* pSource, std::size_t nbBytes)
    {
        m_memory.push_back(std::make_unique<gpu::DeviceMemory>());
        check(m_memory.back()->allocate(nbBytes));
        check(gpu::CudaRuntime::getInstance().copyToDevice(m_memory.back()->getData(), pSource, nbBytes));
        return m_memory.back()->getData();
    }

    std::vector<std::unique_ptr<gpu::DeviceMemory>> m_memory;
    void* m_pTable = nullptr;
};

using Launch = gpu::CudaResult (*)(const gpu::LauncherInfo&, unsigned long, unsigned long, void*, void*, void*);

template <class T1, class T2, class Tout>
gpu::CudaResult launch(const gpu::LauncherInfo& info, unsigned long sizeC1, unsigned long sizeC2, void* in1, void* in2, void* out)
{
    return imaproc::color::gpu::AppendColorChannelImg_knlLauncher<T1, T2, Tout>(
        &info, sizeC1, sizeC2, static_cast<T1 const**>(in1), static_cast<T2 const**>(in2), static_cast<Tout**>(out));
}

/// By the three types' numbers from 0 on, the last running fastest.
template <std::size_t... i>
constexpr std::array<Launch, sizeof...(i)> makeLaunches(std::index_sequence<i...>)
{
    return {&launch<TypeAt<i / 49>, TypeAt<i / 7 % 7>, TypeAt<i % 7>>...};
}

constexpr std::array<Launch, 343> g_launches = makeLaunches(std::make_index_sequence<343>());

std::size_t toIndex(PixelType type)
{
    return static_cast<std::size_t>(type) - 1;
}

std::string describe(const PixelValue& value)
{
    return value.m_type == PixelType::f32
               ? std::to_string(std::bit_cast<float>(value.m_bits)) + " (bits " + std::to_string(value.m_bits) + ")"
               : std::to_string(value.m_number);
}
} // namespace

std::size_t getElementSize(PixelType type)
{
    return withType(type, []<class T>() { return sizeof(T); });
}

std::string getName(PixelType type)
{
    static const char* const g_names[] = {"i8", "u8", "i16", "u16", "i32", "u32", "f32"};
    return g_names[toIndex(type)];
}

PixelValue getPixel(const TypedPlanes& planes, std::size_t c, std::size_t index)
{
    return withType(planes.m_type,
                    [&]<class T>()
                    {
                        T pixel{};
                        std::memcpy(&pixel, planes.m_planes[c].data() + index * sizeof(T), sizeof(T));
                        PixelValue value{planes.m_type, 0, 0};
                        if constexpr (std::is_same_v<T, float>)
                        {
                            value.m_bits = std::bit_cast<std::uint32_t>(pixel);
                        }
                        else
                        {
                            value.m_number = pixel;
                        }
                        return value;
                    });
}

TypedPlanes makeEmpty(PixelType type, std::size_t nbPlanes, std::size_t nbElements)
{
    return {type, std::vector<std::vector<unsigned char>>(
                      nbPlanes, std::vector<unsigned char>(nbElements * getElementSize(type) + g_nbCanaryBytes, g_canary))};
}

TypedPlanes makeSamples(PixelType type, std::size_t nbPlanes, std::size_t nbElements, std::mt19937& random)
{
    TypedPlanes samples = makeEmpty(type, nbPlanes, nbElements);
    withType(type,
             [&]<class T>()
             {
                 const std::vector<T> edges = getEdges<T>();
                 for (auto& plane : samples.m_planes)
                 {
                     for (std::size_t i = 0; i < nbElements; ++i)
                     {
                         const auto bits = static_cast<std::uint32_t>(random());
                         const void* const pSource = i < edges.size() ? static_cast<const void*>(&edges[i]) : &bits;
                         std::memcpy(plane.data() + i * sizeof(T), pSource, sizeof(T));
                     }
                 }
             });
    return samples;
}

gpu::CudaResult launchTriple(const gpu::LauncherInfo& info, const TypedPlanes& in1, const TypedPlanes& in2, TypedPlanes& out)
{
    // The first device that there is code for, which need not be the first of all.
    const gpu::DeviceScope scope(getGpus().getCudaDevice(0));
    if (!scope.getResult())
    {
        return scope.getResult();
    }
    const DevicePlanes device1(in1);
    const DevicePlanes device2(in2);
    const DevicePlanes deviceOut(out);
    const gpu::CudaResult result = g_launches[toIndex(in1.m_type) * 49 + toIndex(in2.m_type) * 7 + toIndex(out.m_type)](
        info, in1.m_planes.size(), in2.m_planes.size(), device1.getTable(), device2.getTable(), deviceOut.getTable());
    if (result)
    {
        deviceOut.fetch(out);
    }
    return result;
}

std::string findDifference(const TypedPlanes& in1, const TypedPlanes& in2, const TypedPlanes& out, std::size_t nbWritten,
                           std::size_t nbElements)
{
    const std::size_t sizeC1 = in1.m_planes.size();
    for (std::size_t c = 0; c < out.m_planes.size(); ++c)
    {
        const TypedPlanes& in = c < sizeC1 ? in1 : in2;
        for (std::size_t i = 0; c < nbWritten && i < nbElements; ++i)
        {
            const PixelValue source = getPixel(in, c < sizeC1 ? c : c - sizeC1, i);
            const PixelValue expected = appendOnGpuModel(source, (c < sizeC1 ? in2 : in1).m_type, out.m_type);
            const PixelValue found = getPixel(out, c, i);
            if (found.m_number != expected.m_number || found.m_bits != expected.m_bits)
            {
                return getName(in1.m_type) + ", " + getName(in2.m_type) + " to " + getName(out.m_type) + ", channel " +
                       std::to_string(c) + ", pixel " + std::to_string(i) + ": " + describe(source) + " became " +
                       describe(found) + ", not " + describe(expected);
            }
        }
        const std::size_t firstUntouched = c < nbWritten ? nbElements * getElementSize(out.m_type) : 0;
        for (std::size_t i = firstUntouched; i < out.m_planes[c].size(); ++i)
        {
            if (out.m_planes[c][i] != g_canary)
            {
                return "byte " + std::to_string(i) + " of channel " + std::to_string(c) + " was written";
            }
        }
    }
    return std::string();
}
} // namespace kovis::test
