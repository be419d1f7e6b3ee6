// The saturating conversion by itself: rows of its table and edge cases, as literals, and the model with it.
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/appendColorChannelThread.h"
#include "support/GpuAppendModel.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <type_traits>

namespace kovis::imaproc::color::gpu
{
namespace
{
constexpr float g_infinity = std::numeric_limits<float>::infinity();
constexpr float g_nan = std::numeric_limits<float>::quiet_NaN();

std::uint32_t getBits(float value)
{
    return std::bit_cast<std::uint32_t>(value);
}

// Inputs come from memory that the compiler does not see through.
template <class Tout, class V>
Tout convert(V value)
{
    volatile V hidden = value;
    return saturate<Tout>(static_cast<V>(hidden));
}

static_assert(std::is_same_v<CommonType<float, unsigned int>, float>);
static_assert(std::is_same_v<CommonType<signed char, float>, float>);
static_assert(std::is_same_v<CommonType<int, unsigned int>, unsigned int>);
static_assert(std::is_same_v<CommonType<signed char, unsigned int>, unsigned int>);
static_assert(std::is_same_v<CommonType<signed char, unsigned char>, int>);
static_assert(std::is_same_v<CommonType<short, unsigned short>, int>);
static_assert(std::is_same_v<CommonType<short, int>, int>);
static_assert(std::is_same_v<CommonType<unsigned char, unsigned char>, unsigned char>);
static_assert(std::is_same_v<CommonType<short, short>, short>);

TEST(Saturate, SignedNumbersAreClampedOrCopied)
{
    EXPECT_EQ(-128, convert<short>(static_cast<signed char>(-128)));
    EXPECT_EQ(-5, convert<int>(static_cast<short>(-5)));
    EXPECT_EQ(127, convert<signed char>(static_cast<short>(300)));
    EXPECT_EQ(-128, convert<signed char>(-2147483647 - 1));
    EXPECT_EQ(0, convert<unsigned char>(static_cast<signed char>(-1)));
    EXPECT_EQ(0, convert<unsigned short>(-1));
    EXPECT_EQ(65535, convert<unsigned short>(65536));
}

TEST(Saturate, UnsignedNumbersStopAtTheMaximum)
{
    EXPECT_EQ(127, convert<signed char>(static_cast<unsigned char>(200)));
    EXPECT_EQ(200, convert<short>(static_cast<unsigned char>(200)));
    EXPECT_EQ(32767, convert<short>(static_cast<unsigned short>(65535)));
    EXPECT_EQ(65535U, convert<unsigned int>(static_cast<unsigned short>(65535)));
    EXPECT_EQ(255, convert<unsigned char>(4294967295U));
    EXPECT_EQ(65535, convert<unsigned short>(70000U));
    EXPECT_EQ(0, convert<unsigned short>(0U));
}

TEST(Saturate, SignedToUnsignedIntWraps)
{
    EXPECT_EQ(0xFFFFFFFFU, convert<unsigned int>(-1));
    EXPECT_EQ(0xFFFFFFFFU, convert<unsigned int>(static_cast<signed char>(-1)));
    EXPECT_EQ(0xFFFF8000U, convert<unsigned int>(static_cast<short>(-32768)));
    EXPECT_EQ(0x80000000U, convert<unsigned int>(-2147483647 - 1));
    EXPECT_EQ(7U, convert<unsigned int>(7));
}

TEST(Saturate, UnsignedIntToSignedIsAllLowUpToAHugeNumber)
{
    EXPECT_EQ(-2147483647 - 1, convert<int>(5U));
    EXPECT_EQ(-2147483647 - 1, convert<int>(2147483648U));
    EXPECT_EQ(2147483647, convert<int>(2147483649U));
    EXPECT_EQ(2147483647, convert<int>(4294967295U));
    EXPECT_EQ(-128, convert<signed char>(0U));
    EXPECT_EQ(-128, convert<signed char>(4294967168U));
    EXPECT_EQ(127, convert<signed char>(4294967169U));
    EXPECT_EQ(-32768, convert<short>(4294934528U));
    EXPECT_EQ(32767, convert<short>(4294934529U));
}

TEST(Saturate, IntegersBecomeTheNearestFloat)
{
    EXPECT_EQ(-128.0F, convert<float>(static_cast<signed char>(-128)));
    EXPECT_EQ(16777216.0F, convert<float>(16777217));
    EXPECT_EQ(16777220.0F, convert<float>(16777219));
    EXPECT_EQ(4294967296.0F, convert<float>(4294967295U));
}

TEST(Saturate, FloatsAreClampedAndTruncated)
{
    EXPECT_EQ(3, convert<unsigned char>(3.9F));
    EXPECT_EQ(255, convert<unsigned char>(300.0F));
    EXPECT_EQ(255, convert<unsigned char>(40000.0F));
    EXPECT_EQ(0, convert<unsigned char>(-1.0F));
    EXPECT_EQ(-3, convert<short>(-3.9F));
    EXPECT_EQ(0, convert<signed char>(g_nan));
    EXPECT_EQ(0, convert<int>(g_nan));
    EXPECT_EQ(0U, convert<unsigned int>(g_nan));
    EXPECT_EQ(2147483647, convert<int>(2147483648.0F));
    EXPECT_EQ(2147483520, convert<int>(2147483520.0F));
    EXPECT_EQ(2147483647, convert<int>(g_infinity));
    EXPECT_EQ(-2147483647 - 1, convert<int>(-2147483648.0F));
    EXPECT_EQ(-2147483647 - 1, convert<int>(-g_infinity));
    EXPECT_EQ(4294967295U, convert<unsigned int>(4294967296.0F));
    EXPECT_EQ(4294967040U, convert<unsigned int>(4294967040.0F));
    EXPECT_EQ(0U, convert<unsigned int>(-0.5F));
}

TEST(Saturate, FloatsOfFloatsLieBetweenUnequalLimits)
{
    EXPECT_EQ(0x7F7FFFFFU, getBits(convert<float>(g_infinity)));
    EXPECT_EQ(0xFF7FFFEEU, getBits(convert<float>(-g_infinity)));
    EXPECT_EQ(0xFF7FFFEEU, getBits(convert<float>(std::bit_cast<float>(0xFF7FFFFFU))));
    EXPECT_EQ(0xFF7FFFEDU, getBits(convert<float>(std::bit_cast<float>(0xFF7FFFEDU))));
    EXPECT_EQ(0x7FC12345U, getBits(convert<float>(std::bit_cast<float>(0x7FC12345U))));
    EXPECT_EQ(0x80000000U, getBits(convert<float>(-0.0F)));
}

// The model has to know the same numbers, or comparing with it says nothing.
TEST(GpuAppendModel, KnowsTheTable)
{
    using test::PixelType;
    const auto fromNumber = [](PixelType type, std::int64_t number, PixelType other, PixelType target) {
        return test::appendOnGpuModel({type, number, 0}, other, target);
    };
    EXPECT_EQ(4294967295, fromNumber(PixelType::i32, -1, PixelType::i32, PixelType::u32).m_number);
    EXPECT_EQ(0, fromNumber(PixelType::i32, -1, PixelType::i32, PixelType::u16).m_number);
    EXPECT_EQ(65535, fromNumber(PixelType::i8, -1, PixelType::u32, PixelType::u16).m_number);
    EXPECT_EQ(-2147483648LL, fromNumber(PixelType::u32, 5, PixelType::u32, PixelType::i32).m_number);
    EXPECT_EQ(127, fromNumber(PixelType::u32, 4294967169, PixelType::u8, PixelType::i8).m_number);
    EXPECT_EQ(getBits(16777216.0F), fromNumber(PixelType::u32, 16777217, PixelType::f32, PixelType::f32).m_bits);
    // Rounded to float before it is clamped: 4294967295 is 4294967296 then.
    EXPECT_EQ(4294967295, fromNumber(PixelType::u32, 4294967040 + 200, PixelType::f32, PixelType::u32).m_number);
    EXPECT_EQ(0, test::appendOnGpuModel({PixelType::f32, 0, 0x7FC00000U}, PixelType::u8, PixelType::i8).m_number);
    EXPECT_EQ(0xFF7FFFEEU, test::appendOnGpuModel({PixelType::f32, 0, 0xFF800000U}, PixelType::f32, PixelType::f32).m_bits);
    EXPECT_EQ(2147483647,
              test::appendOnGpuModel({PixelType::f32, 0, getBits(2147483648.0F)}, PixelType::f32, PixelType::i32).m_number);
}

TEST(AppendGrid, CoversThePlaneByWholeBlocks)
{
    kovis::gpu::LauncherInfo info;
    info.m_blockSize2d = 16;
    info.m_sizeX = 33;
    info.m_sizeY = 16;
    info.m_sizeZ = 2;
    info.m_sizeC = 3;
    info.m_sizeT = 5;
    const AppendGrid grid = getAppendGrid(info);
    EXPECT_EQ(3U, grid.m_grid.m_x);
    EXPECT_EQ(1U, grid.m_grid.m_y);
    EXPECT_EQ(30U, grid.m_grid.m_z);
    EXPECT_EQ(16U, grid.m_block.m_x);
    EXPECT_EQ(16U, grid.m_block.m_y);
    EXPECT_EQ(1U, grid.m_block.m_z);
}

TEST(AppendGrid, NeverShrinksToFit)
{
    kovis::gpu::LauncherInfo info;
    info.m_blockSize2d = 1;
    info.m_sizeX = 0x100000001UL;
    info.m_sizeY = 1;
    info.m_sizeZ = 0x10000UL;
    info.m_sizeC = 0x10000UL;
    info.m_sizeT = 1;
    EXPECT_EQ(0xFFFFFFFFU, getAppendGrid(info).m_grid.m_x);
    EXPECT_EQ(0xFFFFFFFFU, getAppendGrid(info).m_grid.m_z);
    // Products that would wrap, in either multiplication, and a rounding up that would.
    info.m_blockSize2d = 16;
    info.m_sizeX = info.m_sizeY = ~0UL;
    info.m_sizeZ = 0x100000000UL;
    info.m_sizeC = 1;
    info.m_sizeT = 0x100000000UL;
    EXPECT_EQ(0xFFFFFFFFU, getAppendGrid(info).m_grid.m_x);
    EXPECT_EQ(0xFFFFFFFFU, getAppendGrid(info).m_grid.m_y);
    EXPECT_EQ(0xFFFFFFFFU, getAppendGrid(info).m_grid.m_z);
    info.m_sizeC = 0x100000000UL;
    EXPECT_EQ(0xFFFFFFFFU, getAppendGrid(info).m_grid.m_z);
    info.m_sizeT = 0;
    EXPECT_EQ(0U, getAppendGrid(info).m_grid.m_z);
}
} // namespace
} // namespace kovis::imaproc::color::gpu
