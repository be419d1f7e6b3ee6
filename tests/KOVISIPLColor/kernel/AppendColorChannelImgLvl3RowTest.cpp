#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingLog.h"
#include "KOVIS/KOVISImageProcessing/RawStripParser.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3.h"
#include "KOVISIPLColor/KernelTableRows.h"
#include "KOVISIPLColor/kernel/KernelGrid.h"
#include "KOVISIPLColor/kernel/KernelSamples.h"
#include "KOVISIPLColor/kernel/OpenAlgorithm.h"
#include "support/AppendModel.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <vector>

// The kernel table of the strip processor of the append: its rows, that each row runs the form and the types that it is entered
// for, and the processor driven by itself.

namespace kovis::test
{
namespace
{
using namespace image;
using imaproc::color::AppendColorChannelImgLvl3;
using imaproc::color::KOVISIPLColorException;
using processor::AlgorithmFunctionIdentifier;

constexpr unsigned long g_sizeX = 128;
constexpr unsigned char g_untouched = 0x5A;

/// What a test needs of an element type, without the type.
struct TypeAccess
{
    std::size_t m_nbBytes;
    void* (*m_getPlane)(const boost::shared_ptr<BaseImage>&, unsigned long);
    void (*m_fill)(void*, unsigned int);
};

template <class T>
constexpr TypeAccess g_access{
    sizeof(T), [](const boost::shared_ptr<BaseImage>& image, unsigned long c) -> void* { return planeData<T>(image, c); },
    [](void* plane, unsigned int stream)
    {
        const std::vector<T> samples = makeSamples<T>(g_sizeX, stream);
        std::memcpy(plane, samples.data(), g_sizeX * sizeof(T));
    }};

const TypeAccess& accessOf(int bufferType)
{
    static constexpr const TypeAccess* all[] = {&g_access<signed char>,    &g_access<unsigned char>, &g_access<short>,
                                                &g_access<unsigned short>, &g_access<int>,           &g_access<unsigned int>,
                                                &g_access<float>};
    return *all[getStorageType(static_cast<eImageBufferType>(bufferType)) - 1];
}

using PlaneModel = void (*)(const ModelForm&, unsigned long, const void*, void*);

template <class Tin, class Tout>
void modelPlane(const ModelForm& form, unsigned long count, const void* in, void* out)
{
    for (unsigned long i = 0; i < count; ++i)
    {
        static_cast<Tout*>(out)[i] = modelAppend<Tin, Tout>(form, static_cast<const Tin*>(in)[i]);
    }
}

template <class Tin, class... Touts>
void addModels(std::vector<PlaneModel>& models, std::tuple<Touts...>*)
{
    (models.push_back(&modelPlane<Tin, Touts>), ...);
}

template <class... Tins>
std::vector<PlaneModel> makeModels(std::tuple<Tins...>* types)
{
    std::vector<PlaneModel> models;
    (addModels<Tins>(models, types), ...);
    return models;
}

PlaneModel modelOf(int inType, int outType)
{
    static const std::vector<PlaneModel> models = makeModels(static_cast<PixelTypes*>(nullptr));
    const auto place = [](int type) { return static_cast<std::size_t>(getStorageType(static_cast<eImageBufferType>(type)) - 1); };
    return models[place(inType) * 7 + place(outType)];
}

class OpenLvl3 : public OpenAlgorithm<AppendColorChannelImgLvl3>
{
public:
    OpenLvl3(const boost::shared_ptr<BaseImage>& in1, const boost::shared_ptr<BaseImage>& in2,
             const boost::shared_ptr<BaseImage>& out)
    {
        EXPECT_TRUE(init());
        set<imaproc::attr::InColorYStrip2d1>(makeInputStrip(in1, 0, 1));
        set<imaproc::attr::InColorYStrip2>(makeInputStrip(in2, 0, 1));
        set<imaproc::attr::OutColorYStrip2d>(makeOutputStrip(out, 0, 1));
    }
    void unbind() { clearDataParserColl(); }
};

/// Two inputs of 2 and 1 channels and an output, of the types of a row.
class RowImages
{
public:
    explicit RowImages(const AlgorithmFunctionIdentifier& row) : m_row(row)
    {
        for (unsigned int k = 0; k < 3; ++k)
        {
            const auto type = static_cast<eImageBufferType>(getType(k));
            m_images[k] = createImageUser2d(g_sizeX, 1, k == 0 ? 2 : k == 1 ? 1 : 3, type);
        }
        for (unsigned long c = 0; c < 3; ++c)
        {
            accessOf(getType(c < 2 ? 0 : 1)).m_fill(getSource(c), static_cast<unsigned int>(c));
            std::memset(getOut(c), g_untouched, g_sizeX * accessOf(getType(2)).m_nbBytes);
        }
    }

    int getType(unsigned int place) const { return m_row.getDataTypes().getId(place); }
    /// The input plane that belongs into plane c of the output.
    void* getSource(unsigned long c) const
    {
        return c < 2 ? accessOf(getType(0)).m_getPlane(m_images[0], c) : accessOf(getType(1)).m_getPlane(m_images[1], 0);
    }
    void* getOut(unsigned long c) const { return accessOf(getType(2)).m_getPlane(m_images[2], c); }

    /// The output holds count pixels, rounded up to whole blocks of the form, and is untouched after them.
    void expect(const ModelForm& form, unsigned long count) const
    {
        const std::size_t nbBytes = accessOf(getType(2)).m_nbBytes;
        for (unsigned long c = 0; c < 3; ++c)
        {
            std::vector<unsigned char> expected(g_sizeX * nbBytes, g_untouched);
            modelOf(getType(c < 2 ? 0 : 1), getType(2))(form, modelReach(form, count), getSource(c), expected.data());
            ASSERT_EQ(std::memcmp(getOut(c), expected.data(), expected.size()), 0) << "channel " << c << ", count " << count;
        }
    }

    const boost::shared_ptr<BaseImage>& getImage(unsigned int place) const { return m_images[place]; }

private:
    const AlgorithmFunctionIdentifier& m_row;
    boost::shared_ptr<BaseImage> m_images[3];
};
} // namespace

TEST(AppendKernelTable, HoldsTheRowsOfEveryFormOfThisComputerInTheOrderOfLoading)
{
    expectRowsInLoadOrder(AppendColorChannelImgLvl3::retrieveFunctionSelector(),
                          {{Domain::eIS_Generic, Domain::eIS_Generic, true},
                           {Domain::eIS_AVX, Domain::eIS_AVX, false},
                           {Domain::eIS_AVX2, Domain::eIS_AVX2, true},
                           {Domain::eIS_AVX512, Domain::eIS_AVX512, true},
                           {Domain::eIS_SSE2, Domain::eIS_SSE2, true}},
                          3);
}

TEST(AppendKernelTable, HoldsTheNumberOfRowsThatTheSetsLeft)
{
    expectNumberOfRows(AppendColorChannelImgLvl3::retrieveFunctionSelector());
}

TEST(AppendKernelTable, SharesKernelsAmongBufferTypesOfOneStorage)
{
    EXPECT_EQ(countGenericKernels(AppendColorChannelImgLvl3::retrieveFunctionSelector(), 3), 343U);
}

TEST(AppendKernelTable, PicksTheWidestForm)
{
    AlgorithmFunctionIdentifier row;
    for (const Key& key : {Key{2, 2, 2}, Key{7, 7, 7}, Key{1, 9, 7}})
    {
        ASSERT_TRUE(AppendColorChannelImgLvl3::retrieveFunctionSelector().select(makeKey(key), {}, row));
        Domain best = Domain::eIS_Generic;
        for (const Domain set : {Domain::eIS_SSE2, Domain::eIS_AVX2, Domain::eIS_AVX512})
        {
            best = core::isAvailable(set) ? set : best;
        }
        if (best == Domain::eIS_SSE2 && key == Key{7, 7, 7} && core::isAvailable(Domain::eIS_AVX))
        {
            best = Domain::eIS_AVX;
        }
        EXPECT_EQ(row.getInstructionSets(), makeSets(best, best));
    }
    EXPECT_FALSE(AppendColorChannelImgLvl3::retrieveFunctionSelector().select(makeKey({2, 2, 12}), {}, row));
}

TEST(AppendColorChannelImgLvl3Rows, EachRunsItsFormOnItsTypes)
{
    std::map<std::string, int> nbOfForm;
    for (const AlgorithmFunctionIdentifier& row : AppendColorChannelImgLvl3::accessFunctionSelector().getFunctions())
    {
        const ModelForm& form = formOf(row.getInstructionSets());
        SCOPED_TRACE(std::string(form.m_name) + ": " + row.getDataTypes().getName());
        ++nbOfForm[form.m_name];
        const RowImages images(row);
        OpenLvl3 lvl3(images.getImage(0), images.getImage(1), images.getImage(2));
        lvl3.bind();
        ASSERT_TRUE(lvl3.call(row, 0));
        images.expect(form, 0);
        // no multiple of any block, so that the reach of a call tells the form's block
        ASSERT_TRUE(lvl3.call(row, 40));
        images.expect(form, 40);
        ASSERT_TRUE(lvl3.call(row, 97));
        images.expect(form, 97);
        ASSERT_FALSE(HasFatalFailure());
    }
    EXPECT_EQ(nbOfForm["generic"], 1331);
    EXPECT_EQ(nbOfForm["sse2"], 1331);
    EXPECT_EQ(nbOfForm["avx"], canRun(g_avxForm) ? 1 : 0);
    EXPECT_EQ(nbOfForm["avx2"], canRun(g_avx2Form) ? 1331 : 0);
    EXPECT_EQ(nbOfForm["avx512"], canRun(g_avx512Form) ? 1331 : 0);
}

/// A plane is finished before the next one begins, and the first input before the second. It shows where an input's plane lies
/// in the output: as far along as a block is long, so that a kernel which does all planes of a block at once reads what was.
TEST(AppendColorChannelImgLvl3Rows, FinishesEachPlaneAndEachInputBeforeTheNext)
{
    int nbForms = 0;
    for (const AlgorithmFunctionIdentifier& row : AppendColorChannelImgLvl3::accessFunctionSelector().getFunctions())
    {
        if (row.getDataTypes() != makeKey({7, 7, 7}))
        {
            continue;
        }
        SCOPED_TRACE(row.getInstructionSets().getName());
        ++nbForms;
        constexpr unsigned long room = 64;
        std::vector<float> memory(4 * (g_sizeX + room));
        for (unsigned long i = 0; i < memory.size(); ++i)
        {
            memory[i] = static_cast<float>(i);
        }
        std::vector<float> expected = memory;
        const auto plane = [](std::vector<float>& of, unsigned long k) { return of.data() + k * (g_sizeX + room); };
        const auto wrap = [](std::vector<float*> planes)
        {
            ColorGeometry color;
            color.initUser(planes.size());
            HomogeneousImageGeometry geometry;
            geometry.init(VolumeGeometry(), color, TemporalGeometry(), g_sizeX, 1, eIBT_Real);
            return wrapImage(geometry, std::vector<void*>(planes.begin(), planes.end()), boost::shared_ptr<const void>(), room);
        };
        // the output's planes are 0, 1 and 2; plane 3 is the first input's own
        OpenLvl3 lvl3(wrap({plane(memory, 3), plane(memory, 0) + room}), wrap({plane(memory, 0)}),
                      wrap({plane(memory, 0), plane(memory, 1), plane(memory, 2)}));
        lvl3.bind();
        ASSERT_TRUE(lvl3.call(row, g_sizeX));
        const std::pair<float*, float*> copies[] = {{plane(expected, 3), plane(expected, 0)},
                                                    {plane(expected, 0) + room, plane(expected, 1)},
                                                    {plane(expected, 0), plane(expected, 2)}};
        for (const auto& [from, to] : copies)
        {
            std::memcpy(to, from, g_sizeX * sizeof(float));
        }
        EXPECT_EQ(memory, expected);
        EXPECT_EQ(plane(memory, 2)[5], static_cast<float>(3 * (g_sizeX + room) + 5)); // what the first input brought
    }
    EXPECT_EQ(nbForms, 2 + (canRun(g_avxForm) ? 1 : 0) + (canRun(g_avx2Form) ? 1 : 0) + (canRun(g_avx512Form) ? 1 : 0));
}

TEST(AppendColorChannelImgLvl3, BindsAndReleasesItsParsers)
{
    OpenAlgorithm<AppendColorChannelImgLvl3> fresh; // has no attributes yet
    fresh.bind();
    EXPECT_TRUE(fresh.getParsers().empty());

    OpenLvl3 lvl3(createImageUser2d(g_sizeX, 1, 2, eIBT_Real), createImageUser2d(g_sizeX, 1, 1, eIBT_Real),
                  createImageUser2d(g_sizeX, 1, 3, eIBT_Real));
    lvl3.bind();
    const auto former = lvl3.getParsers();
    lvl3.bind();
    const auto parsers = lvl3.getParsers();
    ASSERT_EQ(parsers.size(), 3U); // and not six
    for (std::size_t k = 0; k < 3; ++k)
    {
        EXPECT_NE(parsers[k], former[k]);
    }
    AlgorithmFunctionIdentifier row;
    ASSERT_TRUE(AppendColorChannelImgLvl3::retrieveFunctionSelector().select(makeKey({7, 7, 7}), {}, row));
    ASSERT_TRUE(lvl3.call(row, 1));

    lvl3.unbind();
    using Input = imaproc::RawYStripUserColor2dParser<float, imaproc::BaseInputYStripColor2dAttribute>;
    using Output = imaproc::RawYStripUserColor2dParser<float, imaproc::BaseOutputYStripColor2dAttribute>;
    for (std::size_t k = 0; k < 2; ++k)
    {
        EXPECT_THROW(boost::dynamic_pointer_cast<Input>(parsers[k])->accessBuffer(0), imaproc::KOVISImageProcessingException);
    }
    EXPECT_THROW(boost::dynamic_pointer_cast<Output>(parsers[2])->accessBuffer(0), imaproc::KOVISImageProcessingException);
    EXPECT_THROW(lvl3.call(row, 1), KOVISIPLColorException);
    for (const auto& parser : parsers)
    {
        EXPECT_EQ(parser.use_count(), 2); // this test's, and the collection that it was added to
    }
}

TEST(AppendColorChannelImgLvl3, GivesItsParsersInTheOrderOfItsAttributes)
{
    OpenLvl3 lvl3(createImageUser2d(4, 1, 3, eIBT_UInt8), createImageUser2d(4, 1, 1, eIBT_Int16),
                  createImageUser2d(4, 1, 4, eIBT_Real));
    EXPECT_EQ(lvl3.getAttributeNameColl(), (std::vector<std::string>{"InColorYStrip2d1", "InColorYStrip2", "OutColorYStrip2d"}));
    ASSERT_TRUE(lvl3.getRule());
    EXPECT_TRUE(lvl3.getRule()->testRule());
    lvl3.bind();
    ASSERT_EQ(lvl3.getParsers().size(), 3U);
    using namespace imaproc;
    using Input1 = RawYStripUserColor2dParser<unsigned char, BaseInputYStripColor2dAttribute>;
    using Input2 = RawYStripUserColor2dParser<short, BaseInputYStripColor2dAttribute>;
    using Output = RawYStripUserColor2dParser<float, BaseOutputYStripColor2dAttribute>;
    EXPECT_TRUE(boost::dynamic_pointer_cast<Input1>(lvl3.getParsers()[0]));
    EXPECT_TRUE(boost::dynamic_pointer_cast<Input2>(lvl3.getParsers()[1]));
    EXPECT_TRUE(boost::dynamic_pointer_cast<Output>(lvl3.getParsers()[2]));
}

/// As a user of the framework drives it: three buffer types, exact rows of larger images.
TEST(AppendColorChannelImgLvl3, ConvertsEachInputByItself)
{
    const auto in1 = createImageUser2d(10, 6, 2, eIBT_UInt16);
    const auto in2 = createImage2d(10, 6, eCGT_Grey, eIBT_Real);
    const auto out = createImageUser2d(10, 6, 3, eIBT_UInt8);
    for (unsigned long i = 0; i < 60; ++i)
    {
        planeData<unsigned short>(in1, 0)[i] = static_cast<unsigned short>(i);
        planeData<unsigned short>(in1, 1)[i] = 300;
        planeData<float>(in2, 0)[i] = static_cast<float>(i) + 0.9F;
    }
    const auto lvl3 = boost::make_shared<AppendColorChannelImgLvl3>();
    ASSERT_TRUE(lvl3->init());
    lvl3->set<imaproc::attr::InColorYStrip2d1>(makeInputStrip(in1, 2, 3));
    lvl3->set<imaproc::attr::InColorYStrip2>(makeInputStrip(in2, 2, 3));
    lvl3->set<imaproc::attr::OutColorYStrip2d>(makeOutputStrip(out, 2, 3));
    processor::executeSyncRun(lvl3);
    for (unsigned long i = 0; i < 60; ++i)
    {
        const bool bInStrip = i >= 20 && i < 50;
        EXPECT_EQ(planeData<unsigned char>(out, 0)[i], bInStrip ? i : 0) << i;
        EXPECT_EQ(planeData<unsigned char>(out, 1)[i], bInStrip ? (core::isAvailable(Domain::eIS_SSE2) ? 255 : 44) : 0) << i;
        EXPECT_EQ(planeData<unsigned char>(out, 2)[i], bInStrip ? i : 0) << i; // truncated, not rounded
    }
    const Forced<AppendColorChannelImgLvl3> forced(Domain::eIS_Generic, Domain::eIS_Generic);
    processor::executeSyncRun(lvl3);
    EXPECT_EQ(planeData<unsigned char>(out, 1)[20], 44);
}

TEST(AppendColorChannelImgLvl3, LeavesChannelsPastBothInputsAlone)
{
    const auto in = createImageUser2d(64, 1, 1, eIBT_UInt8);
    const auto out = createImageUser2d(64, 1, 3, eIBT_UInt8);
    std::memset(planeData<unsigned char>(in, 0), 7, 64);
    std::memset(planeData<unsigned char>(out, 2), g_untouched, 64);
    const auto lvl3 = boost::make_shared<OpenLvl3>(in, in, out);
    processor::executeSyncRun(lvl3);
    EXPECT_EQ(planeData<unsigned char>(out, 0)[63], 7);
    EXPECT_EQ(planeData<unsigned char>(out, 1)[63], 7);
    EXPECT_EQ(planeData<unsigned char>(out, 2)[0], g_untouched);
}

TEST(AppendColorChannelImgLvl3, RefusesAnOutputOfTooFewChannels)
{
    const auto lvl3 = boost::make_shared<OpenLvl3>(createImageUser2d(8, 1, 3, eIBT_UInt8), createImageUser2d(8, 1, 2, eIBT_UInt8),
                                                   createImageUser2d(8, 1, 4, eIBT_UInt8));
    try
    {
        processor::executeSyncRun(lvl3);
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (const KOVISIPLColorException& e)
    {
        EXPECT_STREQ(e.what(), "the output strip of AppendColorChannelImgLvl3 has 4 channels, but the inputs bring 3 and 2: give "
                               "an output of at least as many as both together");
    }
}
} // namespace kovis::test
