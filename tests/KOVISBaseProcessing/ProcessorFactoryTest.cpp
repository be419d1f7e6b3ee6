// The processor factory: what is registered is found by type name until it is withdrawn.
#include "KOVIS/KOVISBaseProcessing/ProcessorFactory.h"

#include "ProcessorTestTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
using namespace kovis;
using namespace kovis::test;
using namespace kovis::processor;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

class ToyModuleProcessor : public ToySyncProcessor
{
public:
    static const std::string& getTypeName()
    {
        static const std::string g_typeName("toy::ToyModuleProcessor");
        return g_typeName;
    }
    static boost::shared_ptr<BaseProcessor> createBaseProcessor() { return boost::make_shared<ToyModuleProcessor>(); }
    static const ProcessorSourceLocation& getSourceLocation()
    {
        static const ProcessorSourceLocation g_location{
            "ToyModule",
            "/tree/include/partner/Toy/ToyModuleProcessor.h",
            {"/tree/include/public", "/tree/include/partner", "/tree/include/private"}};
        return g_location;
    }
};

TEST(ProcessorFactory, ARegistratorEntersItsClassForAsLongAsItLives)
{
    ProcessorFactory& factory = ProcessorFactory::getInstance();
    {
        const ProcessorRegistrator<ToyModuleProcessor> registrator;
        EXPECT_TRUE(factory.isRegistred("toy::ToyModuleProcessor"));
        EXPECT_THAT(factory.getTypeNameColl(), Contains("toy::ToyModuleProcessor"));
        const ProcessorFactory::ProcessorInfo info = factory.getProcessorInfo("toy::ToyModuleProcessor");
        EXPECT_EQ("ToySyncProcessor", info.m_name);
        EXPECT_EQ("tip of ToySyncProcessor", info.m_toolTip);
        EXPECT_EQ("ToyModule", info.m_module);
        EXPECT_EQ("Toy/ToyModuleProcessor.h", info.m_includePath);
        EXPECT_NE(nullptr, boost::dynamic_pointer_cast<ToyModuleProcessor>(factory.createProcessor("toy::ToyModuleProcessor")));

        const BoolResult again = factory.registerProcessor<ToyModuleProcessor>();
        EXPECT_FALSE(again.getResult());
        EXPECT_THAT(again.getMessage(), HasSubstr("toy::ToyModuleProcessor is registered already"));
    }
    EXPECT_FALSE(factory.isRegistred("toy::ToyModuleProcessor"));
    EXPECT_THAT(factory.getTypeNameColl(), Not(Contains("toy::ToyModuleProcessor")));
}

TEST(ProcessorFactory, UnknownNamesAndMissingCreatorsAreErrors)
{
    ProcessorFactory& factory = ProcessorFactory::getInstance();
    EXPECT_THROW(factory.createProcessor("toy::Nobody"), KOVISBaseProcessingException);
    EXPECT_THROW(factory.getProcessorInfo("toy::Nobody"), KOVISBaseProcessingException);
    EXPECT_THAT(factory.unRegisterProcessor("toy::Nobody").getMessage(), HasSubstr("toy::Nobody is not registered"));
    EXPECT_THAT(factory.registerProcessor("toy::Nobody", ProcessorFactory::ProcessorInfo()).getMessage(),
                HasSubstr("without a function"));
    EXPECT_FALSE(factory.isRegistred("toy::Nobody"));
}
} // namespace
