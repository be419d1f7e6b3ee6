#pragma once

#include "KOVIS/KOVISCore/ComputerInfoPool.h"
#include "KOVIS/KOVISImage/BaseImage.h"

#include <gtest/gtest.h>

namespace kovis::test
{
inline const hard::GpuDescription& getGpus()
{
    return core::ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription().getGpuDescription();
}

/// An image without planes that counts how often somebody asks where it lies.
class SpyImage : public image::BaseImage
{
public:
    SpyImage(const image::BaseImageGeometry& geometry, bool bOnGpu) : BaseImage(geometry), m_bOnGpu(bOnGpu) {}
    bool isGpuImage() const override
    {
        ++m_nbQuestions;
        return m_bOnGpu;
    }

    mutable int m_nbQuestions = 0;

private:
    bool m_bOnGpu;
};

/// Tests that need a device, be it one that is emulated.
class GpuFixture : public testing::Test
{
protected:
    void SetUp() override
    {
        if (getGpus().getNbDevices() == 0)
        {
            GTEST_SKIP() << "no usable GPU: " << getGpus().getReasonForNone();
        }
    }
};
} // namespace kovis::test
