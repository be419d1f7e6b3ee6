#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/ConversionChain.h"

#include "support/ConversionRoutes.h"

#include <boost/tuple/tuple_comparison.hpp>
#include <gtest/gtest.h>

#include <map>
#include <string>

// The way from each of the eleven spaces to each other one, cell by cell.

namespace kovis::imaproc::color
{
namespace
{
using namespace image;

constexpr unsigned int g_channels[] = {1, 3, 4, 3, 3, 3, 3, 3, 3, 3, 5};

ConversionStep firstStep(int geometry)
{
    return ConversionStep(static_cast<eColorGeometryType>(geometry), g_channels[geometry], eIBT_UInt8);
}

ConversionStep lastStep(int geometry)
{
    return ConversionStep(static_cast<eColorGeometryType>(geometry), g_channels[geometry] + (geometry == eCGT_User ? 1U : 0U),
                          eIBT_UInt16_9);
}

ConversionChain makeChain(eColorGeometryType from, eColorGeometryType to)
{
    return buildConversionChain(firstStep(from), lastStep(to));
}
} // namespace

TEST(ConversionChain, EveryPairOfSpacesTakesItsRoute)
{
    std::map<std::size_t, int> nbOfLength;
    int nbCopies = 0;
    for (int from = 0; from < 11; ++from)
    {
        for (int to = 0; to < 11; ++to)
        {
            const std::string route = test::g_conversionRoutes[from][to];
            if (route == "-")
            {
                EXPECT_EQ(from, to);
                ++nbCopies;
                continue;
            }
            SCOPED_TRACE(std::string(getColorGeometryTypeName(static_cast<eColorGeometryType>(from))) + " to " +
                         getColorGeometryTypeName(static_cast<eColorGeometryType>(to)));
            ConversionChain expected{firstStep(from)};
            for (char hub : route == "d" ? std::string() : route)
            {
                expected.push_back(ConversionStep(hub == 'X' ? eCGT_XYZ : eCGT_Rgb, 3U, eIBT_Real));
            }
            expected.push_back(lastStep(to));

            const ConversionChain chain = buildConversionChain(firstStep(from), lastStep(to));
            ++nbOfLength[chain.size()];
            EXPECT_TRUE(chain == expected);
        }
    }
    EXPECT_EQ(nbCopies, 10);
    EXPECT_EQ(nbOfLength, (std::map<std::size_t, int>{{2, 51}, {3, 52}, {4, 8}}));
}

TEST(ConversionChain, XYZAndLabAreOneLinkApartBothWays)
{
    EXPECT_EQ(makeChain(eCGT_XYZ, eCGT_CieLab).size(), 2U);
    EXPECT_EQ(makeChain(eCGT_CieLab, eCGT_XYZ).size(), 2U);
}

TEST(ConversionChain, HLSToHSVAndLabToLuvPassTheirOwnHub)
{
    const ConversionChain hue = makeChain(eCGT_HLS, eCGT_HSV);
    ASSERT_EQ(hue.size(), 3U);
    EXPECT_EQ(hue[1].get<0>(), eCGT_Rgb);
    const ConversionChain lab = makeChain(eCGT_CieLab, eCGT_CieLuv);
    ASSERT_EQ(lab.size(), 3U);
    EXPECT_EQ(lab[1].get<0>(), eCGT_XYZ);
}

// The sRGB curve stands on the link from Rgb to XYZ and on no other: a chain has it exactly where these two follow each other.
TEST(ConversionChain, RgbToLuvHasTheCurveOnItsFirstLinkAndRgbaToLabHasNone)
{
    const ConversionChain luv = makeChain(eCGT_Rgb, eCGT_CieLuv);
    ASSERT_EQ(luv.size(), 3U);
    EXPECT_EQ(luv[0].get<0>(), eCGT_Rgb);
    EXPECT_EQ(luv[1].get<0>(), eCGT_XYZ);
    const ConversionChain lab = makeChain(eCGT_Rgba, eCGT_CieLab);
    ASSERT_EQ(lab.size(), 3U);
    EXPECT_EQ(lab[0].get<0>(), eCGT_Rgba);
    EXPECT_EQ(lab[1].get<0>(), eCGT_XYZ);
}

TEST(ConversionChain, TheEntriesOfLabToHSVAreFloatBetweenTheEnds)
{
    const ConversionChain chain = makeChain(eCGT_CieLab, eCGT_HSV);
    ASSERT_EQ(chain.size(), 4U);
    EXPECT_EQ(chain[0].get<2>(), eIBT_UInt8);
    EXPECT_TRUE(chain[1] == ConversionStep(eCGT_XYZ, 3U, eIBT_Real));
    EXPECT_TRUE(chain[2] == ConversionStep(eCGT_Rgb, 3U, eIBT_Real));
    EXPECT_EQ(chain[3].get<2>(), eIBT_UInt16_9);
}

TEST(ConversionChain, UserToUserIsOneLinkWithBothChannelCounts)
{
    const ConversionChain chain = makeChain(eCGT_User, eCGT_User);
    ASSERT_EQ(chain.size(), 2U);
    EXPECT_EQ(chain[0].get<1>(), 5U);
    EXPECT_EQ(chain[1].get<1>(), 6U);
}
} // namespace kovis::imaproc::color
