#include "KOVIS/KOVISUtil/LogMessageManager.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/Logging.h"
#include "KOVIS/KOVISUtil/MessageTable.h"

#include <gtest/gtest.h>

#include <limits>
#include <thread>
#include <typeinfo>
#include <vector>

namespace kovis
{
namespace
{
constexpr MessageText g_texts[] = {{0, "zero"}, {7, "seven %s"}, {-3, "minus three"}};
constinit MessageTable g_table("ManagerTestTable", "key", g_texts);
} // namespace

TEST(LogMessageManager, thereIsOneOfEachName)
{
    LogMessageManager* const manager = LogMessageManager::getInstance("ManagerTestA");
    EXPECT_EQ(manager, LogMessageManager::getInstance("ManagerTestA"));
    EXPECT_NE(manager, LogMessageManager::getInstance("ManagerTestB"));
    EXPECT_EQ("ManagerTestA", manager->getName());
}

TEST(LogMessageManager, keepsDomainsAndNumbersApart)
{
    LogMessageManager& manager = *LogMessageManager::getInstance("ManagerTestKeys");
    manager.addMessage("a", 1, "a1");
    manager.addMessage("a", std::numeric_limits<int>::max(), "amax");
    manager.addMessage("a", std::numeric_limits<int>::min(), "amin");
    manager.addMessage("aa", 1, "aa1");
    manager.addMessage("b", 1, "b1");
    EXPECT_EQ("a1", manager.getMessage("a", 1));
    EXPECT_EQ("amax", manager.getMessage("a", std::numeric_limits<int>::max()));
    EXPECT_EQ("b1", manager.getMessage("b", 1));
    EXPECT_EQ(3ul, manager.getNbMessages("a"));

    manager.addMessage("a", 1, "other");
    EXPECT_EQ("other", manager.getMessage("a", 1));
    EXPECT_EQ(3ul, manager.getNbMessages("a"));

    manager.removeMessages("a");
    EXPECT_EQ(0ul, manager.getNbMessages("a"));
    EXPECT_EQ("aa1", manager.getMessage("aa", 1));
    EXPECT_EQ("b1", manager.getMessage("b", 1));
    EXPECT_THROW(manager.getMessage("a", 1), KOVISUtilException);
}

TEST(LogMessageManager, aMissingTextIsAnErrorThatNamesIt)
{
    const LogMessageManager& manager = *LogMessageManager::getInstance("ManagerTestMissing");
    try
    {
        manager.getMessage("someDomain", 42);
        FAIL() << "nothing was thrown";
    }
    catch (const KOVISUtilException& e)
    {
        EXPECT_STREQ(
            "No message 42 in the domain someDomain of the manager ManagerTestMissing: load the library that it belongs to",
            e.what());
    }
}

TEST(LogMessageManager, aMissingTextOfThisLibraryItselfEndsTheSameWay)
{
    const char* const key = typeid(eKOVISUtilErrors::domain).name();
    EXPECT_THROW(getKOVISUtilLogMessageManager().getMessage(key, 4711), KOVISUtilException);
    EXPECT_THROW(getKOVISUtilLogMessageManager().getMessage("someDomain", 0), KOVISUtilException);
}

TEST(LogMessageManager, ownTextsAreThereUnderTheMangledKey)
{
    const LogMessageManager& manager = getKOVISUtilLogMessageManager();
    EXPECT_EQ(LogMessageManager::getInstance("KOVISUtil"), &manager);
    EXPECT_EQ(5ul, manager.getNbMessages("N5kovis16eKOVISUtilErrors6domainE"));
    EXPECT_EQ("Class %s cannot be copied: make a new object and set its attributes",
              manager.getMessage("N5kovis16eKOVISUtilErrors6domainE", 3));
}

TEST(LogMessageManager, managersAreMadeOnceFromManyThreads)
{
    std::vector<LogMessageManager*> seen(8);
    {
        std::vector<std::thread> threads;
        for (auto& place : seen)
        {
            threads.emplace_back(
                [&place]
                {
                    place = LogMessageManager::getInstance("ManagerTestThreads");
                    for (int i = 0; i < 200; ++i)
                    {
                        place->addMessage("key", i, std::to_string(i));
                        EXPECT_EQ(std::to_string(i), place->getMessage("key", i));
                    }
                });
        }
        for (auto& thread : threads)
        {
            thread.join();
        }
    }
    for (const auto* manager : seen)
    {
        EXPECT_EQ(seen.front(), manager);
    }
    EXPECT_EQ(200ul, seen.front()->getNbMessages("key"));
}

TEST(MessageTable, entersOnceAndWithdraws)
{
    LogMessageManager& manager = *LogMessageManager::getInstance("ManagerTestTable");
    EXPECT_EQ(0ul, manager.getNbMessages("key"));
    {
        const MessageTableHolder holder(g_table);
        EXPECT_EQ(3ul, manager.getNbMessages("key"));
        EXPECT_EQ("seven %s", manager.getMessage("key", 7));
        EXPECT_EQ("minus three", manager.getMessage("key", -3));

        // A second entry changes nothing, not even a text that has been replaced since.
        manager.addMessage("key", 0, "replaced");
        EXPECT_TRUE(g_table.enter());
        EXPECT_EQ("replaced", manager.getMessage("key", 0));
    }
    EXPECT_EQ(0ul, manager.getNbMessages("key"));
    EXPECT_TRUE(g_table.enter());
    EXPECT_EQ("zero", manager.getMessage("key", 0));
    g_table.withdraw();
    g_table.withdraw();
    EXPECT_EQ(0ul, manager.getNbMessages("key"));
}

TEST(MessageTable, processEntersNoMessageTwice)
{
    EXPECT_TRUE(MessageMapRegistrator<eKOVISUtilErrors>::process());
    EXPECT_TRUE(MessageMapRegistrator<eKOVISUtilErrors>::process());
    EXPECT_EQ(5ul, getKOVISUtilLogMessageManager().getNbMessages("N5kovis16eKOVISUtilErrors6domainE"));
}
} // namespace kovis
