#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl2.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"
#include "KOVISIPLColor/SpaceImages.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <string>
#include <vector>

// The ways to have a 2D image converted, and whether what came out is what was expected.

namespace kovis::test
{
using TransformPtr = boost::shared_ptr<const imaproc::attr::ColorConversionTransform>;

struct RunWay
{
    const char* m_name;
    int m_level; ///< 1: the entry function
    unsigned long m_stripHeight;
    bool m_bWrapped; ///< on planes without room, both sides
};

inline constexpr std::array g_runWays{RunWay{"level 3, one strip", 3, 0, false},
                                      RunWay{"level 3, one strip of planes without room", 3, 0, true},
                                      RunWay{"level 3, strips of two rows", 3, 2, false},
                                      RunWay{"level 2, one strip", 2, 0, false},
                                      RunWay{"level 2, a strip per row", 2, 1, false},
                                      RunWay{"entry function, one strip", 1, 0, false},
                                      RunWay{"entry function, a strip per row", 1, 1, false},
                                      RunWay{"entry function, strips of two rows without room", 1, 2, true}};

inline TransformPtr makeTransform(const ModelSpace& to, const std::vector<float>& userMatrix)
{
    const auto transform = imaproc::attr::createColorConversionTransform(to.m_geometry);
    transform->setMatrix(userMatrix);
    return transform;
}

inline void runLevel3(const ImagePtr& in, const TransformPtr& transform, const ImagePtr& out, unsigned long stripHeight)
{
    const unsigned long sizeY = in->getSizeY();
    const unsigned long step = stripHeight == 0 ? sizeY : stripHeight;
    for (unsigned long row = 0; row < sizeY; row += step)
    {
        const unsigned long nbRows = std::min(step, sizeY - row);
        const auto processor = boost::make_shared<imaproc::color::ColorConvertImgLvl3>();
        ASSERT_TRUE(processor->init());
        processor->set<imaproc::attr::InColorYStrip2d>(image::makeInputStrip(in, row, nbRows));
        processor->set<imaproc::attr::InColorConversionTransform>(transform);
        processor->set<imaproc::attr::OutColorYStrip2d>(image::makeOutputStrip(out, row, nbRows));
        processor::executeSyncRun(processor);
    }
}

inline void runLevel2(const ImagePtr& in, const TransformPtr& transform, const ImagePtr& out)
{
    const auto processor = boost::make_shared<imaproc::color::ColorConvertImgLvl2>();
    ASSERT_TRUE(processor->init());
    processor->set<imaproc::attr::InSubColorImg2d>(in);
    processor->set<imaproc::attr::InColorConversionTransform>(transform);
    processor->set<imaproc::attr::OutSubColorImg2d>(out);
    processor::executeSyncRun(processor);
}

inline void runConversion(const RunWay& way, const ImagePtr& in, const TransformPtr& transform, const ImagePtr& out)
{
    processor::setStripHeight(way.m_stripHeight);
    core::setMaxConcurrency(way.m_stripHeight == 1 ? 3 : 1);
    switch (way.m_level)
    {
    case 3:
        runLevel3(in, transform, out, way.m_stripHeight);
        break;
    case 2:
        runLevel2(in, transform, out);
        break;
    default:
        imaproc::color::colorConvertImg(in, transform, out);
        break;
    }
    processor::setStripHeight(0);
    core::setMaxConcurrency(0);
}

/// Every element of every plane: the same bits, or a NaN on both sides.
template <class T>
void expectPlanes(const ModelPlanes<T>& found, const ModelPlanes<T>& expected)
{
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t c = 0; c < expected.size(); ++c)
    {
        ASSERT_EQ(found[c].size(), expected[c].size());
        for (std::size_t i = 0; i < expected[c].size(); ++i)
        {
            ASSERT_TRUE(sameValue(found[c][i], expected[c][i]))
                << "channel " << c << ", element " << i << ": " << +found[c][i] << " instead of " << +expected[c][i];
        }
    }
}

/// Converts samples in each of these ways into an image full of 77.
template <class Tin, class Tout, class Ways>
void expectConversionInWays(const Ways& ways, const ModelSpace& from, const ModelSpace& to, const std::vector<float>& userMatrix,
                            unsigned long sizeX, const ModelPlanes<Tin>& samples, const ModelPlanes<Tout>& expected)
{
    const unsigned long sizeY = samples[0].size() / sizeX;
    const TransformPtr transform = makeTransform(to, userMatrix);
    for (const RunWay& way : ways)
    {
        SCOPED_TRACE(way.m_name);
        const ImagePtr in = makeSpaceImage<Tin>(sizeX, sizeY, from, way.m_bWrapped, samples);
        const ModelPlanes<Tout> unwritten(to.m_sizeC, std::vector<Tout>(samples[0].size(), static_cast<Tout>(77)));
        const ImagePtr out = makeSpaceImage<Tout>(sizeX, sizeY, to, way.m_bWrapped, unwritten);
        runConversion(way, in, transform, out);
        expectPlanes<Tout>(getPlanes<Tout>(*out), expected);
        if (testing::Test::HasFatalFailure())
        {
            return;
        }
    }
}
} // namespace kovis::test
