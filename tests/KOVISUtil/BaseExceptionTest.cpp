#include "KOVIS/KOVISUtil/BaseException.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kovis
{
TEST(BaseException, tellsMessageAndPlace)
{
    const BaseException e("message", "void f()", "KOVIS/File.cpp", 12);
    EXPECT_STREQ("message", e.what());
    EXPECT_EQ("message", e.getMessage());
    EXPECT_EQ("void f()", e.getFunction());
    EXPECT_EQ("KOVIS/File.cpp", e.getFile());
    EXPECT_EQ(12u, e.getLine());
    EXPECT_FALSE(e.getCause());
    EXPECT_EQ("message\n    at void f() (KOVIS/File.cpp:12)", e.getFullMessage());
}

TEST(BaseException, takesNullTextsAsEmpty)
{
    const BaseException e("message", nullptr, nullptr, 0);
    EXPECT_EQ("", e.getFunction());
    EXPECT_EQ("", e.getFile());
    EXPECT_EQ("message", e.getFullMessage());
}

TEST(BaseException, keepsTheCauseAsACopy)
{
    boost::shared_ptr<const BaseException> cause;
    {
        const KOVISUtilException inner("inner", "f", "F.cpp", 1, std::runtime_error("root"));
        const BaseException outer("outer", "g", "G.cpp", 2, inner);
        const BaseException copy(outer);
        cause = copy.getCause();
    }
    ASSERT_TRUE(cause);
    EXPECT_STREQ("inner", cause->what());
    EXPECT_EQ("f", cause->getFunction());
    EXPECT_EQ("F.cpp", cause->getFile());
    EXPECT_EQ(1u, cause->getLine());
    ASSERT_TRUE(cause->getCause());
    EXPECT_STREQ("root", cause->getCause()->what());
    EXPECT_FALSE(cause->getCause()->getCause());
}

TEST(BaseException, keepsTheWholeChainOfACauseSeenAsStdException)
{
    const BaseException inner("inner", "f", "F.cpp", 1, std::runtime_error("root"));
    const std::exception& seen = inner;
    const BaseException outer("outer", "g", "G.cpp", 2, seen);
    EXPECT_EQ("outer\n    at g (G.cpp:2)\ncaused by: inner\n    at f (F.cpp:1)\ncaused by: root", outer.getFullMessage());
}

TEST(BaseException, assignmentTakesEverything)
{
    BaseException e("a", "f", "F.cpp", 1);
    e = BaseException("b", "g", "G.cpp", 2, std::runtime_error("cause"));
    EXPECT_STREQ("b", e.what());
    EXPECT_EQ("g", e.getFunction());
    ASSERT_TRUE(e.getCause());
    EXPECT_STREQ("cause", e.getCause()->what());
}

TEST(BaseException, derivedClassesAreCaughtByTheirTypeAndByTheBase)
{
    const auto thrower = [] { throw KOVISUtilException("text", "f", "F.cpp", 3); };
    EXPECT_THROW(thrower(), KOVISUtilException);
    EXPECT_THROW(thrower(), BaseException);
    EXPECT_THROW(thrower(), std::exception);
    EXPECT_STREQ("text", KOVISUtilException("text", "f", "F.cpp", 3).what());
}

TEST(BaseException, unHandleExceptionNeedsNoArguments)
{
    const UnHandleException unknown;
    EXPECT_STRNE("", unknown.what());
    const BaseException e("text", "f", "F.cpp", 3, UnHandleException());
    ASSERT_TRUE(e.getCause());
    EXPECT_STREQ(unknown.what(), e.getCause()->what());
}
} // namespace kovis
