#include "KOVIS/KOVISBaseImageTools/getLinearTransform.h"

#include "KOVIS/KOVISBaseImageTools/KOVISBaseImageToolsLog.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <array>

namespace kovis::image
{
namespace
{
using tools::eKOVISBaseImageToolsMessage;

using Vector3 = std::array<double, 3>;
using Matrix3 = std::array<Vector3, 3>;

// ITU-R BT.601: weights of luma, and the scales of the colour differences, 2 * (1 - weight).
constexpr double g_lumaRed = 0.299;
constexpr double g_lumaGreen = 0.587;
constexpr double g_lumaBlue = 0.114;
constexpr double g_scalePb = 1.772;
constexpr double g_scalePr = 1.402;

// IEC 61966-2-1: chromaticities x, y of red, green and blue.
constexpr double g_primaries[3][2] = {{0.64, 0.33}, {0.30, 0.60}, {0.15, 0.06}};
// White of D65, 2 degree observer.
constexpr Vector3 g_white = {0.95047, 1.0, 1.08883};

Matrix3 inverse(const Matrix3& m)
{
    const auto cofactor = [&m](std::size_t row, std::size_t column)
    {
        const std::size_t r1 = (row + 1) % 3;
        const std::size_t r2 = (row + 2) % 3;
        const std::size_t c1 = (column + 1) % 3;
        const std::size_t c2 = (column + 2) % 3;
        return m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1];
    };
    const double determinant = m[0][0] * cofactor(0, 0) + m[0][1] * cofactor(0, 1) + m[0][2] * cofactor(0, 2);
    Matrix3 result{};
    for (std::size_t row = 0; row < 3; ++row)
    {
        for (std::size_t column = 0; column < 3; ++column)
        {
            result[row][column] = cofactor(column, row) / determinant;
        }
    }
    return result;
}

/// The primaries as columns X, Y, Z, each scaled so that equal amounts of all three give white.
Matrix3 makeRgbToXyz()
{
    Matrix3 primaries{};
    for (std::size_t i = 0; i < 3; ++i)
    {
        const double x = g_primaries[i][0];
        const double y = g_primaries[i][1];
        primaries[0][i] = x / y;
        primaries[1][i] = 1.0;
        primaries[2][i] = (1.0 - x - y) / y;
    }
    const Matrix3 solver = inverse(primaries);
    Matrix3 result{};
    for (std::size_t i = 0; i < 3; ++i)
    {
        const double amount = solver[i][0] * g_white[0] + solver[i][1] * g_white[1] + solver[i][2] * g_white[2];
        for (std::size_t row = 0; row < 3; ++row)
        {
            result[row][i] = primaries[row][i] * amount;
        }
    }
    return result;
}

const Matrix3& getRgbToXyz()
{
    static const Matrix3 g_matrix = makeRgbToXyz();
    return g_matrix;
}

const Matrix3& getXyzToRgb()
{
    static const Matrix3 g_matrix = inverse(getRgbToXyz());
    return g_matrix;
}

void setRow(LinearTransform& transform, std::size_t row, const Vector3& coefficients)
{
    for (std::size_t column = 0; column < 3; ++column)
    {
        transform(row, column) = coefficients[column];
    }
}

/// What an opaque alpha reads.
double getOpaqueAlpha(const eImageBufferType& type)
{
    switch (getStorageType(type))
    {
    case eIBT_Int8:
        return 127.0;
    case eIBT_Int16:
        return 32767.0;
    case eIBT_UInt16:
        return 65535.0;
    case eIBT_Int32:
        return 2147483647.0;
    case eIBT_UInt32:
        return 4294967295.0;
    default:
        return 255.0;
    }
}

/// What the colour differences of YCbCr are moved by.
double getChromaOffset(const eImageBufferType& type)
{
    switch (getStorageType(type))
    {
    case eIBT_Int8:
    case eIBT_Int16:
    case eIBT_Int32:
        return 0.0;
    case eIBT_UInt16:
        return 32768.0;
    case eIBT_UInt32:
        return 2147483648.0;
    default:
        return 128.0;
    }
}

/// From a space to linear RGB: three rows of the space's channels and an offset.
LinearTransform makeToRgb(const eColorGeometryType& from, const eImageBufferType& type)
{
    const std::size_t nbChannels = getNbChannels(from);
    LinearTransform transform(3, nbChannels + 1);
    switch (from)
    {
    case eCGT_Grey:
        for (std::size_t row = 0; row < 3; ++row)
        {
            transform(row, 0) = 1.0;
        }
        break;
    case eCGT_XYZ:
        for (std::size_t row = 0; row < 3; ++row)
        {
            setRow(transform, row, getXyzToRgb()[row]);
        }
        break;
    case eCGT_YPbPr:
    case eCGT_YCbCr:
    {
        setRow(transform, 0, {1.0, 0.0, g_scalePr});
        setRow(transform, 1, {1.0, -g_lumaBlue * g_scalePb / g_lumaGreen, -g_lumaRed * g_scalePr / g_lumaGreen});
        setRow(transform, 2, {1.0, g_scalePb, 0.0});
        const double offset = from == eCGT_YCbCr ? getChromaOffset(type) : 0.0;
        for (std::size_t row = 0; row < 3; ++row)
        {
            transform(row, 3) = -(transform(row, 1) + transform(row, 2)) * offset;
        }
        break;
    }
    default: // Rgb, and Rgba, whose alpha is left out.
        for (std::size_t row = 0; row < 3; ++row)
        {
            transform(row, row) = 1.0;
        }
        break;
    }
    return transform;
}

/// From linear RGB to a space: one row per channel of the space, of three coefficients and an offset.
LinearTransform makeFromRgb(const eColorGeometryType& to, const eImageBufferType& type)
{
    LinearTransform transform(getNbChannels(to), 4);
    switch (to)
    {
    case eCGT_Grey:
        setRow(transform, 0, {g_lumaRed, g_lumaGreen, g_lumaBlue});
        break;
    case eCGT_XYZ:
        for (std::size_t row = 0; row < 3; ++row)
        {
            setRow(transform, row, getRgbToXyz()[row]);
        }
        break;
    case eCGT_YPbPr:
    case eCGT_YCbCr:
    {
        setRow(transform, 0, {g_lumaRed, g_lumaGreen, g_lumaBlue});
        setRow(transform, 1, {-g_lumaRed / g_scalePb, -g_lumaGreen / g_scalePb, (1.0 - g_lumaBlue) / g_scalePb});
        setRow(transform, 2, {(1.0 - g_lumaRed) / g_scalePr, -g_lumaGreen / g_scalePr, -g_lumaBlue / g_scalePr});
        const double offset = to == eCGT_YCbCr ? getChromaOffset(type) : 0.0;
        transform(1, 3) = offset;
        transform(2, 3) = offset;
        break;
    }
    default: // Rgb and Rgba.
        for (std::size_t row = 0; row < 3; ++row)
        {
            transform(row, row) = 1.0;
        }
        if (to == eCGT_Rgba)
        {
            transform(3, 3) = getOpaqueAlpha(type);
        }
        break;
    }
    return transform;
}

/// The map that applies `first` and then `second`.
LinearTransform combine(const LinearTransform& second, const LinearTransform& first)
{
    const std::size_t nbInner = first.getNbRows();
    const std::size_t nbColumns = first.getNbColumns();
    LinearTransform result(second.getNbRows(), nbColumns);
    for (std::size_t row = 0; row < result.getNbRows(); ++row)
    {
        for (std::size_t column = 0; column < nbColumns; ++column)
        {
            double sum = 0.0;
            for (std::size_t inner = 0; inner < nbInner; ++inner)
            {
                sum += second(row, inner) * first(inner, column);
            }
            result(row, column) = sum;
        }
        result(row, nbColumns - 1) += second(row, nbInner);
    }
    return result;
}

bool isLinearSpace(const eColorGeometryType& type)
{
    return type >= eCGT_Grey && type <= eCGT_YCbCr;
}

void checkBufferType(const eImageBufferType& type, const SourcePlace& place)
{
    if (getStorageType(type) == eIBT_None)
    {
        throwMessage<tools::KOVISBaseImageToolsException>(
            tools::getKOVISBaseImageToolsLogMessageManager(), tools::getKOVISBaseImageToolsLogger(),
            eKOVISBaseImageToolsMessage::eIT_UnknownBufferType, place, static_cast<int>(type));
    }
}
} // namespace

LinearTransform getLinearTransform(const eColorGeometryType& from, const eColorGeometryType& to,
                                   const eImageBufferType& fromBufferType, const eImageBufferType& toBufferType)
{
    const SourcePlace place{
        "kovis::image::LinearTransform kovis::image::getLinearTransform(const kovis::image::eColorGeometryType&, const "
        "kovis::image::eColorGeometryType&, const kovis::image::eImageBufferType&, const "
        "kovis::image::eImageBufferType&)",
        "KOVIS/KOVISBaseImageTools/getLinearTransform.cpp", __LINE__};
    if (!isLinearSpace(from) || !isLinearSpace(to) || from == to)
    {
        throwMessage<tools::KOVISBaseImageToolsException>(
            tools::getKOVISBaseImageToolsLogMessageManager(), tools::getKOVISBaseImageToolsLogger(),
            eKOVISBaseImageToolsMessage::eIT_NoLinearTransform, place, static_cast<int>(from), static_cast<int>(to));
    }
    checkBufferType(fromBufferType, place);
    checkBufferType(toBufferType, place);
    return combine(makeFromRgb(to, toBufferType), makeToRgb(from, fromBufferType));
}
} // namespace kovis::image
