#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISBaseProcessing/ProcessorFactory.h"
#include "KOVIS/KOVISUtil/DynamicObjectFactory.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgGpuLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl1.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl2.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl1.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl2.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl1.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl2.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3.h"
#include "support/RecordingAppender.h"

#include <gtest/gtest.h>

#include <memory>

namespace kovis::imaproc::color
{
namespace
{
template <class T>
struct Expected;
template <>
struct Expected<ColorConvertImgLvl1>
{
    static constexpr const char* g_name = "ColorConvertImgLvl1";
    static constexpr const char* g_folder = "ColorConvertImg";
    static constexpr const char* g_toolTip = "Level 1 algorithm: convert a color image from a given color space to an other";
    static std::vector<std::string> getAttributes()
    {
        return {"InColorImg", "InColorConversionTransform", "OutOptWk1RealImg", "OutColorImg"};
    }
    static void setOne(ColorConvertImgLvl1& processor) { processor.set<attr::InColorImg>(attr::InColorImg::StorageType()); }
};
template <>
struct Expected<ColorConvertImgLvl2>
{
    static constexpr const char* g_name = "ColorConvertImgLvl2";
    static constexpr const char* g_folder = "ColorConvertImg";
    static constexpr const char* g_toolTip = "Level 2 algorithm: convert a color image from a given color space to an other";
    static std::vector<std::string> getAttributes()
    {
        return {"InSubColorImg2d", "InColorConversionTransform", "OutSubColorImg2d"};
    }
    static void setOne(ColorConvertImgLvl2& processor)
    {
        processor.set<attr::InSubColorImg2d>(attr::InSubColorImg2d::StorageType());
    }
};
template <>
struct Expected<ColorConvertImgLvl3>
{
    static constexpr const char* g_name = "ColorConvertImgLvl3";
    static constexpr const char* g_folder = "ColorConvertImg";
    static constexpr const char* g_toolTip = "Level 3 algorithm: convert a color image from a given color space to an other";
    static std::vector<std::string> getAttributes()
    {
        return {"InColorYStrip2d", "InColorConversionTransform", "OutColorYStrip2d"};
    }
    static void setOne(ColorConvertImgLvl3& processor)
    {
        processor.set<attr::InColorYStrip2d>(attr::InColorYStrip2d::StorageType());
    }
};
template <>
struct Expected<LightnessImgLvl1>
{
    static constexpr const char* g_name = "LightnessImgLvl1";
    static constexpr const char* g_folder = "LightnessImg";
    static constexpr const char* g_toolTip = "Level 1 algorithm: <em>lightness computation</em> from an input RGB color image";
    static std::vector<std::string> getAttributes() { return {"InColorImg", "InLightnessType", "OutLightImg"}; }
    static void setOne(LightnessImgLvl1& processor) { processor.set<attr::InColorImg>(attr::InColorImg::StorageType()); }
};
template <>
struct Expected<LightnessImgLvl2>
{
    static constexpr const char* g_name = "LightnessImgLvl2";
    static constexpr const char* g_folder = "LightnessImg";
    static constexpr const char* g_toolTip = "Level 2 algorithm: <em>lightness computation</em> from an input RGB color image";
    static std::vector<std::string> getAttributes() { return {"InSubColorImg2d", "InLightnessType", "OutLightImg"}; }
    static void setOne(LightnessImgLvl2& processor)
    {
        processor.set<attr::InSubColorImg2d>(attr::InSubColorImg2d::StorageType());
    }
};
template <>
struct Expected<LightnessImgLvl3>
{
    static constexpr const char* g_name = "LightnessImgLvl3";
    static constexpr const char* g_folder = "LightnessImg";
    static constexpr const char* g_toolTip = "Level 3 algorithm: <em>lightness computation</em> from an input RGB color image";
    static std::vector<std::string> getAttributes() { return {"InColorYStrip2d", "InLightnessType", "OutLightYStrip2d"}; }
    static void setOne(LightnessImgLvl3& processor)
    {
        processor.set<attr::InColorYStrip2d>(attr::InColorYStrip2d::StorageType());
    }
};
template <>
struct Expected<AppendColorChannelImgGpuLvl3>
{
    static constexpr const char* g_name = "AppendColorChannelImgGpuLvl3";
    static constexpr const char* g_folder = "AppendColorChannelImg";
    static constexpr const char* g_toolTip =
        "Level 2 algorithm: Generates a color images by merging the color channel of the two input images  on Gpu";
    static std::vector<std::string> getAttributes() { return {"InSubGpuImg1", "InSubGpuImg2", "OutSubGpuImg"}; }
    static void setOne(AppendColorChannelImgGpuLvl3& processor)
    {
        processor.set<attr::InSubGpuImg1>(attr::InSubGpuImg1::StorageType());
    }
};
template <>
struct Expected<AppendColorChannelImgLvl1>
{
    static constexpr const char* g_name = "AppendColorChannelImgLvl1";
    static constexpr const char* g_folder = "AppendColorChannelImg";
    static constexpr const char* g_toolTip =
        "Level 1 algorithm: Generates a color images by merging the color channel of the two input images";
    static std::vector<std::string> getAttributes() { return {"InImg1", "InImg2", "OutColorImg"}; }
    static void setOne(AppendColorChannelImgLvl1& processor) { processor.set<attr::InImg1>(attr::InImg1::StorageType()); }
};
template <>
struct Expected<AppendColorChannelImgLvl2>
{
    static constexpr const char* g_name = "AppendColorChannelImgLvl2";
    static constexpr const char* g_folder = "AppendColorChannelImg";
    static constexpr const char* g_toolTip =
        "Level 2 algorithm: Generates a color images by merging the color channel of the two input images";
    static std::vector<std::string> getAttributes() { return {"InSubColorImg2d1", "InSubColorImg2d2", "OutColorImg"}; }
    static void setOne(AppendColorChannelImgLvl2& processor)
    {
        processor.set<attr::InSubColorImg2d1>(attr::InSubColorImg2d1::StorageType());
    }
};
template <>
struct Expected<AppendColorChannelImgLvl3>
{
    static constexpr const char* g_name = "AppendColorChannelImgLvl3";
    static constexpr const char* g_folder = "AppendColorChannelImg";
    static constexpr const char* g_toolTip =
        "Level 3 algorithm: Generates a color images by merging the color channel of the two input images";
    static std::vector<std::string> getAttributes() { return {"InColorYStrip2d1", "InColorYStrip2", "OutColorYStrip2d"}; }
    static void setOne(AppendColorChannelImgLvl3& processor)
    {
        processor.set<attr::InColorYStrip2d1>(attr::InColorYStrip2d1::StorageType());
    }
};

template <class TException, class TCall>
std::string getMessage(const TCall& call, std::string* pFunction = nullptr, std::string* pFile = nullptr)
{
    try
    {
        call();
    }
    catch (const TException& e)
    {
        if (pFunction != nullptr)
        {
            *pFunction = e.getFunction();
        }
        if (pFile != nullptr)
        {
            *pFile = e.getFile();
        }
        return e.what();
    }
    ADD_FAILURE() << "nothing was thrown";
    return std::string();
}

template <class T>
class ColorProcessor : public testing::Test
{
protected:
    const std::string m_name = Expected<T>::g_name;
    const std::string m_typeName = "kovis::imaproc::color::" + m_name;
    const std::string m_source = std::string("KOVISIPL/KOVISIPLColor/Processor/") + Expected<T>::g_folder + "/" + m_name;
};
using Classes = testing::Types<ColorConvertImgLvl1, ColorConvertImgLvl2, ColorConvertImgLvl3, LightnessImgLvl1, LightnessImgLvl2,
                               LightnessImgLvl3, AppendColorChannelImgLvl1, AppendColorChannelImgLvl2, AppendColorChannelImgLvl3,
                               AppendColorChannelImgGpuLvl3>;
TYPED_TEST_SUITE(ColorProcessor, Classes);

TYPED_TEST(ColorProcessor, TellsItsIdentity)
{
    EXPECT_EQ(TypeParam::getToolTipStr(), Expected<TypeParam>::g_toolTip);
    EXPECT_EQ(TypeParam::getObjectNameStr(), this->m_name);
    EXPECT_EQ(TypeParam::getTypeName(), this->m_typeName);
    EXPECT_EQ(TypeParam::getVersion(), 1U);
    TypeParam processor;
    EXPECT_EQ(processor.getClassName(), this->m_typeName);
    EXPECT_EQ(processor.getObjectName(), this->m_name);
    EXPECT_EQ(processor.getToolTip(), Expected<TypeParam>::g_toolTip);
    EXPECT_FALSE(processor.isInitialised());
    EXPECT_TRUE(TypeParam::getDefaultDispatchPolicy().isSet());
}

TYPED_TEST(ColorProcessor, ReturnsTheSameObjectsAgain)
{
    EXPECT_EQ(&TypeParam::getTypeName(), &TypeParam::getTypeName());
    EXPECT_EQ(&TypeParam::getObjectNameStr(), &TypeParam::getObjectNameStr());
    EXPECT_EQ(&TypeParam::getToolTipStr(), &TypeParam::getToolTipStr());
    EXPECT_EQ(&TypeParam::getDefaultDispatchPolicy(), &TypeParam::getDefaultDispatchPolicy());
    EXPECT_EQ(&TypeParam().getClassName(), &TypeParam::getTypeName());
}

TYPED_TEST(ColorProcessor, IsMadeInEveryWay)
{
    const std::unique_ptr<BaseDynamicObject> object(TypeParam::createNewObject());
    EXPECT_EQ(object->getClassName(), this->m_typeName);
    const std::unique_ptr<BaseDynamicObject> another(object->createNew());
    EXPECT_EQ(another->getClassName(), this->m_typeName);
    EXPECT_EQ(object->createShared()->getClassName(), this->m_typeName);
    EXPECT_EQ(TypeParam::createSharedObject()->getClassName(), this->m_typeName);
    EXPECT_EQ(TypeParam::createProcessor()->getClassName(), this->m_typeName);
    EXPECT_EQ(TypeParam::createBaseProcessor()->getClassName(), this->m_typeName);
}

TYPED_TEST(ColorProcessor, IsKnownToBothFactories)
{
    EXPECT_EQ(DynamicObjectFactory::getInstance().createShared(this->m_typeName)->getClassName(), this->m_typeName);
    const auto info = processor::ProcessorFactory::getInstance().getProcessorInfo(this->m_typeName);
    EXPECT_EQ(info.m_name, this->m_name);
    EXPECT_EQ(info.m_toolTip, Expected<TypeParam>::g_toolTip);
    EXPECT_EQ(info.m_module, "KOVISIPLColor");
    EXPECT_EQ(info.m_includePath, this->m_source + ".h");
    EXPECT_EQ(info.m_creator()->getClassName(), this->m_typeName);
}

TYPED_TEST(ColorProcessor, RefusesValuesBeforeInitAndTakesThemAfterwards)
{
    TypeParam processor;
    std::string function;
    std::string file;
    const test::Recording recording(processor::getKOVISBaseProcessingLogger());
    EXPECT_EQ(getMessage<processor::KOVISBaseProcessingException>([&processor] { Expected<TypeParam>::setOne(processor); },
                                                                  &function, &file),
              "processor " + this->m_name + " must be initialised before its attributes are used");
    EXPECT_EQ(function.find("void " + this->m_typeName +
                            "::set(const typename TAttribute::StorageType&) [with TAttribute = "
                            "kovis::imaproc::attr::In"),
              0U)
        << function;
    EXPECT_EQ(file, this->m_source);
    ASSERT_EQ(recording.getEvents().size(), 1U);
    EXPECT_EQ(recording.getEvents()[0].m_level, 40000);
    EXPECT_EQ(recording.getEvents()[0].m_file, this->m_source);

    EXPECT_TRUE(processor.init(processor::ePRP_Rules));
    EXPECT_NO_THROW(Expected<TypeParam>::setOne(processor));
}

TYPED_TEST(ColorProcessor, MakesAttributesAndRuleByInit)
{
    TypeParam processor;
    ASSERT_TRUE(processor.init(processor::ePRP_Rules));
    EXPECT_EQ(processor.getAttributeNameColl(), Expected<TypeParam>::getAttributes());
    EXPECT_TRUE(processor.getRule());
    EXPECT_TRUE(processor.getDispatchPolicy().isSet());

    ASSERT_TRUE(processor.init(processor::ePRP_NoRules));
    EXPECT_EQ(processor.getAttributeNameColl(), Expected<TypeParam>::getAttributes());
    EXPECT_FALSE(processor.getRule());
}

TYPED_TEST(ColorProcessor, DropsItsValuesByASecondInit)
{
    TypeParam processor;
    ASSERT_TRUE(processor.init());
    Expected<TypeParam>::setOne(processor);
    const auto name = Expected<TypeParam>::getAttributes()[0];
    const auto first = processor.getAttribute(name);
    EXPECT_TRUE(first->isInitialised());
    ASSERT_TRUE(processor.init());
    EXPECT_NE(processor.getAttribute(name), first);
    EXPECT_FALSE(processor.getAttribute(name)->isInitialised());
}

TYPED_TEST(ColorProcessor, NeverCopies)
{
    TypeParam processor;
    const TypeParam source;
    EXPECT_FALSE(processor.hasCopySupport());
    std::string function;
    std::string file;
    const std::string text = getMessage<KOVISUtilException>([&] { processor.copy(source); }, &function, &file);
    EXPECT_NE(text.find(this->m_typeName), std::string::npos) << text;
    EXPECT_EQ(function, "virtual void " + this->m_typeName + "::copy(const kovis::BaseDynamicObject&)");
    EXPECT_EQ(file, this->m_source);
    EXPECT_EQ(getMessage<KOVISUtilException>([&] { delete processor.duplicate(); }, &function), text);
    EXPECT_EQ(function, "virtual kovis::BaseDynamicObject* " + this->m_typeName + "::duplicate() const");
    EXPECT_EQ(getMessage<KOVISUtilException>([&] { processor.duplicateShared(); }, &function), text);
    EXPECT_EQ(function, "virtual kovis::DynamicObjectPtr " + this->m_typeName + "::duplicateShared() const");
}

TEST(ColorConvertImgLvl1, RefusesItsOutputBeforeInit)
{
    ColorConvertImgLvl1 processor;
    EXPECT_THROW(processor.getStorage<attr::OutColorImg>(), processor::KOVISBaseProcessingException);
    ASSERT_TRUE(processor.init());
    EXPECT_FALSE(processor.getStorage<attr::OutColorImg>());
}

TEST(AppendColorChannelImgLvl1, RefusesItsOutputBeforeInit)
{
    AppendColorChannelImgLvl1 processor;
    EXPECT_THROW(processor.getStorage<attr::OutColorImg>(), processor::KOVISBaseProcessingException);
    ASSERT_TRUE(processor.init());
    EXPECT_FALSE(processor.getStorage<attr::OutColorImg>());
}

TEST(LightnessImgLvl1, RefusesItsOutputBeforeInit)
{
    LightnessImgLvl1 processor;
    EXPECT_THROW(processor.getStorage<attr::OutLightImg>(), processor::KOVISBaseProcessingException);
    ASSERT_TRUE(processor.init());
    EXPECT_FALSE(processor.getStorage<attr::OutLightImg>());
}

TEST(ColorConvertImgLvl1, LeavesTheWorkingImageOptional)
{
    ColorConvertImgLvl1 processor;
    ASSERT_TRUE(processor.init());
    EXPECT_FALSE(processor.getAttribute("OutOptWk1RealImg")->isMandatory());
    EXPECT_TRUE(processor.getAttribute("OutColorImg")->isMandatory());
    EXPECT_TRUE(processor.getAttribute("OutColorImg")->isOutput());
    EXPECT_FALSE(processor.getAttribute("InColorImg")->isOutput());
}

template <class T>
void expectForcedSetsAreKept()
{
    processor::InstructionSetsIdentifier sets;
    sets.init(eInstructionSet::eIS_SSE2, eInstructionSet::eIS_SSE2);
    EXPECT_TRUE(T::accessForcedInstructionSets().isEmpty());
    T::forceInstructionSets(sets);
    EXPECT_EQ(T::retrieveForcedInstructionSets(), sets);
    T::releaseForcedInstructionSets();
    EXPECT_TRUE(T::accessForcedInstructionSets().isEmpty());
    EXPECT_EQ(&T::accessFunctionSelector(), &T::retrieveFunctionSelector());
}

TEST(ColorProcessors, KeepForcedInstructionSetsUntilReleased)
{
    expectForcedSetsAreKept<ColorConvertImgLvl3>();
    expectForcedSetsAreKept<LightnessImgLvl3>();
    expectForcedSetsAreKept<AppendColorChannelImgLvl3>();
}
} // namespace
} // namespace kovis::imaproc::color
