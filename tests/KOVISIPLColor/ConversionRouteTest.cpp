#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/getConversionRoute.h"

#include "support/ConversionRoutes.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace kovis::imaproc::color
{
using namespace image;

TEST(ConversionRoute, EveryPairOfSpacesTakesItsRoute)
{
    std::map<std::size_t, int> nbOfLength;
    for (int from = 0; from < 11; ++from)
    {
        for (int to = 0; to < 11; ++to)
        {
            const std::string way = test::g_conversionRoutes[from][to];
            std::vector<eColorGeometryType> expected = {static_cast<eColorGeometryType>(from)};
            for (const char hub : way == "d" || way == "-" ? std::string() : way)
            {
                expected.push_back(hub == 'X' ? eCGT_XYZ : eCGT_Rgb);
            }
            if (way != "-")
            {
                expected.push_back(static_cast<eColorGeometryType>(to));
            }
            EXPECT_EQ(getConversionRoute(static_cast<eColorGeometryType>(from), static_cast<eColorGeometryType>(to)), expected)
                << from << " to " << to;
            ++nbOfLength[expected.size()];
        }
    }
    EXPECT_EQ(nbOfLength, (std::map<std::size_t, int>{{1, 10}, {2, 51}, {3, 52}, {4, 8}}));
}
} // namespace kovis::imaproc::color
