#include "KOVIS/KOVISUtil/LogMessageManager.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

namespace kovis
{
// The program links KOVISUtil alone, so that the library above it comes and goes with dlopen and dlclose.
TEST(Load, theLibraryLeavesTheProcessWithAllThatItEntered)
{
    const char* const key = "N5kovis4hard21eKOVISHardwareMessage6domainE";
    const LogMessageManager& manager = *LogMessageManager::getInstance("KOVISHardware");
    for (int i = 0; i < 100; ++i)
    {
        ASSERT_EQ(nullptr, dlopen(KOVIS_HARDWARE_LIBRARY, RTLD_NOW | RTLD_NOLOAD)) << "still mapped at round " << i;
        ASSERT_EQ(0ul, manager.getNbMessages(key));
        void* const library = dlopen(KOVIS_HARDWARE_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(nullptr, library) << dlerror();
        ASSERT_EQ(2ul, manager.getNbMessages(key));
        ASSERT_EQ(0, dlclose(library));
    }
}
} // namespace kovis
