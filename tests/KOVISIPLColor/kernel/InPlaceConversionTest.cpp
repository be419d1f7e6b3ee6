#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "support/ColorModel.h"
#include "support/GuardedPlane.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <type_traits>
#include <vector>

// A matrix within one memory: rows are written one after the other, and each reads what the rows before it wrote, wherever strips
// lie and whether or not they are staged.

namespace kovis::imaproc::color
{
namespace
{
using namespace image;
using namespace kovis::test;
using ImagePtr = boost::shared_ptr<BaseImage>;

constexpr unsigned int g_sizeC = 3;
constexpr unsigned long g_sizeY = 3;
const std::vector<float> g_matrix{0.5F, 0.25F, -0.125F, 3.0F, 1.0F, -0.5F, 0.5F, 7.0F, -0.25F, 0.75F, 1.0F, 40.0F};

/// How the input and the output show the memory.
enum class Sharing
{
    ownImage,       ///< one image, made here
    oneWrapped,     ///< one image on planes without room
    twoWrapped,     ///< two images on the same planes, both without room
    roomInInput,    ///< two images on the same planes, the input with room
    roomInOutput,   ///< two images on the same planes, the output with room
    turnedChannels, ///< output channel c shows the plane of input channel c + 1
};
constexpr std::array g_sharings{Sharing::ownImage,    Sharing::oneWrapped,   Sharing::twoWrapped,
                                Sharing::roomInInput, Sharing::roomInOutput, Sharing::turnedChannels};

/// The form that runs where nothing is forced. A matrix treats each pixel by itself, so a block of one pixel will do.
ModelForm getPixelForm(bool bFloat)
{
    const bool bAvx2 = core::isAvailable(eInstructionSet::eIS_AVX2);
    ModelForm form = bAvx2 && core::isAvailable(eInstructionSet::eIS_FMA3)   ? g_fma3Form
                     : bAvx2                                                 ? g_avx2Form
                     : bFloat && core::isAvailable(eInstructionSet::eIS_AVX) ? g_avxForm
                                                                             : g_sse2Form;
    form.m_blockLength = 1;
    return form;
}

/// Planes that end where readable memory ends, with as many elements of room before that.
template <class T>
struct SharedPlanes
{
    SharedPlanes(unsigned long nbElements, unsigned long nbRoom)
    {
        for (unsigned int c = 0; c < g_sizeC; ++c)
        {
            m_planes.push_back(boost::make_shared<GuardedPlane<T>>(nbElements + nbRoom));
        }
    }
    std::vector<boost::shared_ptr<GuardedPlane<T>>> m_planes;
};

struct ImagePair
{
    ImagePtr m_in;
    ImagePtr m_out;
};

template <class T>
ImagePair makePair(Sharing sharing, unsigned long sizeX)
{
    ColorGeometry color;
    color.initUser(g_sizeC);
    HomogeneousImageGeometry geometry;
    geometry.init(VolumeGeometry(), color, TemporalGeometry(), sizeX, g_sizeY, BufferTypeOf<T>::g_value);
    if (sharing == Sharing::ownImage)
    {
        const ImagePtr both = createImage(geometry);
        return {both, both};
    }
    const unsigned long nbRoom = sharing == Sharing::roomInInput || sharing == Sharing::roomInOutput ? 64 : 0;
    const auto shared = boost::make_shared<SharedPlanes<T>>(sizeX * g_sizeY, nbRoom);
    std::vector<void*> inPlanes;
    std::vector<void*> outPlanes;
    for (unsigned int c = 0; c < g_sizeC; ++c)
    {
        inPlanes.push_back(shared->m_planes[c]->data());
        outPlanes.push_back(shared->m_planes[sharing == Sharing::turnedChannels ? (c + 1) % g_sizeC : c]->data());
    }
    const ImagePtr in = wrapImage(geometry, inPlanes, shared, sharing == Sharing::roomInInput ? nbRoom : 0);
    return {in, sharing == Sharing::oneWrapped
                    ? in
                    : wrapImage(geometry, outPlanes, shared, sharing == Sharing::roomInOutput ? nbRoom : 0)};
}

/// Any samples of T that keep sums well inside a float's whole numbers.
template <class T>
std::vector<std::vector<T>> makePlanes(unsigned long sizeX)
{
    std::mt19937 random(static_cast<unsigned int>(sizeX));
    std::vector<std::vector<T>> planes(g_sizeC, std::vector<T>(sizeX * g_sizeY));
    for (auto& plane : planes)
    {
        for (T& sample : plane)
        {
            sample = static_cast<T>(random() % 256U);
        }
    }
    return planes;
}

template <class T>
void expectInPlace(Sharing sharing, unsigned long sizeX)
{
    std::vector<std::vector<T>> expected = makePlanes<T>(sizeX);
    const std::vector<std::vector<T>> source = expected;
    const unsigned int turn = sharing == Sharing::turnedChannels ? 1U : 0U;
    const T* modelIn[g_sizeC];
    T* modelOut[g_sizeC];
    for (unsigned int c = 0; c < g_sizeC; ++c)
    {
        modelIn[c] = expected[c].data();
        modelOut[c] = expected[(c + turn) % g_sizeC].data();
    }
    modelLinear<T, T>(getPixelForm(std::is_same_v<T, float>), g_sizeC, g_sizeC, g_matrix.data(), sizeX * g_sizeY, modelIn,
                      modelOut);

    const auto transform = attr::createColorConversionTransform(eCGT_User);
    transform->setMatrix(g_matrix);
    for (const unsigned int nbThreads : {1U, 4U})
    {
        core::setMaxConcurrency(nbThreads);
        for (const unsigned long stripHeight : {0UL, 1UL, 2UL})
        {
            processor::setStripHeight(stripHeight);
            const ImagePair images = makePair<T>(sharing, sizeX);
            for (unsigned int c = 0; c < g_sizeC; ++c)
            {
                std::copy(source[c].begin(), source[c].end(), planeData<T>(images.m_in, c));
            }
            colorConvertImg(images.m_in, boost::shared_ptr<const attr::ColorConversionTransform>(transform), images.m_out);
            for (unsigned int c = 0; c < g_sizeC; ++c)
            {
                const T* const found = planeData<T>(images.m_in, c);
                for (unsigned long i = 0; i < sizeX * g_sizeY; ++i)
                {
                    ASSERT_TRUE(sameValue(found[i], expected[c][i]))
                        << "width " << sizeX << ", strip height " << stripHeight << ", " << nbThreads << " threads, sharing "
                        << static_cast<int>(sharing) << ", channel " << c << ", element " << i << ": " << +found[i]
                        << " instead of " << +expected[c][i];
                }
            }
        }
    }
}

template <class T>
class InPlaceConversion : public testing::Test
{
protected:
    ~InPlaceConversion() override
    {
        processor::setStripHeight(0);
        core::setMaxConcurrency(0);
    }
};
using SampleTypes = testing::Types<float, unsigned char, short>;
TYPED_TEST_SUITE(InPlaceConversion, SampleTypes);

TYPED_TEST(InPlaceConversion, GivesTheSameForEveryWidthCutMemoryAndNumberOfThreads)
{
    for (const Sharing sharing : g_sharings)
    {
        for (unsigned long sizeX = 1; sizeX <= 130 && !this->HasFatalFailure(); ++sizeX)
        {
            expectInPlace<TypeParam>(sharing, sizeX);
        }
    }
}

// The order of rows shows: with separate planes another result comes out.
TYPED_TEST(InPlaceConversion, DiffersFromAConversionIntoOtherPlanes)
{
    const auto source = makePlanes<TypeParam>(50);
    const ImagePair images = makePair<TypeParam>(Sharing::ownImage, 50);
    for (unsigned int c = 0; c < g_sizeC; ++c)
    {
        std::copy(source[c].begin(), source[c].end(), planeData<TypeParam>(images.m_in, c));
    }
    const auto transform = attr::createColorConversionTransform(eCGT_User);
    transform->setMatrix(g_matrix);
    const boost::shared_ptr<const attr::ColorConversionTransform> constTransform(transform);
    const ImagePtr other = makePair<TypeParam>(Sharing::ownImage, 50).m_out;
    colorConvertImg(images.m_in, constTransform, other);
    colorConvertImg(images.m_in, constTransform, images.m_out);
    EXPECT_TRUE(
        std::equal(planeData<TypeParam>(other, 0), planeData<TypeParam>(other, 0) + 150, planeData<TypeParam>(images.m_out, 0)));
    EXPECT_FALSE(
        std::equal(planeData<TypeParam>(other, 1), planeData<TypeParam>(other, 1) + 150, planeData<TypeParam>(images.m_out, 1)));
}
} // namespace
} // namespace kovis::imaproc::color
