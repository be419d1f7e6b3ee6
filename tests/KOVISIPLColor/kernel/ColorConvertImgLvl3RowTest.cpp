#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"
#include "KOVISIPLColor/KernelTableRows.h"
#include "KOVISIPLColor/kernel/KernelGrid.h"
#include "KOVISIPLColor/kernel/KernelSamples.h"
#include "KOVISIPLColor/kernel/OpenAlgorithm.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>
#include <vector>

// The kernel table of the strip processor: its rows, and that each row runs the form and the types that it is entered for.

namespace kovis::test
{
namespace
{
using namespace image;
using imaproc::color::ColorConvertImgLvl3;
using imaproc::color::KOVISIPLColorException;
using processor::AlgorithmFunctionIdentifier;

constexpr int g_typeOrder[] = {1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10};
constexpr unsigned long g_sizeX = 64;
/// No multiple of any block, so that the reach of a call tells the form's block.
constexpr unsigned long g_nbPixels = 40;

class OpenLvl3 : public OpenAlgorithm<ColorConvertImgLvl3>
{
public:
    OpenLvl3(const boost::shared_ptr<BaseImage>& in, const boost::shared_ptr<BaseImage>& out, const std::vector<float>& matrix)
    {
        EXPECT_TRUE(init(processor::ePRP_NoRules));
        const auto transform = imaproc::attr::createColorConversionTransform(eCGT_User);
        transform->setMatrix(matrix);
        set<imaproc::attr::InColorYStrip2d>(makeInputStrip(in, 0, 1));
        set<imaproc::attr::InColorConversionTransform>(transform);
        set<imaproc::attr::OutColorYStrip2d>(makeOutputStrip(out, 0, 1));
    }
};

template <class Tin, class Tout>
void checkRow(const AlgorithmFunctionIdentifier& row, const ModelForm& form)
{
    const auto inType = static_cast<eImageBufferType>(row.getDataTypes().getId(0));
    const auto outType = static_cast<eImageBufferType>(row.getDataTypes().getId(1));
    const boost::shared_ptr<BaseImage> in = createImageUser2d(g_sizeX, 1, 3, inType);
    const boost::shared_ptr<BaseImage> out = createImageUser2d(g_sizeX, 1, 2, outType);
    const std::vector<float> matrix{0.3F, 0.59F, 0.11F, 0.1F, -0.7F, 1.3F, 0.9F, 3.0F};

    const Tin* inPlanes[3];
    for (unsigned long c = 0; c < 3; ++c)
    {
        const std::vector<Tin> samples = makeSamples<Tin>(g_sizeX, static_cast<unsigned int>(c));
        std::memcpy(planeData<Tin>(in, c), samples.data(), g_sizeX * sizeof(Tin));
        inPlanes[c] = planeData<Tin>(in, c);
    }
    std::vector<Tout> expected[2];
    Tout* expectedPlanes[2];
    for (std::size_t r = 0; r < 2; ++r)
    {
        expected[r].assign(g_sizeX, static_cast<Tout>(99));
        expectedPlanes[r] = expected[r].data();
        for (unsigned long i = 0; i < g_sizeX; ++i)
        {
            planeData<Tout>(out, r)[i] = static_cast<Tout>(99);
        }
    }

    OpenLvl3 lvl3(in, out, matrix);
    lvl3.bind();
    ASSERT_TRUE(lvl3.call(row, 0));
    for (std::size_t r = 0; r < 2; ++r)
    {
        const Tout* const plane = planeData<Tout>(out, r);
        ASSERT_EQ(std::count(plane, plane + g_sizeX, static_cast<Tout>(99)), static_cast<long>(g_sizeX)) << "a call of no pixels";
    }
    ASSERT_TRUE(lvl3.call(row, g_nbPixels));
    modelLinear<Tin, Tout>(form, 3, 2, matrix.data(), g_nbPixels, inPlanes, expectedPlanes);
    for (std::size_t r = 0; r < 2; ++r)
    {
        for (unsigned long i = 0; i < g_sizeX; ++i)
        {
            ASSERT_TRUE(sameValue(planeData<Tout>(out, r)[i], expected[r][i])) << "row " << r << ", element " << i;
        }
    }
}

using RowCheck = void (*)(const AlgorithmFunctionIdentifier&, const ModelForm&);

template <class Tin>
RowCheck checkOf(eImageBufferType outType)
{
    switch (getStorageType(outType))
    {
    case eIBT_Int8:
        return &checkRow<Tin, signed char>;
    case eIBT_UInt8:
        return &checkRow<Tin, unsigned char>;
    case eIBT_Int16:
        return &checkRow<Tin, short>;
    case eIBT_UInt16:
        return &checkRow<Tin, unsigned short>;
    case eIBT_Int32:
        return &checkRow<Tin, int>;
    case eIBT_UInt32:
        return &checkRow<Tin, unsigned int>;
    default:
        return &checkRow<Tin, float>;
    }
}

RowCheck checkOf(eImageBufferType inType, eImageBufferType outType)
{
    switch (getStorageType(inType))
    {
    case eIBT_Int8:
        return checkOf<signed char>(outType);
    case eIBT_UInt8:
        return checkOf<unsigned char>(outType);
    case eIBT_Int16:
        return checkOf<short>(outType);
    case eIBT_UInt16:
        return checkOf<unsigned short>(outType);
    case eIBT_Int32:
        return checkOf<int>(outType);
    case eIBT_UInt32:
        return checkOf<unsigned int>(outType);
    default:
        return checkOf<float>(outType);
    }
}
} // namespace

TEST(ColorConvertImgLvl3Rows, StandUnitAfterUnitInTheOrderOfTheBufferTypes)
{
    struct Row
    {
        const ModelForm* m_form;
        int m_in;
        int m_out;
    };
    std::vector<Row> expected;
    for (const ModelForm* form : {&g_genericForm, &g_avxForm, &g_avx2Form, &g_fma3Form, &g_sse2Form})
    {
        if (form == &g_avxForm && canRun(*form))
        {
            expected.push_back({form, 7, 7});
        }
        else if (canRun(*form))
        {
            for (int in : g_typeOrder)
            {
                for (int out : g_typeOrder)
                {
                    expected.push_back({form, in, out});
                }
            }
        }
    }
    const std::vector<AlgorithmFunctionIdentifier>& rows = ColorConvertImgLvl3::accessFunctionSelector().getFunctions();
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i)
    {
        EXPECT_EQ(formOf(rows[i].getInstructionSets()).m_name, expected[i].m_form->m_name) << "row " << i;
        EXPECT_EQ(rows[i].getDataTypes().getId(0), expected[i].m_in) << "row " << i;
        EXPECT_EQ(rows[i].getDataTypes().getId(1), expected[i].m_out) << "row " << i;
    }
}

TEST(ColorConvertImgLvl3Rows, EachRunsItsFormOnItsTypes)
{
    std::map<std::string, int> nbOfForm;
    for (const AlgorithmFunctionIdentifier& row : ColorConvertImgLvl3::accessFunctionSelector().getFunctions())
    {
        const ModelForm& form = formOf(row.getInstructionSets());
        SCOPED_TRACE(std::string(form.m_name) + ": " + row.getDataTypes().getName());
        ++nbOfForm[form.m_name];
        checkOf(static_cast<eImageBufferType>(row.getDataTypes().getId(0)),
                static_cast<eImageBufferType>(row.getDataTypes().getId(1)))(row, form);
        ASSERT_FALSE(HasFatalFailure());
    }
    EXPECT_EQ(nbOfForm["generic"], 121);
    EXPECT_EQ(nbOfForm["sse2"], 121);
    EXPECT_EQ(nbOfForm["fma3"], canRun(g_fma3Form) ? 121 : 0);
}

// The copy, one link, and a chain that has a working block of no floats.
TEST(ColorConvertImgLvl3Rows, NoPixelsLeaveThePlanesAndAreNoError)
{
    const std::pair<eColorGeometryType, eColorGeometryType> spaces[] = {
        {eCGT_HSV, eCGT_HSV}, {eCGT_Rgb, eCGT_YCbCr}, {eCGT_YCbCr, eCGT_HSV}};
    for (const auto& [from, to] : spaces)
    {
        const boost::shared_ptr<BaseImage> in = createImage2d(g_sizeX, 1, from, eIBT_Real);
        const boost::shared_ptr<BaseImage> out = createImage2d(g_sizeX, 1, to, eIBT_Real);
        for (unsigned long c = 0; c < 3; ++c)
        {
            std::fill_n(planeData<float>(in, c), g_sizeX, 7.0F);
            std::fill_n(planeData<float>(out, c), g_sizeX, 99.0F);
        }
        OpenLvl3 lvl3(in, out, {});
        lvl3.bind();
        for (const AlgorithmFunctionIdentifier& row : ColorConvertImgLvl3::accessFunctionSelector().getFunctions())
        {
            if (row.getDataTypes().getId(0) != eIBT_Real || row.getDataTypes().getId(1) != eIBT_Real)
            {
                continue;
            }
            EXPECT_TRUE(lvl3.call(row, 0));
            for (unsigned long c = 0; c < 3; ++c)
            {
                EXPECT_EQ(std::count(planeData<float>(out, c), planeData<float>(out, c) + g_sizeX, 99.0F),
                          static_cast<long>(g_sizeX));
            }
        }
    }
}

TEST(ColorConvertImgLvl3Rows, AKernelWithoutParsersOrOfOtherTypesIsRefused)
{
    const boost::shared_ptr<BaseImage> in = createImageUser2d(g_sizeX, 1, 3, eIBT_UInt8);
    const boost::shared_ptr<BaseImage> out = createImageUser2d(g_sizeX, 1, 3, eIBT_UInt8);
    const AlgorithmFunctionIdentifier& bytesToBytes = ColorConvertImgLvl3::accessFunctionSelector().getFunctions()[12];
    const AlgorithmFunctionIdentifier& firstRow = ColorConvertImgLvl3::accessFunctionSelector().getFunctions()[0];
    ASSERT_EQ(bytesToBytes.getDataTypes().getId(0), 2);
    ASSERT_EQ(bytesToBytes.getDataTypes().getId(1), 2);

    OpenLvl3 lvl3(in, out, std::vector<float>(12, 1.0F));
    EXPECT_THROW(lvl3.call(bytesToBytes, 64), KOVISIPLColorException);
    lvl3.bind();
    EXPECT_THROW(lvl3.call(firstRow, 64), KOVISIPLColorException);
    EXPECT_TRUE(lvl3.call(bytesToBytes, 64));
}
} // namespace kovis::test
