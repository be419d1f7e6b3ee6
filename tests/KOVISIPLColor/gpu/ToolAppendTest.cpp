// The way of kovis-color append --gpu over an emulated device: every page, and nothing left on the device.
#include "EmulatedLauncher.h"
#include "support/FakeCudaRuntime.h"

#include "../../../tools/kovis-color/GpuAppend.h"
#include "../../../tools/kovis-color/ToolError.h"

#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISImage/ImageFactory.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace kovis::tool
{
namespace
{
boost::shared_ptr<image::BaseImage> makePages(unsigned long nbPages, unsigned long nbChannels, short start)
{
    image::ColorGeometry color;
    color.initUser(nbChannels);
    image::HomogeneousImageGeometry geometry;
    geometry.init(image::VolumeGeometry(nbPages), color, image::TemporalGeometry(), 5, 3, image::eIBT_Int16);
    const auto made = image::createImage(geometry);
    short value = start;
    for (unsigned long page = 0; page < nbPages; ++page)
    {
        for (unsigned long c = 0; c < nbChannels; ++c)
        {
            for (unsigned long i = 0; i < 15; ++i)
            {
                image::planeData<short>(made, c, page)[i] = value++;
            }
        }
    }
    return made;
}

TEST(ToolAppend, JoinsEveryPage)
{
    const auto first = makePages(3, 2, -40);
    const auto second = makePages(3, 1, 1000);
    EXPECT_EQ("Fake", getGpuName());
    const int nbLaunches = test::getEmulatedLaunch().m_nbLaunches;
    const auto result = appendOnGpu(first, second);
    EXPECT_EQ(nbLaunches + 3, test::getEmulatedLaunch().m_nbLaunches);
    ASSERT_EQ(3U, result->getSizeC());
    ASSERT_EQ(3U, result->getSizeZ());
    for (unsigned long page = 0; page < 3; ++page)
    {
        for (unsigned long i = 0; i < 15; ++i)
        {
            EXPECT_EQ(image::planeData<short>(first, 0, page)[i], image::planeData<short>(result, 0, page)[i]);
            EXPECT_EQ(image::planeData<short>(first, 1, page)[i], image::planeData<short>(result, 1, page)[i]);
            EXPECT_EQ(image::planeData<short>(second, 0, page)[i], image::planeData<short>(result, 2, page)[i]);
        }
    }
    EXPECT_EQ(0U, test::FakeCudaRuntime::install().getNbAllocated());
}

std::string getError(const std::function<void()>& call)
{
    try
    {
        call();
    }
    catch (const ToolError& e)
    {
        return e.what();
    }
    return "nothing was thrown";
}

TEST(ToolAppend, SaysThatTheGpuWasNotTaken)
{
    core::setGpuSupportActivated(false);
    EXPECT_EQ("--gpu: the GPU was not taken; leave --gpu out to append on the processor",
              getError([] { appendOnGpu(makePages(1, 1, 0), makePages(1, 1, 0)); }));
    core::setGpuSupportActivated(true);
}

TEST(ToolAppend, SaysWhyTheGpuRefused)
{
    EXPECT_EQ("--gpu: attribute X is not set; leave --gpu out to append on the processor",
              getError(
                  [] {
                      requireTaken({processor::eRS_Failed, "attribute X is not set"});
                  }));
    EXPECT_EQ("nothing was thrown", getError([] { requireTaken(processor::eRS_Provided); }));
}
} // namespace
} // namespace kovis::tool
