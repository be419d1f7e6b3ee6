#include "ColorTestImages.h"

#include "KOVISIPL/KOVISIPLAttributes/InColorImg.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/OutputInitializer/ColorInitializerUtils.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

namespace kovis::imaproc::color
{
namespace
{
using namespace image;

struct Parts
{
    Parts(const test::ImagePtr& in, int target, std::size_t nbValues = 0)
        : m_in(boost::make_shared<attr::InColorImg>()), m_transform(boost::make_shared<attr::InColorConversionTransform>())
    {
        const auto node = boost::make_shared<attr::ColorConversionTransform>();
        node->setTarget(target);
        node->setMatrix(std::vector<float>(nbValues));
        m_transform->init(node);
        m_in->init(in);
        m_info = outputTargetColorSpace(m_in, m_transform);
    }
    boost::shared_ptr<attr::InColorImg> m_in;
    boost::shared_ptr<attr::InColorConversionTransform> m_transform;
    boost::shared_ptr<BaseCustomImageInfo> m_info;
};

test::ImagePtr makeImage(int geometry, eImageBufferType type)
{
    return geometry == eCGT_User ? createImageUser2d(3, 2, 2, type)
                                 : createImage2d(3, 2, static_cast<eColorGeometryType>(geometry), type);
}

TEST(TargetColorSpaceOutputInitializer, KeepsTheBufferTypeOnlyAmongRgbAndRgbaAndIntoYCbCr)
{
    for (int source = 0; source <= 10; ++source)
    {
        for (int target = 0; target <= 10; ++target)
        {
            for (const eImageBufferType type : {eIBT_UInt16, eIBT_UInt8_11, eIBT_Real})
            {
                const Parts parts(makeImage(source, type), target, 4);
                const bool bRgb = (source == 1 || source == 2) && (target == 1 || target == 2);
                EXPECT_EQ(parts.m_info->getImageBufferType(), bRgb || target == 5 ? type : eIBT_Real)
                    << source << " to " << target;
                EXPECT_EQ(parts.m_info->getColorGeometry().getColorGeometryType(), target);
            }
        }
    }
}

TEST(TargetColorSpaceOutputInitializer, TakesTheShapeOfTheInput)
{
    const Parts parts(createImage(test::makeColorGeometry(5, 6, eCGT_Rgb, eIBT_UInt8, 3, 2)), eCGT_HSV);
    EXPECT_EQ(parts.m_info->getSizeX(), 5U);
    EXPECT_EQ(parts.m_info->getSizeY(), 6U);
    EXPECT_EQ(parts.m_info->getVolumeGeometry().getSizeZ(), 3U);
    EXPECT_EQ(parts.m_info->getTemporalGeometry().getSizeT(), 2U);
    EXPECT_EQ(parts.m_info->getColorGeometry().getSizeC(), 3U);
    EXPECT_TRUE(parts.m_info->isOutputInitNeeded());
    EXPECT_TRUE(parts.m_info->hasInputImage());
    EXPECT_EQ(parts.m_info->getInputImage(), parts.m_in->getStorage());
    EXPECT_EQ(parts.m_info->getImageInitializerDistributionPolicy(), 0);
}

TEST(TargetColorSpaceOutputInitializer, CountsUserChannelsByWholeRows)
{
    EXPECT_EQ(Parts(makeImage(eCGT_Rgb, eIBT_UInt8), eCGT_User, 8).m_info->getColorGeometry().getSizeC(), 2U);
    EXPECT_EQ(Parts(makeImage(eCGT_Rgb, eIBT_UInt8), eCGT_User, 9).m_info->getColorGeometry().getSizeC(), 2U);
    EXPECT_EQ(Parts(makeImage(eCGT_Rgb, eIBT_UInt8), eCGT_User, 11).m_info->getColorGeometry().getSizeC(), 2U);
    EXPECT_EQ(Parts(makeImage(eCGT_Rgb, eIBT_UInt8), eCGT_User, 12).m_info->getColorGeometry().getSizeC(), 3U);
    EXPECT_EQ(Parts(makeImage(eCGT_Rgb, eIBT_UInt8), eCGT_User, 12).m_info->getColorGeometry().getColorGeometryType(), eCGT_User);
}

TEST(TargetColorSpaceOutputInitializer, ReadsATargetOutOfRangeAsGrey)
{
    for (const int target : {11, -1})
    {
        const Parts parts(makeImage(eCGT_YCbCr, eIBT_UInt8), target);
        EXPECT_EQ(parts.m_info->getImageBufferType(), eIBT_Real);
        EXPECT_EQ(parts.m_info->getColorGeometry().getColorGeometryType(), eCGT_Grey);
    }
}

TEST(TargetColorSpaceOutputInitializer, ThrowsWithoutATransform)
{
    Parts parts(makeImage(eCGT_Rgb, eIBT_UInt8), eCGT_HSV);
    const auto never = outputTargetColorSpace(parts.m_in, boost::shared_ptr<const attr::InColorConversionTransform>());
    EXPECT_EQ(parts.m_transform.use_count(), 1);
    parts.m_transform.reset();
    int nbThrown = 0;
    for (const auto& info : {parts.m_info, never})
    {
        for (const bool bType : {true, false})
        {
            try
            {
                if (bType)
                {
                    info->getImageBufferType();
                }
                else
                {
                    info->getColorGeometry();
                }
            }
            catch (const KOVISIPLColorException& e)
            {
                ++nbThrown;
                EXPECT_STREQ(e.what(), "Input attribute should not be null");
                EXPECT_EQ(e.getFile(), "KOVISIPL/KOVISIPLColor/OutputInitializer/ColorInitializerUtils");
            }
        }
    }
    EXPECT_EQ(nbThrown, 4);
}
} // namespace
} // namespace kovis::imaproc::color
