#pragma once

#include "Picture.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace kovis::tool::test
{
/// A folder of a test's own, removed with all its files.
class TestFolder
{
public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::string getPath(const std::string& name) const { return (m_path / name).string(); }
    /// The names of all files in it, sorted, hidden ones too.
    std::vector<std::string> getNames() const;

private:
    std::filesystem::path m_path;
};

using Bytes = std::vector<unsigned char>;

Bytes readBytes(const std::string& path);
void writeBytes(const std::string& path, const Bytes& bytes);

/// A picture of that shape with the least, the greatest and scattered values of its type.
Picture makePicture(const PictureShape& shape);

/// Whether the shapes and all bits of the samples are the same.
bool isSame(const Picture& left, const Picture& right);

/// The message of the ToolError that the call throws; "no error" if it throws none.
std::string getErrorOf(const std::function<void()>& call);

/// A TIFF file put together byte by byte, directory first or last, of either byte order.
class TiffBytes
{
public:
    explicit TiffBytes(bool bBigEndian = false) : m_bBigEndian(bBigEndian) {}

    void addShort(unsigned int tag, unsigned int value) { m_entries.push_back({tag, 3, {value}}); }
    void addLong(unsigned int tag, unsigned int value) { m_entries.push_back({tag, 4, {value}}); }
    void addShorts(unsigned int tag, const std::vector<unsigned int>& values) { m_entries.push_back({tag, 3, values}); }

    /// Width, height, bits, samples, format, no compression, photometric, one strip.
    void addImage(unsigned int sizeX, unsigned int sizeY, unsigned int bits, unsigned int samples, unsigned int format,
                  unsigned int photometric);

    /// Header, directory, then the samples, which tag 273 points at and whose length tag 279 tells.
    Bytes build(const Bytes& samples) const;

private:
    struct Entry
    {
        unsigned int tag;
        unsigned int type;
        std::vector<unsigned int> values;
    };

    void put(Bytes& bytes, std::uint64_t value, unsigned int nbBytes) const;

    bool m_bBigEndian;
    std::vector<Entry> m_entries;
};
} // namespace kovis::tool::test
