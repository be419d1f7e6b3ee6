#include "KOVIS/KOVISBaseProcessing/ProcessorFactory.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/DynamicObjectFactory.h"
#include "KOVIS/KOVISUtil/LogMessageManager.h"

#include <boost/shared_ptr.hpp>
#include <gtest/gtest.h>

#include <dlfcn.h>

#include <fstream>
#include <string>

// This program does not link the module: it loads it, runs what it has, unloads it, and looks at what is left.

namespace kovis
{
namespace
{
const char* const g_classes[] = {
    "kovis::imaproc::color::ColorConvertImgLvl1",       "kovis::imaproc::color::ColorConvertImgLvl2",
    "kovis::imaproc::color::ColorConvertImgLvl3",       "kovis::imaproc::color::LightnessImgLvl1",
    "kovis::imaproc::color::LightnessImgLvl2",          "kovis::imaproc::color::LightnessImgLvl3",
    "kovis::imaproc::color::AppendColorChannelImgLvl1", "kovis::imaproc::color::AppendColorChannelImgLvl2",
    "kovis::imaproc::color::AppendColorChannelImgLvl3"};
const char* const g_domains[] = {"N5kovis7imaproc5color25eOutputInitializerMessage6domainE",
                                 "N5kovis7imaproc5color12eRuleMessage6domainE",
                                 "N5kovis7imaproc5color17eProcessorMessage6domainE"};

bool isMapped()
{
    std::ifstream maps("/proc/self/maps");
    std::string line;
    while (std::getline(maps, line))
    {
        if (line.find("libKOVISIPLColor.so") != std::string::npos)
        {
            return true;
        }
    }
    return false;
}

using ImagePtr = boost::shared_ptr<image::BaseImage>;
using ConstImagePtr = boost::shared_ptr<const image::BaseImage>;
using Convert = ImagePtr (*)(const ConstImagePtr&, const image::eColorGeometryType&);
using Lightness = ImagePtr (*)(const ConstImagePtr&);
using Append = ImagePtr (*)(const ConstImagePtr&, const ConstImagePtr&);
using AppendInto = void (*)(const ConstImagePtr&, const ConstImagePtr&, const ImagePtr&);

template <class TFunction>
TFunction find(void* module, const char* name)
{
    const auto function = reinterpret_cast<TFunction>(dlsym(module, name));
    EXPECT_NE(function, nullptr) << name;
    return function;
}

/// A result of too few channels: a rule over weak pointers, and a text that cannot be finished. Nothing of the exception stays.
void refuseChannels(AppendInto append, const ConstImagePtr& in)
{
    try
    {
        append(in, in, image::createImageUser2d(in->getSizeX(), in->getSizeY(), 5, in->getBufferType()));
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (const BaseException& e)
    {
        EXPECT_STREQ(e.what(), "Exception thrown while processing message");
    }
}

TEST(ColorModule, LeavesNothingBehindWhenItIsUnloaded)
{
    LogMessageManager& messages = *LogMessageManager::getInstance("KOVISIPLColor");
    const auto& objects = DynamicObjectFactory::getInstance();
    const auto& processors = processor::ProcessorFactory::getInstance();
    const ImagePtr in = image::createImage2d(64, 48, image::eCGT_Rgb, image::eIBT_UInt8);
    image::planeData<unsigned char>(in, 0)[5] = 40;
    ImagePtr out;
    for (int i = 0; i < 100; ++i)
    {
        ASSERT_FALSE(isMapped()) << i;
        void* const module = dlopen(KOVIS_COLOR_MODULE, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(module, nullptr) << dlerror();
        ASSERT_TRUE(isMapped());
        for (const char* const name : g_classes)
        {
            EXPECT_TRUE(objects.isRegistred(name));
            EXPECT_TRUE(processors.isRegistred(name));
            EXPECT_EQ(processors.createProcessor(name)->getClassName(), name);
        }
        for (const char* const domain : g_domains)
        {
            EXPECT_NE(messages.getNbMessages(domain), 0U);
        }
        const auto convert = find<Convert>(
            module,
            "_ZN5kovis7imaproc5color15colorConvertImgERKN5boost10shared_ptrIKNS_5image9BaseImageEEERKNS4_18eColorGeometryTypeE");
        ASSERT_NE(convert, nullptr);
        out = convert(in, image::eCGT_HSV);
        const auto lightness =
            find<Lightness>(module, "_ZN5kovis7imaproc5color12lightnessImgERKN5boost10shared_ptrIKNS_5image9BaseImageEEE");
        ASSERT_NE(lightness, nullptr);
        const ImagePtr light = lightness(in);
        const auto append = find<Append>(
            module, "_ZN5kovis7imaproc5color21appendColorChannelImgERKN5boost10shared_ptrIKNS_5image9BaseImageEEES9_");
        ASSERT_NE(append, nullptr);
        const ImagePtr appended = append(in, light);
        const auto appendInto = find<AppendInto>(
            module,
            "_ZN5kovis7imaproc5color21appendColorChannelImgERKN5boost10shared_ptrIKNS_5image9BaseImageEEES9_RKNS3_IS5_EE");
        ASSERT_NE(appendInto, nullptr);
        refuseChannels(appendInto, in);
        ASSERT_EQ(dlclose(module), 0);

        ASSERT_FALSE(isMapped()) << i;
        for (const char* const name : g_classes)
        {
            EXPECT_FALSE(objects.isRegistred(name));
            EXPECT_FALSE(processors.isRegistred(name));
        }
        for (const char* const domain : g_domains)
        {
            EXPECT_EQ(messages.getNbMessages(domain), 0U);
        }
        // what it made lives on
        EXPECT_EQ(out->getColorGeometryType(), image::eCGT_HSV);
        EXPECT_EQ(image::planeData<float>(out, 2)[5], 40.0F);
        EXPECT_EQ(image::planeData<unsigned char>(light, 0)[5], 13);
        EXPECT_EQ(appended->getColorGeometryType(), image::eCGT_User);
        EXPECT_EQ(appended->getSizeC(), 4U);
        EXPECT_EQ(image::planeData<unsigned char>(appended, 0)[5], 40);
        EXPECT_EQ(image::planeData<unsigned char>(image::getSlice2d(appended, 0, 0), 3)[5], 13);
        EXPECT_EQ(image::planeData<float>(image::getSlice2d(out, 0, 0), 2)[6], 0.0F);
    }
    out.reset();
    for (const std::string& name : objects.getClassNameColl())
    {
        EXPECT_EQ(name.find("kovis::imaproc::color::"), std::string::npos) << name;
    }
    for (const std::string& name : processors.getTypeNameColl())
    {
        EXPECT_EQ(name.find("kovis::imaproc::color::"), std::string::npos) << name;
    }
}
} // namespace
} // namespace kovis
