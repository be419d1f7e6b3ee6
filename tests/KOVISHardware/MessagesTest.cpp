#include "KOVIS/KOVISHardware/KOVISHardwareLog.h"
#include "KOVIS/KOVISUtil/LogMessageManager.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace kovis::hard
{
namespace
{
/// A domain's table is there, and entering it again neither adds to it nor puts back what has been changed.
template <class TMessage>
void expectEnteredOnce()
{
    LogMessageManager& manager = getKOVISHardwareLogMessageManager();
    const std::string key = typeid(typename TMessage::domain).name();
    EXPECT_TRUE((MessageMapRegistrator<TMessage, void>::process()));
    const unsigned long nbMessages = manager.getNbMessages(key);
    EXPECT_GT(nbMessages, 0UL) << key;
    const std::string original = manager.getMessage(key, 0);
    manager.addMessage(key, 0, "changed");
    EXPECT_TRUE((MessageMapRegistrator<TMessage, void>::process()));
    EXPECT_EQ(manager.getNbMessages(key), nbMessages) << key;
    EXPECT_EQ(manager.getMessage(key, 0), "changed") << key;
    manager.addMessage(key, 0, original);
}

TEST(KOVISHardwareMessages, AreEnteredOnce)
{
    expectEnteredOnce<eKOVISHardwareMessage>();
}
} // namespace
} // namespace kovis::hard
