#pragma once

#include "KOVIS/KOVISImage/eColorGeometryType.h"
#include "KOVIS/KOVISImage/eImageBufferType.h"
#include "support/PixelModel.h"

#include <cstddef>
#include <vector>

// A whole conversion in plain scalar code, from the table of ways between the spaces, link by link. Of the system it takes the
// matrices between the linear spaces alone.

namespace kovis::test
{
template <class T>
using ModelPlanes = std::vector<std::vector<T>>;

struct ModelSpace
{
    image::eColorGeometryType m_geometry;
    unsigned int m_sizeC;
};

/// A space, and the element type of the planes that hold it.
struct ModelStep
{
    ModelSpace m_space;
    image::eImageBufferType m_type;
};

/// What the rows of the middle one of three links read: what the rows before them wrote, as is required, or the pixel as it was.
enum class MiddleLink
{
    inPlace,
    fromPrivateCopy
};

/// The values that the last link gives for loaded samples, before they are stored. The steps differ, or both are User.
ModelPlanes<float> modelChain(const ModelForm& form, const ModelStep& from, const ModelStep& to,
                              const std::vector<float>& userMatrix, const ModelPlanes<float>& samples, MiddleLink middleLink);

/// The planes of the target.
template <class Tin, class Tout>
ModelPlanes<Tout> modelConversion(const ModelForm& form, const ModelSpace& from, const ModelSpace& to,
                                  const std::vector<float>& userMatrix, const ModelPlanes<Tin>& in,
                                  MiddleLink middleLink = MiddleLink::inPlace)
{
    const std::size_t count = in[0].size();
    ModelPlanes<Tout> out(to.m_sizeC, std::vector<Tout>(count));
    if (from.m_geometry == to.m_geometry && from.m_geometry != image::eCGT_User)
    {
        for (std::size_t c = 0; c < from.m_sizeC; ++c)
        {
            for (std::size_t i = 0; i < count; ++i)
            {
                out[c][i] = modelCopy<Tin, Tout>(form, in[c][i]);
            }
        }
        return out;
    }
    ModelPlanes<float> samples(from.m_sizeC, std::vector<float>(count));
    for (std::size_t c = 0; c < from.m_sizeC; ++c)
    {
        for (std::size_t i = 0; i < count; ++i)
        {
            samples[c][i] = modelLoad(in[c][i]);
        }
    }
    const ModelPlanes<float> values = modelChain(form, {from, image::BufferTypeOf<Tin>::g_value},
                                                 {to, image::BufferTypeOf<Tout>::g_value}, userMatrix, samples, middleLink);
    for (std::size_t c = 0; c < to.m_sizeC; ++c)
    {
        for (std::size_t i = 0; i < count; ++i)
        {
            out[c][i] = modelStore<Tout>(form, values[c][i]);
        }
    }
    return out;
}
} // namespace kovis::test
