#include "KOVIS/KOVISUtil/DynamicObjectFactory.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/DynamicRegistrator.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <thread>
#include <vector>

namespace kovis
{
class FactoryTestObject : public BaseDynamicObject
{
public:
    static const std::string& getTypeName()
    {
        static const std::string g_name = "kovis::FactoryTestObject";
        return g_name;
    }
    static BaseDynamicObject* createNewObject() { return new FactoryTestObject(); }
    static DynamicObjectPtr createSharedObject() { return boost::make_shared<FactoryTestObject>(); }

    const std::string& getClassName() const override { return getTypeName(); }
    BaseDynamicObject* createNew() const override { return createNewObject(); }
    DynamicObjectPtr createShared() const override { return createSharedObject(); }
    bool hasCopySupport() const override { return false; }
    BaseDynamicObject* duplicate() const override { return nullptr; }
    DynamicObjectPtr duplicateShared() const override { return DynamicObjectPtr(); }
    void copy(const BaseDynamicObject&) override {}
};

// Entered before main, as a library's classes are.
template <>
DynamicRegistrator<FactoryTestObject> DynamicRegistrator<FactoryTestObject>::g_classRegistrator("kovis::FactoryTestObject");

namespace
{
using Registrator = DynamicRegistrator<FactoryTestObject>;

DynamicObjectFactory& getFactory()
{
    return DynamicObjectFactory::getInstance();
}
} // namespace

TEST(DynamicObjectFactory, knowsTheClassesOfStaticRegistrators)
{
    EXPECT_EQ(&getFactory(), &getFactory());
    EXPECT_TRUE(getFactory().isRegistred("kovis::FactoryTestObject"));
    const std::vector<std::string> names = getFactory().getClassNameColl();
    EXPECT_EQ(1, std::count(names.begin(), names.end(), "kovis::FactoryTestObject"));

    const std::unique_ptr<BaseDynamicObject> object(getFactory().createNew("kovis::FactoryTestObject"));
    ASSERT_TRUE(object);
    EXPECT_EQ("kovis::FactoryTestObject", object->getClassName());
    const DynamicObjectPtr shared = getFactory().createShared("kovis::FactoryTestObject");
    ASSERT_TRUE(shared);
    EXPECT_NE(nullptr, dynamic_cast<FactoryTestObject*>(shared.get()));
}

TEST(DynamicObjectFactory, aRegistratorWithdrawsItsClass)
{
    {
        const Registrator registrator("FactoryTestShort");
        EXPECT_TRUE(getFactory().isRegistred("FactoryTestShort"));
    }
    EXPECT_FALSE(getFactory().isRegistred("FactoryTestShort"));
}

TEST(DynamicObjectFactory, theFirstRegistrationStays)
{
    EXPECT_TRUE(getFactory().registerClass("FactoryTestTwice", &Registrator::newCreatorFcn, &Registrator::sharedCreatorFcn));
    const BoolResult second = getFactory().registerClass(
        "FactoryTestTwice", []() -> BaseDynamicObject* { return nullptr; }, []() { return DynamicObjectPtr(); });
    EXPECT_FALSE(second);
    EXPECT_EQ("Class FactoryTestTwice is registered already: the first registration stays", second.getMessage());
    EXPECT_TRUE(getFactory().createShared("FactoryTestTwice"));

    const BoolResult first = getFactory().unRegisterClass("FactoryTestTwice");
    EXPECT_TRUE(first);
    EXPECT_EQ("", first.getMessage());
    const BoolResult again = getFactory().unRegisterClass("FactoryTestTwice");
    EXPECT_FALSE(again);
    EXPECT_EQ("No class FactoryTestTwice is registered: load the library that it belongs to", again.getMessage());
}

TEST(DynamicObjectFactory, refusesMissingCreators)
{
    const BoolResult result = getFactory().registerClass("FactoryTestNull", nullptr, &Registrator::sharedCreatorFcn);
    EXPECT_FALSE(result);
    EXPECT_EQ("Class FactoryTestNull cannot be registered without the two functions that make its objects", result.getMessage());
    EXPECT_FALSE(getFactory().isRegistred("FactoryTestNull"));
}

TEST(DynamicObjectFactory, anUnknownClassIsAnErrorThatNamesIt)
{
    try
    {
        getFactory().createNew("kovis::Nothing");
        FAIL() << "nothing was thrown";
    }
    catch (const KOVISUtilException& e)
    {
        EXPECT_STREQ("No class kovis::Nothing is registered: load the library that it belongs to", e.what());
    }
    EXPECT_THROW(getFactory().createShared("kovis::Nothing"), KOVISUtilException);
}

TEST(DynamicObjectFactory, servesManyThreadsAtOnce)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t)
    {
        threads.emplace_back(
            [t]
            {
                const std::string own = "FactoryTestThread" + std::to_string(t);
                for (int i = 0; i < 300; ++i)
                {
                    EXPECT_TRUE(getFactory().registerClass(own, &Registrator::newCreatorFcn, &Registrator::sharedCreatorFcn));
                    EXPECT_TRUE(getFactory().createShared(own));
                    EXPECT_TRUE(getFactory().createShared("kovis::FactoryTestObject"));
                    EXPECT_FALSE(getFactory().getClassNameColl().empty());
                    EXPECT_TRUE(getFactory().unRegisterClass(own));
                    EXPECT_FALSE(getFactory().isRegistred(own));
                }
            });
    }
    for (auto& thread : threads)
    {
        thread.join();
    }
}
} // namespace kovis
