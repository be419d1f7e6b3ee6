// The split of images on a GPU: whole, and nothing else.
#include "support/ToyImageProcessors.h"

#include "KOVIS/KOVISImage/CudaImage.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISImageProcessing/CudaSubImageSplit.h"

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
using namespace kovis;
using namespace kovis::test;
using namespace kovis::imaproc;
using testing::HasSubstr;

using InSplit = CudaSubImageSplit<ToyImgLvl2, InToyImg>;
using OutSplit = CudaSubImageSplit<ToyImgLvl2, OutToyImg>;

boost::shared_ptr<image::BaseImage> makeHostImage()
{
    return image::createImage2d(4, 3, image::eCGT_Rgb, image::eIBT_UInt8);
}

boost::shared_ptr<image::BaseImage> makeGpuImage()
{
    static char g_memory;
    return boost::make_shared<image::CudaImage>(makeHostImage()->getGeometry(), std::vector<void*>(3, &g_memory),
                                                boost::shared_ptr<const void>());
}

template <class TSplit>
void expectRefused(const boost::shared_ptr<image::BaseImage>& image, eSubImageSplitType type, const std::string& words)
{
    TSplit split;
    const BoolResult result = split.initBase(type, image);
    EXPECT_FALSE(result.getResult());
    EXPECT_THAT(result.getMessage(), HasSubstr(words));
    EXPECT_FALSE(split.isBaseInitialised());
}

TEST(CudaSubImageSplit, TellsWhatItIs)
{
    const InSplit split;
    EXPECT_EQ(0, static_cast<int>(split.getSplitBaseType()));
    EXPECT_EQ(3, static_cast<int>(split.getSplitStaticType()));
    EXPECT_EQ("InToyImg", split.getAttributeName());
    EXPECT_EQ("tip of InToyImg", split.getAttributeToolTip());
    EXPECT_TRUE(split.checkProcessorType(ToyImgLvl2()));
    EXPECT_FALSE(split.checkProcessorType(ToyImgLvl3()));
}

TEST(CudaSubImageSplit, HandsTheImageOnWhole)
{
    const auto image = makeGpuImage();
    OutSplit split;
    ASSERT_TRUE(split.initBase(eSIST_WholeOnGpu, image).getResult());
    EXPECT_EQ(1U, split.getNbElements());
    ToyImgLvl2 processor;
    processor.init();
    ASSERT_TRUE(split.processAttribute(processor, 0, core::BaseRequestOrigin()).getResult());
    EXPECT_EQ(image, processor.getStorage<OutToyImg>());
    const BoolResult beyond = split.processAttribute(processor, 1, core::BaseRequestOrigin());
    EXPECT_FALSE(beyond.getResult());
    EXPECT_THAT(beyond.getMessage(), HasSubstr("no piece 1"));
}

TEST(CudaSubImageSplit, RefusesWhatIsNotOnAGpu)
{
    expectRefused<InSplit>(nullptr, eSIST_WholeOnGpu, "null pointer");
    expectRefused<InSplit>(makeHostImage(), eSIST_WholeOnGpu, "upload it first");
    expectRefused<OutSplit>(makeHostImage(), eSIST_WholeOnGpu, "OutToyImg");
    expectRefused<OutSplit>(makeGpuImage(), eSIST_Slices, "split type 2");
    InSplit split;
    ToyImgLvl2 processor;
    processor.init();
    EXPECT_THAT(split.processAttribute(processor, 0, core::BaseRequestOrigin()).getMessage(), HasSubstr("must be initialised"));
}
} // namespace
