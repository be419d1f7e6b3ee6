#pragma once

#include "PictureFile.h"
#include "kovis-color/Program.h"
#include "kovis-color/TestFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace kovis::tool::test
{
/// A picture of one row, pixel after pixel, and as many pages as that row is repeated.
template <class T>
Picture makeRow(ElementType type, std::size_t channels, const std::vector<T>& samples, std::size_t pages = 1)
{
    Picture picture;
    picture.shape.sizeX = samples.size() / channels;
    picture.shape.sizeY = 1;
    picture.shape.pages = pages;
    picture.shape.channels = channels;
    picture.shape.type = type;
    picture.allocate();
    for (std::size_t page = 0; page < pages; ++page)
    {
        for (std::size_t sample = 0; sample < samples.size(); ++sample)
            picture.getPlane<T>(page, sample % channels)[sample / channels] = samples[sample];
    }
    return picture;
}

template <class T>
void writeRow(const std::string& path, ElementType type, std::size_t channels, const std::vector<T>& samples,
              std::size_t pages = 1)
{
    writePicture(path, viewOf(makeRow(type, channels, samples, pages)));
}

inline const std::vector<std::uint8_t> g_pixels = {255, 0, 0, 10, 20, 30, 100, 100, 100};

inline bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

inline std::size_t countLines(const std::string& text)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

/// The built program, as a user calls it, with a small RGB picture to convert.
class Program : public testing::Test
{
protected:
    Program() { writeRow(m_input, ElementType::eU8, 3, g_pixels); }

    ProgramRun convert(std::vector<std::string> options, const std::string& environment = std::string()) const
    {
        options.insert(options.begin(), {"convert", m_input, "-o", m_output});
        return runProgram(options, environment);
    }

    const TestFolder m_folder;
    const std::string m_input = m_folder.getPath("in.tif");
    const std::string m_output = m_folder.getPath("out.tif");
};
} // namespace kovis::tool::test
