#include "KOVIS/KOVISUtil/ElementsRange.h"
#include "KOVIS/KOVISUtil/Guid.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"
#include "KOVIS/KOVISUtil/getRelativeFromRoot.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>
#include <vector>

namespace kovis
{
TEST(GetRelativeFromRoot, givesWhatLiesUnderTheRoot)
{
    EXPECT_EQ("KOVIS/A.h", getRelativeFromRoot("/tree/include/public", "/tree/include/public/KOVIS/A.h").string());
    EXPECT_EQ("KOVIS/A.h", getRelativeFromRoot("/tree/include/public/", "/tree/include/public/KOVIS/A.h").string());
    EXPECT_EQ("KOVIS/A.h", getRelativeFromRoot("/tree/include/../include/public", "/tree/./include/public//KOVIS/A.h").string());
    EXPECT_EQ("b", getRelativeFromRoot("a", "a/b").string());
    EXPECT_EQ("a", getRelativeFromRoot("/", "/a").string());
}

TEST(GetRelativeFromRoot, isEmptyForAllElse)
{
    EXPECT_TRUE(getRelativeFromRoot("/tree/include/private", "/tree/include/public/KOVIS/A.h").empty());
    EXPECT_TRUE(getRelativeFromRoot("/tree/include/pub", "/tree/include/public/KOVIS/A.h").empty());
    EXPECT_TRUE(getRelativeFromRoot("/tree/include/public/KOVIS/A.h/more", "/tree/include/public/KOVIS/A.h").empty());
    EXPECT_TRUE(getRelativeFromRoot("/tree/include", "/tree/include/../other/A.h").empty());
    EXPECT_TRUE(getRelativeFromRoot("/tree", "tree/A.h").empty());
    EXPECT_TRUE(getRelativeFromRoot("/tree", "/tree").empty());
    EXPECT_TRUE(getRelativeFromRoot("/tree", "").empty());
}

TEST(Guid, isNilUntilCreated)
{
    const Guid nil;
    EXPECT_TRUE(nil.isNil());
    EXPECT_EQ("00000000-0000-0000-0000-000000000000", nil.toString());
    EXPECT_TRUE(nil == Guid());

    const Guid guid = Guid::create();
    EXPECT_FALSE(guid.isNil());
    EXPECT_EQ(36u, guid.toString().size());
    EXPECT_EQ('4', guid.toString()[14]);
    const Guid copy = guid;
    EXPECT_TRUE(copy == guid);
    EXPECT_FALSE(copy < guid);
}

TEST(Guid, neverComesTwice)
{
    std::vector<std::vector<Guid>> made(4);
    std::vector<std::thread> threads;
    for (auto& mine : made)
    {
        threads.emplace_back(
            [&mine]
            {
                for (int i = 0; i < 500; ++i)
                {
                    mine.push_back(Guid::create());
                }
            });
    }
    for (auto& thread : threads)
    {
        thread.join();
    }
    std::set<Guid> all;
    for (const auto& mine : made)
    {
        all.insert(mine.begin(), mine.end());
    }
    EXPECT_EQ(2000u, all.size());
}

TEST(ElementsRange, isHalfOpen)
{
    EXPECT_EQ(0ul, ElementsRange().getSize());
    const ElementsRange range(64, 192);
    EXPECT_EQ(64ul, range.getBegin());
    EXPECT_EQ(192ul, range.getEnd());
    EXPECT_EQ(128ul, range.getSize());
    EXPECT_TRUE(range == ElementsRange(64, 192));
    EXPECT_FALSE(range == ElementsRange(64, 193));
}

TEST(ElementsRange, thatEndsBeforeItBeginsIsEmpty)
{
    const ElementsRange range(10, 5);
    EXPECT_EQ(10ul, range.getBegin());
    EXPECT_EQ(0ul, range.getSize());
}

TEST(ProcessingResult, holdsAStatusAndAMessage)
{
    EXPECT_FALSE(BoolResult());
    EXPECT_TRUE(BoolResult(true));
    EXPECT_EQ("", BoolResult(true).getMessage());
    const BoolResult failed(false, "why");
    EXPECT_FALSE(failed.getResult());
    EXPECT_EQ("why", failed.getMessage());
    EXPECT_EQ(2, ProcessingResult<int>(2, "why").getResult());
}
} // namespace kovis
