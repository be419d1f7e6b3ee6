#pragma once

#include "ColorTestImages.h"
#include "KOVISIPLColor/kernel/KernelSamples.h"

#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVISIPL/KOVISIPLAttributes/eLightnessType.h"
#include "support/LightnessModel.h"
#include "support/PixelModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

// Images with numbers of their own in every plane, and what a lightness has to make of them.

namespace kovis::test
{
inline constexpr imaproc::attr::eLightnessType g_lightnessFormulas[] = {
    imaproc::attr::eLT_Average, imaproc::attr::eLT_Lightness, imaproc::attr::eLT_Luminosity};

/// Fills every plane with numbers of its own, of the whole range of the type.
template <class T>
void fillVaried(image::BaseImage& filled)
{
    unsigned int stream = 0;
    const unsigned long nbPixels = filled.getSizeX() * filled.getSizeY();
    for (unsigned long t = 0; t < filled.getSizeT(); ++t)
    {
        for (unsigned long z = 0; z < filled.getSizeZ(); ++z)
        {
            for (unsigned long c = 0; c < filled.getSizeC(); ++c)
            {
                const std::vector<T> samples = makeSamples<T>(nbPixels, ++stream);
                std::copy(samples.begin(), samples.end(), image::planeData<T>(filled, c, z, t));
            }
        }
    }
}

template <class T>
ImagePtr makeVariedImage(const image::BaseImageGeometry& geometry)
{
    const ImagePtr made = image::createImage(geometry);
    fillVaried<T>(*made);
    return made;
}

/// Whether the image still holds what fillVaried gave it.
template <class T>
void expectVaried(const image::BaseImage& found)
{
    const ImagePtr expected = makeVariedImage<T>(found.getGeometry());
    for (unsigned long t = 0; t < found.getSizeT(); ++t)
    {
        for (unsigned long z = 0; z < found.getSizeZ(); ++z)
        {
            for (unsigned long c = 0; c < found.getSizeC(); ++c)
            {
                const T* const plane = image::planeData<T>(found, c, z, t);
                EXPECT_TRUE(std::equal(plane, plane + found.getSizeX() * found.getSizeY(),
                                       image::planeData<T>(*expected, c, z, t), &sameValue<T>))
                    << "channel " << c << ", Z " << z << ", T " << t << " is written";
            }
        }
    }
}

/// What the form that runs here has to give: those below AVX512 agree to the bit.
template <class T>
void expectLightness(const image::BaseImage& in, const image::BaseImage& out, imaproc::attr::eLightnessType type)
{
    const ModelForm& form = core::isAvailable(eInstructionSet::eIS_AVX512) ? g_avx512Form : g_genericForm;
    ASSERT_EQ(out.getSizeX(), in.getSizeX());
    ASSERT_EQ(out.getSizeY(), in.getSizeY());
    ASSERT_EQ(out.getSizeC(), 1U);
    ASSERT_EQ(out.getSizeZ(), in.getSizeZ());
    ASSERT_EQ(out.getSizeT(), in.getSizeT());
    EXPECT_EQ(out.getColorGeometryType(), image::eCGT_Grey);
    EXPECT_EQ(out.getBufferType(), in.getBufferType());
    std::vector<T> channels(in.getSizeC());
    for (unsigned long t = 0; t < in.getSizeT(); ++t)
    {
        for (unsigned long z = 0; z < in.getSizeZ(); ++z)
        {
            for (unsigned long i = 0; i < in.getSizeX() * in.getSizeY(); ++i)
            {
                for (unsigned long c = 0; c < in.getSizeC(); ++c)
                {
                    channels[c] = image::planeData<T>(in, c, z, t)[i];
                }
                const T found = image::planeData<T>(out, 0, z, t)[i];
                const T expected = modelLightness<T>(form, type, channels);
                ASSERT_TRUE(sameValue(found, expected)) << form.m_name << ", formula " << type << ", Z " << z << ", T " << t
                                                        << ", pixel " << i << ": " << +found << " for " << +expected;
            }
        }
    }
}
} // namespace kovis::test
