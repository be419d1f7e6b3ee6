#include "KOVIS/KOVISBaseImageTools/getLinearTransform.h"
#include "KOVIS/KOVISBaseImageTools/KOVISBaseImageToolsLog.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace kovis::image
{
namespace
{
using Values = std::vector<double>;

const eColorGeometryType g_spaces[] = {eCGT_Grey, eCGT_Rgb, eCGT_Rgba, eCGT_XYZ, eCGT_YPbPr, eCGT_YCbCr};

eImageBufferType bufferType(int value)
{
    return static_cast<eImageBufferType>(value);
}

std::size_t channels(const eColorGeometryType& type)
{
    return type == eCGT_Grey ? 1 : type == eCGT_Rgba ? 4 : 3;
}

Values applyTransform(const LinearTransform& transform, const Values& in)
{
    Values out;
    for (std::size_t row = 0; row < transform.getNbRows(); ++row)
    {
        double sum = transform(row, in.size());
        for (std::size_t i = 0; i < in.size(); ++i)
        {
            sum += transform(row, i) * in[i];
        }
        out.push_back(sum);
    }
    return out;
}

Values convert(const eColorGeometryType& from, const eColorGeometryType& to, const Values& in, int fromType = 7, int toType = 7)
{
    return applyTransform(getLinearTransform(from, to, bufferType(fromType), bufferType(toType)), in);
}

void expectNear(const Values& expected, const Values& actual, double bound)
{
    ASSERT_EQ(expected.size(), actual.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
    {
        EXPECT_NEAR(expected[i], actual[i], bound) << "channel " << i;
    }
}

// The published meaning of each space, with no matrix: what the offsets and alpha are for each buffer type stands in these
// tables.
const double g_chroma[] = {0, 0, 128, 0, 32768, 0, 2147483648.0, 128, 128, 32768, 2147483648.0, 128};
const double g_alpha[] = {0, 127, 255, 32767, 65535, 2147483647.0, 4294967295.0, 255, 255, 65535, 4294967295.0, 255};

Values modelFromRgb(const eColorGeometryType& to, const Values& rgb, int type)
{
    const double luma = 0.299 * rgb[0] + 0.587 * rgb[1] + 0.114 * rgb[2];
    const double offset = to == eCGT_YCbCr ? g_chroma[type] : 0.0;
    switch (to)
    {
    case eCGT_Grey:
        return {luma};
    case eCGT_Rgba:
        return {rgb[0], rgb[1], rgb[2], g_alpha[type]};
    case eCGT_YPbPr:
    case eCGT_YCbCr:
        return {luma, (rgb[2] - luma) / 1.772 + offset, (rgb[0] - luma) / 1.402 + offset};
    case eCGT_XYZ:
        // Published to seven digits.
        return {0.4124564 * rgb[0] + 0.3575761 * rgb[1] + 0.1804375 * rgb[2],
                0.2126729 * rgb[0] + 0.7151522 * rgb[1] + 0.0721750 * rgb[2],
                0.0193339 * rgb[0] + 0.1191920 * rgb[1] + 0.9503041 * rgb[2]};
    default:
        return rgb;
    }
}

/// Samples of a space that are linear RGB `rgb`, found from the definitions alone.
Values modelSample(const eColorGeometryType& space, const Values& rgb, int type)
{
    if (space == eCGT_Grey)
    {
        return {rgb[0]};
    }
    Values sample = modelFromRgb(space, rgb, type);
    if (space == eCGT_Rgba)
    {
        sample[3] = 11.0; // Any alpha: it must not matter.
    }
    return sample;
}
} // namespace

TEST(GetLinearTransform, hasTheShapeOfEachPair)
{
    for (const auto from : g_spaces)
    {
        for (const auto to : g_spaces)
        {
            if (from != to)
            {
                const LinearTransform transform = getLinearTransform(from, to, eIBT_UInt8, eIBT_Real);
                EXPECT_EQ(channels(to), transform.getNbRows());
                EXPECT_EQ(channels(from) + 1, transform.getNbColumns());
                EXPECT_EQ(channels(to) * (channels(from) + 1), transform.getSize());
            }
        }
    }
}

TEST(GetLinearTransform, elementsLieRowAfterRow)
{
    const LinearTransform transform = getLinearTransform(eCGT_YCbCr, eCGT_Rgb, eIBT_UInt8, eIBT_UInt8);
    for (std::size_t row = 0; row < 3; ++row)
    {
        for (std::size_t column = 0; column < 4; ++column)
        {
            EXPECT_EQ(transform(row, column), transform.getData()[row * 4 + column]);
        }
    }
}

TEST(GetLinearTransform, lumaWeightsAreExact)
{
    for (const auto to : {eCGT_Grey, eCGT_YPbPr, eCGT_YCbCr})
    {
        for (const auto from : {eCGT_Rgb, eCGT_Rgba})
        {
            const LinearTransform transform = getLinearTransform(from, to, eIBT_UInt8, eIBT_UInt8);
            EXPECT_EQ(0.299, transform(0, 0));
            EXPECT_EQ(0.587, transform(0, 1));
            EXPECT_EQ(0.114, transform(0, 2));
            EXPECT_EQ(0.0, transform(0, transform.getNbColumns() - 1));
            if (from == eCGT_Rgba)
            {
                EXPECT_EQ(0.0, transform(0, 3));
            }
        }
    }
}

TEST(GetLinearTransform, greyBecomesTheSameInAllThree)
{
    const LinearTransform transform = getLinearTransform(eCGT_Grey, eCGT_Rgb, eIBT_UInt8, eIBT_UInt8);
    for (std::size_t row = 0; row < 3; ++row)
    {
        EXPECT_EQ(1.0, transform(row, 0));
        EXPECT_EQ(0.0, transform(row, 1));
    }
}

TEST(GetLinearTransform, whiteIsTheWhitePoint)
{
    expectNear({0.95047, 1.0, 1.08883}, convert(eCGT_Rgb, eCGT_XYZ, {1.0, 1.0, 1.0}), 1e-14);
    expectNear({0.95047, 1.0, 1.08883}, convert(eCGT_Grey, eCGT_XYZ, {1.0}), 1e-14);
    expectNear({1.0, 1.0, 1.0}, convert(eCGT_XYZ, eCGT_Rgb, {0.95047, 1.0, 1.08883}), 1e-14);
}

TEST(GetLinearTransform, primariesHaveTheChromaticitiesOfSrgb)
{
    const double primaries[3][2] = {{0.64, 0.33}, {0.30, 0.60}, {0.15, 0.06}};
    for (std::size_t i = 0; i < 3; ++i)
    {
        Values rgb(3, 0.0);
        rgb[i] = 1.0;
        const Values xyz = convert(eCGT_Rgb, eCGT_XYZ, rgb);
        const double sum = xyz[0] + xyz[1] + xyz[2];
        EXPECT_NEAR(primaries[i][0], xyz[0] / sum, 1e-14);
        EXPECT_NEAR(primaries[i][1], xyz[1] / sum, 1e-14);
    }
}

TEST(GetLinearTransform, theMatrixToXyzIsThePublishedOne)
{
    const double published[3][3] = {
        {0.4124564, 0.3575761, 0.1804375}, {0.2126729, 0.7151522, 0.0721750}, {0.0193339, 0.1191920, 0.9503041}};
    const double inverse[3][3] = {
        {3.2404542, -1.5371385, -0.4985314}, {-0.9692660, 1.8760108, 0.0415560}, {0.0556434, -0.2040259, 1.0572252}};
    const LinearTransform forth = getLinearTransform(eCGT_Rgb, eCGT_XYZ, eIBT_Real, eIBT_Real);
    const LinearTransform back = getLinearTransform(eCGT_XYZ, eCGT_Rgb, eIBT_Real, eIBT_Real);
    for (std::size_t row = 0; row < 3; ++row)
    {
        for (std::size_t column = 0; column < 3; ++column)
        {
            EXPECT_NEAR(published[row][column], forth(row, column), 6e-8);
            EXPECT_NEAR(inverse[row][column], back(row, column), 6e-8);
        }
        EXPECT_EQ(0.0, forth(row, 3));
        EXPECT_EQ(0.0, back(row, 3));
    }
}

TEST(GetLinearTransform, chromaCoefficientsOfYCbCr)
{
    // By hand: 0.299 / 1.772, 0.587 / 1.772, 0.587 / 1.402, 0.114 / 1.402, 0.114 * 1.772 / 0.587, 0.299 * 1.402 / 0.587.
    const LinearTransform forth = getLinearTransform(eCGT_Rgb, eCGT_YCbCr, eIBT_UInt8, eIBT_UInt8);
    expectNear({-0.168735891647856, -0.331264108352144, 0.5, 128.0}, {forth(1, 0), forth(1, 1), forth(1, 2), forth(1, 3)}, 1e-14);
    expectNear({0.5, -0.418687589158345, -0.081312410841655, 128.0}, {forth(2, 0), forth(2, 1), forth(2, 2), forth(2, 3)}, 1e-14);
    const LinearTransform back = getLinearTransform(eCGT_YCbCr, eCGT_Rgb, eIBT_UInt8, eIBT_UInt8);
    expectNear({1.0, 0.0, 1.402, -179.456}, {back(0, 0), back(0, 1), back(0, 2), back(0, 3)}, 1e-12);
    expectNear({1.0, -0.344136286201022, -0.714136286201022, 135.458889267462}, {back(1, 0), back(1, 1), back(1, 2), back(1, 3)},
               1e-11);
    expectNear({1.0, 1.772, 0.0, -226.816}, {back(2, 0), back(2, 1), back(2, 2), back(2, 3)}, 1e-12);
}

TEST(GetLinearTransform, offsetsFollowTheTypeOfTheYCbCrEnd)
{
    for (int type = 1; type <= 11; ++type)
    {
        for (int other : {1, 2, 4, 6, 7})
        {
            const LinearTransform forth = getLinearTransform(eCGT_Rgb, eCGT_YCbCr, bufferType(other), bufferType(type));
            EXPECT_EQ(0.0, forth(0, 3));
            EXPECT_EQ(g_chroma[type], forth(1, 3)) << type;
            EXPECT_EQ(g_chroma[type], forth(2, 3)) << type;
            // A neutral sample of that type has no colour.
            const Values rgb = convert(eCGT_YCbCr, eCGT_Rgb, {50.0, g_chroma[type], g_chroma[type]}, type, other);
            expectNear({50.0, 50.0, 50.0}, rgb, 1e-15 * g_chroma[type] + 1e-13);
        }
        const LinearTransform plain = getLinearTransform(eCGT_Rgb, eCGT_YPbPr, eIBT_Real, bufferType(type));
        EXPECT_EQ(0.0, plain(1, 3));
        EXPECT_EQ(0.0, plain(2, 3));
    }
}

TEST(GetLinearTransform, alphaFollowsTheTypeOfTheRgbaEnd)
{
    for (int type = 1; type <= 11; ++type)
    {
        for (const auto from : {eCGT_Grey, eCGT_Rgb, eCGT_XYZ, eCGT_YPbPr, eCGT_YCbCr})
        {
            const LinearTransform transform = getLinearTransform(from, eCGT_Rgba, eIBT_UInt16, bufferType(type));
            for (std::size_t column = 0; column < channels(from); ++column)
            {
                EXPECT_EQ(0.0, transform(3, column));
            }
            EXPECT_EQ(g_alpha[type], transform(3, channels(from))) << type;
        }
        // On the way in it counts for nothing.
        EXPECT_EQ(convert(eCGT_Rgba, eCGT_XYZ, {1.0, 2.0, 3.0, 0.0}, type),
                  convert(eCGT_Rgba, eCGT_XYZ, {1.0, 2.0, 3.0, 99.0}, type));
    }
}

TEST(GetLinearTransform, allPairsAndTypesFollowTheDefinitions)
{
    const Values colours[] = {{0, 0, 0}, {255, 255, 255}, {255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {12.5, 200.25, 99}};
    for (const auto from : g_spaces)
    {
        for (const auto to : g_spaces)
        {
            if (from == to)
            {
                continue;
            }
            for (int fromType = 1; fromType <= 11; ++fromType)
            {
                for (int toType = 1; toType <= 11; ++toType)
                {
                    for (Values rgb : colours)
                    {
                        if (from == eCGT_Grey)
                        {
                            rgb = {rgb[0], rgb[0], rgb[0]};
                        }
                        SCOPED_TRACE(testing::Message() << from << " as " << fromType << " to " << to << " as " << toType);
                        // XYZ: the model's seven digits at a scale of 255. Large offsets cost digits of a double.
                        const double published = from == eCGT_XYZ || to == eCGT_XYZ ? 2e-4 : 0.0;
                        expectNear(modelFromRgb(to, rgb, toType),
                                   convert(from, to, modelSample(from, rgb, fromType), fromType, toType),
                                   1e-11 + published + 4e-15 * (g_chroma[fromType] + g_chroma[toType]));
                    }
                }
            }
        }
    }
}

TEST(GetLinearTransform, thereAndBackIsTheIdentity)
{
    for (const auto space : {eCGT_Rgba, eCGT_XYZ, eCGT_YPbPr, eCGT_YCbCr})
    {
        for (int type = 1; type <= 11; ++type)
        {
            const LinearTransform forth = getLinearTransform(eCGT_Rgb, space, eIBT_Real, bufferType(type));
            const LinearTransform back = getLinearTransform(space, eCGT_Rgb, bufferType(type), eIBT_Real);
            const double bound = 1e-14 + 1e-15 * g_chroma[type];
            expectNear({0, 0, 0}, applyTransform(back, applyTransform(forth, {0, 0, 0})), bound);
            expectNear({1, 0, 0}, applyTransform(back, applyTransform(forth, {1, 0, 0})), bound);
            expectNear({0, 1, 0}, applyTransform(back, applyTransform(forth, {0, 1, 0})), bound);
            expectNear({0, 0, 1}, applyTransform(back, applyTransform(forth, {0, 0, 1})), bound);
        }
    }
    expectNear({42.0}, convert(eCGT_Rgb, eCGT_Grey, convert(eCGT_Grey, eCGT_Rgb, {42.0})), 1e-13);
}

TEST(GetLinearTransform, refusesWhatNoMatrixJoins)
{
    for (int other : {6, 7, 8, 9, 10, 11, -1})
    {
        const auto space = static_cast<eColorGeometryType>(other);
        EXPECT_THROW(getLinearTransform(space, eCGT_Rgb, eIBT_Real, eIBT_Real), tools::KOVISBaseImageToolsException) << other;
        EXPECT_THROW(getLinearTransform(eCGT_Rgb, space, eIBT_Real, eIBT_Real), tools::KOVISBaseImageToolsException) << other;
    }
    try
    {
        getLinearTransform(eCGT_Rgb, eCGT_Rgb, eIBT_Real, eIBT_Real);
        FAIL() << "nothing was thrown";
    }
    catch (const tools::KOVISBaseImageToolsException& e)
    {
        EXPECT_STREQ("No fixed matrix leads from colour space 1 to 1: it takes two different ones of Grey (0), Rgb (1), Rgba "
                     "(2), XYZ (3), "
                     "YPbPr (4) and YCbCr (5)",
                     e.what());
    }
}

TEST(GetLinearTransform, refusesBufferTypesThatDoNotExist)
{
    for (int type : {0, 12, -1, 1000})
    {
        EXPECT_THROW(getLinearTransform(eCGT_Rgb, eCGT_XYZ, bufferType(type), eIBT_Real), tools::KOVISBaseImageToolsException)
            << type;
        EXPECT_THROW(getLinearTransform(eCGT_Rgb, eCGT_XYZ, eIBT_Real, bufferType(type)), tools::KOVISBaseImageToolsException)
            << type;
    }
    try
    {
        getLinearTransform(eCGT_Rgb, eCGT_XYZ, bufferType(12), eIBT_Real);
        FAIL() << "nothing was thrown";
    }
    catch (const tools::KOVISBaseImageToolsException& e)
    {
        EXPECT_STREQ("Buffer type 12 does not exist: buffer types run from 1 to 11", e.what());
    }
}

TEST(GetLinearTransform, servesManyThreadsAtOnce)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t)
    {
        threads.emplace_back(
            []
            {
                for (int i = 0; i < 200; ++i)
                {
                    expectNear({1.0, 1.0, 1.0}, convert(eCGT_XYZ, eCGT_Rgb, {0.95047, 1.0, 1.08883}), 1e-14);
                }
            });
    }
    for (auto& thread : threads)
    {
        thread.join();
    }
}

TEST(KOVISBaseImageToolsLog, namesAndTexts)
{
    EXPECT_EQ("KOVIS.KOVISBaseImageTools", tools::getKOVISBaseImageToolsLogger().getName());
    EXPECT_EQ("KOVISBaseImageTools", tools::getKOVISBaseImageToolsLogMessageManager().getName());
    EXPECT_EQ(3ul, tools::getKOVISBaseImageToolsLogMessageManager().getNbMessages(
                       "N5kovis5image5tools27eKOVISBaseImageToolsMessage6domainE"));
}
} // namespace kovis::image
