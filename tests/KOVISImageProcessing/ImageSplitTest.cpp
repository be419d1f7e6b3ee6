// Splits of images: which pieces there are, in which order, and what cannot be cut.
#include "support/ToyImageProcessors.h"

#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
using namespace kovis;
using namespace kovis::test;
using namespace kovis::imaproc;
using testing::HasSubstr;

using ImagePtr = boost::shared_ptr<image::BaseImage>;
using InSplit = SubImageSplit<ToyImgLvl2, InToyImg>;
using OutSplit = SubImageSplit<ToyImgLvl2, OutToyImg>;
using InStripSplit = ImageYStripColor2dSplit<ToyImgLvl3, const image::BaseImage, InToyStrip>;

ImagePtr makeImage(unsigned long sizeX, unsigned long sizeY, unsigned long sizeZ, unsigned long sizeC, unsigned long sizeT)
{
    image::ColorGeometry color;
    color.initUser(sizeC);
    image::HomogeneousImageGeometry geometry;
    geometry.init(image::VolumeGeometry(sizeZ), color, image::TemporalGeometry(sizeT), sizeX, sizeY, image::eIBT_UInt8);
    return image::createImage(geometry);
}

/// An image of which only the geometry is there.
class GpuImage : public image::BaseImage
{
public:
    explicit GpuImage(const image::BaseImageGeometry& geometry) : BaseImage(geometry) {}
    bool isGpuImage() const override { return true; }
};

TEST(SubImageSplit, SlicesGoByTimeThenZWithAllChannels)
{
    const ImagePtr image = makeImage(4, 3, 5, 3, 2);
    OutSplit split;
    EXPECT_EQ(0, static_cast<int>(split.getSplitBaseType()));
    EXPECT_EQ(3, static_cast<int>(split.getSplitStaticType()));
    ASSERT_TRUE(split.initBase(eSIST_Slices, eVPT_Slices, eCPT_AllChannels, eTPT_Steps, image).getResult());
    ASSERT_EQ(10U, split.getNbElements());
    ToyImgLvl2 processor;
    processor.init();
    for (unsigned int t = 0; t < 2; ++t)
    {
        for (unsigned int z = 0; z < 5; ++z)
        {
            ASSERT_TRUE(split.processAttribute(processor, t * 5 + z, core::BaseRequestOrigin()).getResult());
            const ImagePtr sub = processor.getStorage<OutToyImg>();
            ASSERT_EQ(3U, sub->getSizeC());
            EXPECT_EQ(1U, sub->getSizeZ() * sub->getSizeT());
            for (unsigned long c = 0; c < 3; ++c)
            {
                EXPECT_EQ(image::planeData<unsigned char>(image, c, z, t), image::planeData<unsigned char>(sub, c));
            }
        }
    }
    const BoolResult beyond = split.processAttribute(processor, 10, core::BaseRequestOrigin());
    EXPECT_FALSE(beyond.getResult());
    EXPECT_EQ("there is no piece 10, counted from 0, among the 10 of attribute OutToyImg", beyond.getMessage());
}

TEST(SubImageSplit, PlanesGoByTimeZAndChannel)
{
    const ImagePtr image = makeImage(4, 3, 2, 3, 2);
    InSplit split;
    ASSERT_TRUE(split
                    .initBase(static_cast<eSubImageSplitType>(0), static_cast<eVolumeParsingType>(0),
                              static_cast<eColorParsingType>(0), static_cast<eTemporalParsingType>(0), image)
                    .getResult());
    ASSERT_EQ(12U, split.getNbElements());
    ToyImgLvl2 processor;
    processor.init();
    unsigned int index = 0;
    for (unsigned int t = 0; t < 2; ++t)
    {
        for (unsigned int z = 0; z < 2; ++z)
        {
            for (unsigned int c = 0; c < 3; ++c, ++index)
            {
                ASSERT_TRUE(split.processAttribute(processor, index, core::BaseRequestOrigin()).getResult());
                const boost::shared_ptr<const image::BaseImage> sub = processor.getStorage<InToyImg>();
                ASSERT_EQ(1U, sub->getSizeC());
                EXPECT_EQ(image::planeData<unsigned char>(image, c, z, t), image::planeData<unsigned char>(sub));
            }
        }
    }
}

TEST(SubImageSplit, RefusesWhatItCannotCut)
{
    const ImagePtr image = makeImage(4, 3, 2, 3, 2);
    InSplit split;
    ToyImgLvl2 processor;
    processor.init();
    EXPECT_THAT(split.processAttribute(processor, 0, core::BaseRequestOrigin()).getMessage(),
                HasSubstr("must be initialised before it is cut"));
    EXPECT_THAT(split.initBase(eSIST_Slices, eVPT_Slices, eCPT_AllChannels, eTPT_Steps, nullptr).getMessage(),
                HasSubstr("split of attribute InToyImg was given a null pointer"));
    const auto gpu = boost::make_shared<GpuImage>(image->getGeometry());
    EXPECT_THAT(split.initBase(eSIST_Slices, eVPT_Slices, eCPT_AllChannels, eTPT_Steps, gpu).getMessage(),
                HasSubstr("cannot cut image [4 x 3 x 2, 2 time steps, 3 channels, u8], which lies on a GPU"));
    EXPECT_THAT(split.initBase(eSIST_Slices, eVPT_Slices, eCPT_Channels, eTPT_Steps, image).getMessage(),
                HasSubstr("no cut of split type 2 with volume parsing 0, colour parsing 0"));
    EXPECT_THAT(split.initBase(eSIST_WholeOnGpu, eVPT_Slices, eCPT_AllChannels, eTPT_Steps, image).getMessage(),
                HasSubstr("split type 7"));
    EXPECT_FALSE(split.isBaseInitialised());
    EXPECT_FALSE(split.checkProcessorType(ToyImgLvl3()));
    EXPECT_TRUE(split.checkProcessorType(processor));
}

TEST(ImageYStripSplit, StripsTakeTheWholeBlocksThatBeginInTheirElements)
{
    const ImagePtr image = makeImage(100, 10, 1, 2, 1);
    InStripSplit split;
    EXPECT_EQ(1, static_cast<int>(split.getSplitBaseType()));
    EXPECT_EQ(4, static_cast<int>(split.getSplitDynamicType()));
    EXPECT_EQ(5, static_cast<int>(split.getImageStripSplitType()));
    ASSERT_TRUE(split.initBase(image, eSAT_InImage, eSPD_TopToBottom, false).getResult());
    EXPECT_EQ(1000U, split.getNbElements());
    EXPECT_EQ(100U, split.getRowLength());
    EXPECT_EQ(2U, split.getElementBytes());
    ToyImgLvl3 processor;
    processor.init();
    ASSERT_TRUE(split.processAttribute(processor, 300UL, 600UL, core::BaseRequestOrigin()).getResult());
    const auto strip = processor.getStorage<InToyStrip>();
    EXPECT_EQ(320U, strip->getFirstElement());
    EXPECT_EQ(320U, strip->getNbElements());
    EXPECT_EQ(static_cast<const void*>(image::planeData<unsigned char>(image, 1) + 320), strip->getPlane(1));
}

TEST(ImageYStripSplit, RefusesWhatItCannotCut)
{
    InStripSplit split;
    ToyImgLvl3 processor;
    processor.init();
    EXPECT_THAT(split.processAttribute(processor, 0UL, 1UL, core::BaseRequestOrigin()).getMessage(),
                HasSubstr("must be initialised before it is cut"));
    EXPECT_FALSE(split.initBase(nullptr, eSAT_InImage, eSPD_TopToBottom, false).getResult());
    const ImagePtr volume = makeImage(4, 4, 2, 1, 1);
    EXPECT_THAT(split.initBase(volume, eSAT_InImage, eSPD_TopToBottom, false).getMessage(), HasSubstr("cuts 2D images only"));
    EXPECT_THAT(
        split.initBase(boost::make_shared<GpuImage>(volume->getGeometry()), eSAT_InImage, eSPD_TopToBottom, false).getMessage(),
        HasSubstr("lies on a GPU"));
    EXPECT_THAT(split.initBase(makeImage(4, 4, 1, 1, 1), eSAT_InImage, eSPD_TopToBottom, true).getMessage(), HasSubstr("border"));
    EXPECT_FALSE(split.isBaseInitialised());
}

/// Only names what its attribute holds.
class ToyGreyLvl3 : public ToyProcessor<ToyGreyLvl3, processor::BaseProcessor>
{
    KOVIS_TOY_NAMES(ToyGreyLvl3)

protected:
    BoolResult runDerived() override { return BoolResult(true); }
    processor::eProcessorType getProcessorType() const override { return processor::eProcessorType::sync; }
    BoolResult initDerived(std::vector<boost::shared_ptr<processor::BaseAttribute>>& attributes,
                           std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>&,
                           processor::ProcessorDispatchPolicy&, boost::shared_ptr<processor::BaseRule>&,
                           const processor::eProcessorRulePolicy&) override
    {
        attributes = {boost::make_shared<OutToyGreyStrip>()};
        return BoolResult(true);
    }
};

TEST(ImageYStripSplit, GreyStripsAreOfOneChannel)
{
    ImageYStrip2dSplit<ToyGreyLvl3, image::BaseImage, OutToyGreyStrip> split;
    EXPECT_EQ(1, static_cast<int>(split.getImageStripSplitType()));
    EXPECT_THAT(split.initBase(makeImage(4, 4, 1, 2, 1), eSAT_InImage, eSPD_TopToBottom, eSPD_TopToBottom).getMessage(),
                HasSubstr("images of one channel only"));
    const ImagePtr grey = makeImage(64, 4, 1, 1, 1);
    ASSERT_TRUE(split.initBase(grey, eSAT_InImage, eSPD_TopToBottom, eSPD_TopToBottom).getResult());
    ToyGreyLvl3 processor;
    processor.init();
    ASSERT_TRUE(split.processAttribute(processor, 64UL, 128UL, core::BaseRequestOrigin()).getResult());
    EXPECT_EQ(image::planeData<unsigned char>(grey) + 64, processor.getStorage<OutToyGreyStrip>()->getPlane());
}

TEST(StripParserInfo, MakesAParserOfEachBufferTypesElements)
{
    using Info = StripParserInfo<RawStripParserMode, BaseOutputYStripColor2dAttribute, BaseOutputYStripColor2dAttribute>;
    const auto attribute = boost::make_shared<OutToyStrip>();
    EXPECT_EQ(nullptr, Info::createParser(attribute));
    for (int type = 1; type <= 11; ++type)
    {
        image::HomogeneousImageGeometry geometry;
        image::ColorGeometry color;
        color.initUser(2);
        geometry.init(image::VolumeGeometry(), color, image::TemporalGeometry(), 64, 2,
                      static_cast<image::eImageBufferType>(type));
        const auto strip = image::makeOutputStrip(image::createImage(geometry), 0, 2);
        attribute->init(strip);
        const auto parser = Info::createParser(attribute);
        ASSERT_NE(nullptr, parser) << type;
        EXPECT_EQ(128U, parser->getNbElements());
        EXPECT_EQ(128U, parser->getNbExactElements());
        if (type == 8)
        {
            auto& typed = dynamic_cast<RawYStripUserColor2dParser<unsigned char, BaseOutputYStripColor2dAttribute>&>(*parser);
            EXPECT_EQ(strip->getPlane(1), typed.accessBuffer(1));
            parser->clear();
            EXPECT_EQ(0U, parser->getNbElements());
            EXPECT_EQ(0U, parser->getNbExactElements());
            EXPECT_THROW(typed.accessBuffer(0), KOVISImageProcessingException);
        }
    }
    const auto grey = boost::make_shared<OutToyGreyStrip>();
    const ImagePtr image = makeImage(64, 1, 1, 1, 1);
    grey->init(boost::make_shared<image::OutputImageYStrip2d>(image, ElementsRange(0, 64), image::eStripElements::exact));
    const auto parser =
        StripParserInfo<RawStripParserMode, BaseOutputYStrip2dAttribute, BaseOutputYStrip2dAttribute>::createParser(grey);
    EXPECT_EQ(image::planeData<unsigned char>(image),
              (dynamic_cast<RawYStrip2dParser<unsigned char, BaseOutputYStrip2dAttribute>&>(*parser).accessBuffer()));
}
} // namespace
