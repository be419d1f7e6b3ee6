#include "support/ChainModel.h"

#include "KOVIS/KOVISBaseImageTools/getLinearTransform.h"
#include "support/ColorModel.h"
#include "support/ConversionRoutes.h"

#include <string>
#include <utility>

namespace kovis::test
{
namespace
{
using namespace image;

using PixelFormula = ModelPixel (*)(const ModelForm&, const ModelPixel&);

/// The formula of a link that is no matrix, else null.
PixelFormula findFormula(eColorGeometryType from, eColorGeometryType to)
{
    switch (from)
    {
    case eCGT_CieLab:
        return [](const ModelForm& form, const ModelPixel& pixel) { return modelXYZFromLab(form, pixel); };
    case eCGT_CieLuv:
        return &modelXYZFromLuv;
    case eCGT_HLS:
        return &modelRGBFromHLS;
    case eCGT_HSV:
        return &modelRGBFromHSV;
    default:
        break;
    }
    switch (to)
    {
    case eCGT_CieLab:
        return &modelLabFromXYZ;
    case eCGT_CieLuv:
        return &modelLuvFromXYZ;
    case eCGT_HLS:
        return &modelHLSFromRGB;
    case eCGT_HSV:
        return &modelHSVFromRGB;
    default:
        return nullptr;
    }
}

std::vector<float> makeMatrix(const ModelStep& from, const ModelStep& to, const std::vector<float>& userMatrix)
{
    if (from.m_space.m_geometry == eCGT_User || to.m_space.m_geometry == eCGT_User)
    {
        return userMatrix;
    }
    const LinearTransform transform = getLinearTransform(from.m_space.m_geometry, to.m_space.m_geometry, from.m_type, to.m_type);
    std::vector<float> matrix(transform.getSize());
    for (std::size_t i = 0; i < matrix.size(); ++i)
    {
        matrix[i] = static_cast<float>(transform.getData()[i]);
    }
    return matrix;
}

/// One link; equal planes on both sides are read back row by row.
void modelLink(const ModelForm& form, const ModelStep& from, const ModelStep& to, const std::vector<float>& userMatrix,
               const ModelPlanes<float>& in, ModelPlanes<float>& out)
{
    const std::size_t count = in[0].size();
    if (const PixelFormula formula = findFormula(from.m_space.m_geometry, to.m_space.m_geometry))
    {
        for (std::size_t i = 0; i < count; ++i)
        {
            const ModelPixel pixel = formula(form, {in[0][i], in[1][i], in[2][i]});
            for (std::size_t c = 0; c < 3; ++c)
            {
                out[c][i] = pixel[c];
            }
        }
        return;
    }
    std::vector<const float*> sources;
    std::vector<float*> targets;
    for (const std::vector<float>& plane : in)
    {
        sources.push_back(plane.data());
    }
    for (std::vector<float>& plane : out)
    {
        targets.push_back(plane.data());
    }
    const std::vector<float> matrix = makeMatrix(from, to, userMatrix);
    ModelForm pixelByPixel = form;
    pixelByPixel.m_blockLength = 1; // a matrix treats each pixel by itself
    const bool bCurve = from.m_space.m_geometry == eCGT_Rgb && to.m_space.m_geometry == eCGT_XYZ;
    (bCurve ? &modelSRGBToXYZ<float, float> : &modelLinear<float, float>)(pixelByPixel, from.m_space.m_sizeC, to.m_space.m_sizeC,
                                                                          matrix.data(), count, sources.data(), targets.data());
}
} // namespace

ModelPlanes<float> modelChain(const ModelForm& form, const ModelStep& from, const ModelStep& to,
                              const std::vector<float>& userMatrix, const ModelPlanes<float>& samples, MiddleLink middleLink)
{
    std::vector<ModelStep> way{from};
    for (const char hub : std::string(g_conversionRoutes[from.m_space.m_geometry][to.m_space.m_geometry]))
    {
        if (hub != 'd')
        {
            way.push_back({{hub == 'X' ? eCGT_XYZ : eCGT_Rgb, 3}, eIBT_Real});
        }
    }
    way.push_back(to);

    ModelPlanes<float> planes = samples;
    for (std::size_t k = 0; k + 1 < way.size(); ++k)
    {
        const bool bMiddle = k > 0 && k + 2 < way.size();
        if (bMiddle && middleLink == MiddleLink::inPlace)
        {
            modelLink(form, way[k], way[k + 1], userMatrix, planes, planes);
        }
        else
        {
            ModelPlanes<float> next(way[k + 1].m_space.m_sizeC, std::vector<float>(samples[0].size()));
            modelLink(form, way[k], way[k + 1], userMatrix, planes, next);
            planes = std::move(next);
        }
    }
    return planes;
}
} // namespace kovis::test
