#include "kovis-color/TestFiles.h"

#include "ToolError.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <stdexcept>
#include <unistd.h>

namespace kovis::tool::test
{
namespace fs = std::filesystem;

TestFolder::TestFolder()
{
    // In memory where there is such a place: thousands of small files are written over and over.
    const fs::path memory("/dev/shm");
    const bool bMemory = ::access(memory.c_str(), W_OK | X_OK) == 0;
    std::string pattern = ((bMemory ? memory : fs::temp_directory_path()) / "kovis-color-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("no folder for the test");
    m_path = pattern;
}

TestFolder::~TestFolder()
{
    std::error_code error;
    fs::permissions(m_path, fs::perms::owner_all, error);
    fs::remove_all(m_path, error);
}

std::vector<std::string> TestFolder::getNames() const
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(m_path))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

Bytes readBytes(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
}

void writeBytes(const std::string& path, const Bytes& bytes)
{
    std::ofstream stream(path, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!stream)
        throw std::runtime_error("cannot write " + path);
}

namespace
{
template <class T>
void fill(Picture& picture, std::mt19937& random)
{
    for (std::size_t page = 0; page < picture.shape.pages; ++page)
    {
        for (std::size_t channel = 0; channel < picture.shape.channels; ++channel)
        {
            T* plane = picture.getPlane<T>(page, channel);
            for (std::size_t sample = 0; sample < picture.shape.getPlaneSamples(); ++sample)
            {
                const std::uint32_t bits = static_cast<std::uint32_t>(random());
                std::memcpy(&plane[sample], &bits, sizeof(T));
            }
            plane[0] = std::numeric_limits<T>::lowest();
            plane[picture.shape.getPlaneSamples() - 1] = std::numeric_limits<T>::max();
        }
    }
}
} // namespace

Picture makePicture(const PictureShape& shape)
{
    Picture picture;
    picture.shape = shape;
    picture.allocate();
    std::mt19937 random(20240517U + static_cast<unsigned int>(shape.channels));
    switch (shape.type)
    {
    case ElementType::eI8:
        fill<std::int8_t>(picture, random);
        break;
    case ElementType::eU8:
        fill<std::uint8_t>(picture, random);
        break;
    case ElementType::eI16:
        fill<std::int16_t>(picture, random);
        break;
    case ElementType::eU16:
        fill<std::uint16_t>(picture, random);
        break;
    case ElementType::eI32:
        fill<std::int32_t>(picture, random);
        break;
    case ElementType::eU32:
        fill<std::uint32_t>(picture, random);
        break;
    case ElementType::eF32:
        fill<float>(picture, random);
        break;
    }
    return picture;
}

bool isSame(const Picture& left, const Picture& right)
{
    const PictureShape& one = left.shape;
    const PictureShape& two = right.shape;
    if (one.sizeX != two.sizeX || one.sizeY != two.sizeY || one.pages != two.pages || one.channels != two.channels ||
        one.type != two.type || left.planes.size() != one.getNbPlanes() || right.planes.size() != one.getNbPlanes())
        return false;
    for (std::size_t plane = 0; plane < left.planes.size(); ++plane)
    {
        if (std::memcmp(left.planes[plane].getData(), right.planes[plane].getData(), one.getPlaneBytes()) != 0)
            return false;
    }
    return true;
}

std::string getErrorOf(const std::function<void()>& call)
{
    try
    {
        call();
    }
    catch (const ToolError& error)
    {
        return error.what();
    }
    return "no error";
}

void TiffBytes::addImage(unsigned int sizeX, unsigned int sizeY, unsigned int bits, unsigned int samples, unsigned int format,
                         unsigned int photometric)
{
    addLong(256, sizeX);
    addLong(257, sizeY);
    addShorts(258, std::vector<unsigned int>(samples, bits));
    addShort(259, 1);
    addShort(262, photometric);
    addShort(277, samples);
    addLong(278, sizeY);
    addShorts(339, std::vector<unsigned int>(samples, format));
}

void TiffBytes::put(Bytes& bytes, std::uint64_t value, unsigned int nbBytes) const
{
    for (unsigned int byte = 0; byte < nbBytes; ++byte)
    {
        const unsigned int place = m_bBigEndian ? nbBytes - 1 - byte : byte;
        bytes.push_back(static_cast<unsigned char>((value >> (8 * place)) & 255U));
    }
}

Bytes TiffBytes::build(const Bytes& samples) const
{
    std::vector<Entry> entries = m_entries;
    entries.push_back({273, 4, {0}});
    entries.push_back({279, 4, {static_cast<unsigned int>(samples.size())}});
    std::sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) { return left.tag < right.tag; });

    const std::size_t directoryEnd = 8 + 2 + 12 * entries.size() + 4;
    std::size_t extraBytes = 0;
    for (const Entry& entry : entries)
    {
        const std::size_t nbBytes = entry.values.size() * (entry.type == 3 ? 2 : 4);
        extraBytes += nbBytes > 4 ? nbBytes : 0;
    }

    Bytes bytes;
    bytes.push_back(m_bBigEndian ? 'M' : 'I');
    bytes.push_back(m_bBigEndian ? 'M' : 'I');
    put(bytes, 42, 2);
    put(bytes, 8, 4);
    put(bytes, entries.size(), 2);
    Bytes extra;
    for (Entry& entry : entries)
    {
        if (entry.tag == 273)
            entry.values = {static_cast<unsigned int>(directoryEnd + extraBytes)};
        const unsigned int elementBytes = entry.type == 3 ? 2 : 4;
        put(bytes, entry.tag, 2);
        put(bytes, entry.type, 2);
        put(bytes, entry.values.size(), 4);
        Bytes values;
        for (const unsigned int value : entry.values)
            put(values, value, elementBytes);
        if (values.size() > 4)
        {
            put(bytes, directoryEnd + extra.size(), 4);
            extra.insert(extra.end(), values.begin(), values.end());
        }
        else
        {
            values.resize(4);
            bytes.insert(bytes.end(), values.begin(), values.end());
        }
    }
    put(bytes, 0, 4);
    bytes.insert(bytes.end(), extra.begin(), extra.end());
    bytes.insert(bytes.end(), samples.begin(), samples.end());
    return bytes;
}
} // namespace kovis::tool::test
