#include "KOVIS/KOVISImage/ImageGeometry.h"

#include "KOVIS/KOVISImage/getFormatedName.h"
#include "KOVISImage/ImageBuilders.h"

#include <gtest/gtest.h>

namespace kovis::image
{
namespace
{
TEST(ColorGeometryType, namesAndChannelsAreThoseOfTheTable)
{
    const struct
    {
        int m_value;
        const char* m_name;
        unsigned long m_nbChannels;
    } rows[] = {{0, "eCGT_Grey", 1},  {1, "eCGT_Rgb", 3},   {2, "eCGT_Rgba", 4},   {3, "eCGT_XYZ", 3},
                {4, "eCGT_YPbPr", 3}, {5, "eCGT_YCbCr", 3}, {6, "eCGT_CieLab", 3}, {7, "eCGT_CieLuv", 3},
                {8, "eCGT_HLS", 3},   {9, "eCGT_HSV", 3},   {10, "eCGT_User", 0}};
    for (const auto& row : rows)
    {
        const eColorGeometryType type = toColorGeometryType(row.m_value);
        EXPECT_EQ(row.m_value, static_cast<int>(type));
        EXPECT_STREQ(row.m_name, getColorGeometryTypeName(type));
        EXPECT_EQ(row.m_nbChannels, getNbChannels(type));
    }
}

TEST(ColorGeometryType, valuesOutsideReadAsGrey)
{
    for (const int value : {-1, 11, 12, 1000, -2147483647 - 1, 2147483647})
    {
        EXPECT_EQ(eCGT_Grey, toColorGeometryType(value));
        EXPECT_STREQ("eCGT_Grey", getColorGeometryTypeName(static_cast<eColorGeometryType>(value)));
        EXPECT_EQ(1u, getNbChannels(static_cast<eColorGeometryType>(value)));
    }
}

TEST(ImageBufferType, elevenValuesOnSevenElementTypes)
{
    const struct
    {
        int m_value;
        std::size_t m_size;
        const char* m_name;
        int m_storage;
    } rows[] = {{0, 0, "none", 0}, {1, 1, "i8", 1},  {2, 1, "u8", 2},    {3, 2, "i16", 3},  {4, 2, "u16", 4},
                {5, 4, "i32", 5},  {6, 4, "u32", 6}, {7, 4, "f32", 7},   {8, 1, "u8", 2},   {9, 2, "u16", 4},
                {10, 4, "u32", 6}, {11, 1, "u8", 2}, {12, 0, "none", 0}, {-1, 0, "none", 0}};
    for (const auto& row : rows)
    {
        const auto type = static_cast<eImageBufferType>(row.m_value);
        EXPECT_EQ(row.m_size, getElementSize(type)) << row.m_value;
        EXPECT_STREQ(row.m_name, getElementTypeName(type)) << row.m_value;
        EXPECT_EQ(row.m_storage, static_cast<int>(getStorageType(type))) << row.m_value;
    }
}

TEST(ImageGeometry, defaultsAreThePlainCase)
{
    EXPECT_EQ(1u, VolumeGeometry().getSizeZ());
    EXPECT_EQ(1u, TemporalGeometry().getSizeT());
    EXPECT_EQ(eCGT_Grey, geometryGrey().getColorGeometryType());
    EXPECT_EQ(1u, geometryGrey().getSizeC());
}

TEST(ImageGeometry, userGeometryHasAnyNumberOfChannels)
{
    ColorGeometry color;
    color.initUser(17);
    EXPECT_EQ(eCGT_User, color.getColorGeometryType());
    EXPECT_EQ(17u, color.getSizeC());
    color.init(eCGT_Rgba);
    EXPECT_EQ(eCGT_Rgba, color.getColorGeometryType());
    EXPECT_EQ(4u, color.getSizeC());
    color.init(static_cast<eColorGeometryType>(99));
    EXPECT_EQ(eCGT_Grey, color.getColorGeometryType());
    EXPECT_EQ(1u, color.getSizeC());
}

TEST(ImageGeometry, initSetsEveryPart)
{
    const HomogeneousImageGeometry geometry = test::makeGeometry(2, 3, 4, 5, 6, eIBT_Int16);
    EXPECT_EQ(2u, geometry.getSizeX());
    EXPECT_EQ(3u, geometry.getSizeY());
    EXPECT_EQ(4u, geometry.getSizeZ());
    EXPECT_EQ(4u, geometry.getVolumeGeometry().getSizeZ());
    EXPECT_EQ(5u, geometry.getSizeC());
    EXPECT_EQ(6u, geometry.getSizeT());
    EXPECT_EQ(6u, geometry.getTemporalGeometry().getSizeT());
    EXPECT_EQ(eIBT_Int16, geometry.getBufferType());
}

TEST(FormatedName, tellsSizesChannelsAndType)
{
    EXPECT_EQ("512 x 3, 3 channels, u8", getFormatedName(*createImage2d(512, 3, eCGT_Rgb, eIBT_UInt8), eFT_Short));
    EXPECT_EQ("1 x 2, 1 channel, f32", getFormatedName(*createImage2d(1, 2, eCGT_Grey, eIBT_Real), eFT_Short));
    EXPECT_EQ("2 x 3 x 4, 6 time steps, 5 channels, i16",
              getFormatedName(*createImage(test::makeGeometry(2, 3, 4, 5, 6, eIBT_Int16)), eFT_Short));
    EXPECT_EQ("512 x 2, 3 channels, u8",
              getFormatedName(*makeInputStrip(createImage2d(512, 3, eCGT_Rgb, eIBT_UInt8), 1, 2), eFT_Short));
}
} // namespace
} // namespace kovis::image
