// Images made for outputs: their shape, and what cannot be made.
#include "support/ToyImageProcessors.h"

#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISImage/KOVISImageLog.h"
#include "KOVIS/KOVISImageProcessing/AlgorithmFunctionEfficiency.h"
#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
using namespace kovis;
using namespace kovis::test;
using namespace kovis::imaproc;
using testing::HasSubstr;

class ToyInfo : public BaseFromImageCustomImageInfo
{
public:
    image::eImageBufferType getImageBufferType() const override { return m_bufferType; }
    image::ColorGeometry getColorGeometry() const override
    {
        image::ColorGeometry color;
        color.initUser(m_nbChannels);
        return color;
    }
    bool isOutputInitNeeded() const override { return m_bNeeded; }

    image::eImageBufferType m_bufferType = image::eIBT_UInt16;
    unsigned long m_nbChannels = 2;
    bool m_bNeeded = true;
};

class OutputInitializer : public testing::Test
{
protected:
    void SetUp() override
    {
        image::ColorGeometry color;
        color.init(image::eCGT_Rgb);
        image::HomogeneousImageGeometry geometry;
        geometry.init(image::VolumeGeometry(3), color, image::TemporalGeometry(2), 5, 4, image::eIBT_UInt8);
        m_in->init(image::createImage(geometry));
    }

    boost::shared_ptr<InToyImg> m_in = boost::make_shared<InToyImg>();
    boost::shared_ptr<OutToyImg> m_out = boost::make_shared<OutToyImg>();
};

TEST_F(OutputInitializer, CustomOutputTakesShapeFromTheInputAndTheRestFromTheInformation)
{
    const auto info = boost::make_shared<ToyInfo>();
    EXPECT_FALSE(info->hasInputImage());
    EXPECT_THROW(info->getInputImage(), KOVISImageProcessingException);
    info->initBase(boost::weak_ptr<const BaseImageAttribute>(m_in));
    EXPECT_TRUE(info->hasInputImage());
    EXPECT_EQ(m_in->getStorage(), info->getInputImage());
    EXPECT_THAT(info->getImageBufferTypeVector(), testing::ElementsAre(image::eIBT_UInt16, image::eIBT_UInt16));
    const auto initializer = customOutput<OutToyImg>(m_out, info);
    ASSERT_TRUE(initializer->initOutputAttribute().getResult());
    const image::BaseImage& made = m_out->getImage();
    EXPECT_EQ(5U, made.getSizeX());
    EXPECT_EQ(4U, made.getSizeY());
    EXPECT_EQ(3U, made.getSizeZ());
    EXPECT_EQ(2U, made.getSizeC());
    EXPECT_EQ(2U, made.getSizeT());
    EXPECT_EQ(image::eIBT_UInt16, made.getBufferType());
    EXPECT_EQ(image::eCGT_User, made.getColorGeometryType());
}

TEST_F(OutputInitializer, WhatCannotBeMadeIsTold)
{
    const auto info = boost::make_shared<ToyInfo>();
    info->initBase(boost::weak_ptr<const BaseImageAttribute>(m_in));
    const auto initializer = customOutput<OutToyImg>(m_out, info);
    info->m_nbChannels = 0;
    EXPECT_THROW(initializer->initOutputAttribute(), image::KOVISImageException);
    info->m_nbChannels = 2;
    info->m_bufferType = image::eIBT_None;
    EXPECT_THROW(initializer->initOutputAttribute(), image::KOVISImageException);
    EXPECT_FALSE(m_out->isInitialised());
    info->m_bNeeded = false;
    EXPECT_TRUE(initializer->initOutputAttribute().getResult());
    EXPECT_FALSE(m_out->isInitialised());
    info->m_bNeeded = true;
    m_in->clear();
    EXPECT_FALSE(info->hasInputImage());
    EXPECT_THROW(initializer->initOutputAttribute(), KOVISImageProcessingException);
    EXPECT_THAT(customOutput<OutToyImg>(m_out, nullptr)->initOutputAttribute().getMessage(),
                HasSubstr("no description of the image for output OutToyImg"));
    m_out.reset();
    EXPECT_THAT(initializer->initOutputAttribute().getMessage(), HasSubstr("is gone"));
    m_in.reset();
    EXPECT_THROW(info->getInputImage(), KOVISImageProcessingException);
}

TEST_F(OutputInitializer, DuplicatesTakeTheInputsShape)
{
    ASSERT_TRUE((duplicateInOut<InToyImg, OutToyImg>(m_out, m_in, static_cast<image::eImageBufferType>(7), eIIDP_AsInput)
                     ->initOutputAttribute()
                     .getResult()));
    EXPECT_EQ(image::eIBT_Real, m_out->getImage().getBufferType());
    EXPECT_EQ(image::eCGT_Rgb, m_out->getImage().getColorGeometryType());
    EXPECT_EQ(3U, m_out->getImage().getSizeZ());
    EXPECT_EQ(2U, m_out->getImage().getSizeT());
    ASSERT_TRUE((duplicateGreyInOut<InToyImg, OutToyImg>(m_out, m_in, eIISP_HostMemory)->initOutputAttribute().getResult()));
    EXPECT_EQ(image::eIBT_UInt8, m_out->getImage().getBufferType());
    EXPECT_EQ(image::eCGT_Grey, m_out->getImage().getColorGeometryType());
    EXPECT_EQ(1U, m_out->getImage().getSizeC());
    EXPECT_EQ(4U, m_out->getImage().getSizeY());

    DuplicateImageInitializer<BaseInputImageAttribute, BaseOutputImageAttribute> other;
    other.init(m_out, m_in, image::eIBT_None, eIISP_HostMemory, 7UL, 8UL, image::VolumeGeometry(4), boost::none,
               image::TemporalGeometry());
    ASSERT_TRUE(other.initOutputAttribute().getResult());
    EXPECT_EQ(7U, m_out->getImage().getSizeX());
    EXPECT_EQ(8U, m_out->getImage().getSizeY());
    EXPECT_EQ(4U, m_out->getImage().getSizeZ());
    EXPECT_EQ(2U, m_out->getImage().getSizeT());
}

TEST_F(OutputInitializer, DuplicatesOfNothingAreRefused)
{
    const auto initializer = duplicateInOut<InToyImg, OutToyImg>(m_out, m_in, image::eIBT_None, eIIDP_AsInput);
    m_in->clear();
    EXPECT_THAT(initializer->initOutputAttribute().getMessage(), HasSubstr("input InToyImg holds no image"));
    m_in.reset();
    EXPECT_THAT(initializer->initOutputAttribute().getMessage(),
                HasSubstr("the input attribute that output OutToyImg was to be made after is gone"));
    m_out.reset();
    EXPECT_THAT(initializer->initOutputAttribute().getMessage(),
                HasSubstr("the output attribute that an image was to be made for is gone"));
}

TEST(ImageAttribute, HoldsAnImageAndTellsItsKind)
{
    OutToyImg attribute;
    EXPECT_EQ(2, attribute.getAttributeType());
    EXPECT_EQ(4, attribute.getImageProcessingAttributeType());
    EXPECT_FALSE(attribute.isInitialised());
    EXPECT_EQ(nullptr, attribute.getStorage());
    try
    {
        (void)attribute.getImage();
        FAIL();
    }
    catch (const KOVISImageProcessingException& e)
    {
        EXPECT_STREQ("attribute OutToyImg holds no image: set it first", e.what());
    }
    attribute.init(nullptr);
    EXPECT_TRUE(attribute.isInitialised());
    EXPECT_FALSE(attribute.isUsable());
    const auto image = image::createImage2d(4, 4, image::eCGT_Rgb, image::eIBT_UInt8);
    attribute.init(image);
    EXPECT_TRUE(attribute.isUsable());
    EXPECT_EQ(image.get(), &attribute.getImage());
    attribute.clear();
    EXPECT_FALSE(attribute.isInitialised());
}

TEST(AlgorithmFunctionEfficiency, GrowsWithWidthAndFusedComesAbovePlain)
{
    using IS = eInstructionSet;
    const unsigned int efficiencies[] = {
        AlgorithmFunctionEfficiency<IS::eIS_Generic, IS::eIS_Generic, IS::eIS_Generic>::getEfficiency(),
        AlgorithmFunctionEfficiency<IS::eIS_SSE2, IS::eIS_SSE2, IS::eIS_Generic>::getEfficiency(),
        AlgorithmFunctionEfficiency<IS::eIS_AVX, IS::eIS_AVX, IS::eIS_Generic>::getEfficiency(),
        AlgorithmFunctionEfficiency<IS::eIS_AVX2, IS::eIS_AVX2, IS::eIS_Generic>::getEfficiency(),
        AlgorithmFunctionEfficiency<IS::eIS_FMA3, IS::eIS_AVX2, IS::eIS_Generic>::getEfficiency(),
        AlgorithmFunctionEfficiency<IS::eIS_AVX512, IS::eIS_Generic, IS::eIS_Generic>::getEfficiency()};
    for (std::size_t i = 1; i < std::size(efficiencies); ++i)
    {
        EXPECT_LT(efficiencies[i - 1], efficiencies[i]) << i;
    }
    const unsigned int one = AlgorithmFunctionEfficiency<IS::eIS_AVX2, IS::eIS_Generic, IS::eIS_Generic>::getEfficiency();
    EXPECT_EQ(efficiencies[3], one);
}
} // namespace
