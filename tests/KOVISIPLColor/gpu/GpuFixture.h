#pragma once

#include "KOVIS/KOVISCore/ComputerInfoPool.h"

#include <gtest/gtest.h>

namespace kovis::test
{
inline const hard::GpuDescription& getGpus()
{
    return core::ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription().getGpuDescription();
}

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
