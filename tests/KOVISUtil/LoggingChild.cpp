// Reports two errors through the platform, with or without a log4cplus configuration of its own. What it prints is the test.

#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <log4cplus/configurator.h>
#include <log4cplus/logger.h>

#include <sstream>
#include <string>

namespace
{
void configure(const std::string& text)
{
    std::istringstream stream(text);
    log4cplus::PropertyConfigurator(stream).configure();
}

const char* const g_console = "log4cplus.appender.A=log4cplus::ConsoleAppender\n"
                              "log4cplus.appender.A.layout=log4cplus::SimpleLayout\n";

const std::string g_root = std::string("log4cplus.rootLogger=DEBUG, A\n") + g_console;
const std::string g_base = std::string("log4cplus.logger.KOVIS=ERROR, A\nlog4cplus.additivity.KOVIS=false\n") + g_console;
const std::string g_off = std::string("log4cplus.rootLogger=DEBUG, A\nlog4cplus.logger.KOVIS=OFF\n") + g_console;

bool reportErrors()
{
    using namespace kovis;
    const SourcePlace place{"bool reportErrors()", "KOVIS/LoggingChild.cpp", 1};
    bool bThrown = false;
    try
    {
        throwMessage<KOVISUtilException>(getKOVISUtilLogMessageManager(), getKOVISUtilLogger(),
                                         eKOVISUtilErrors::eUE_NoCopySupport, place, "kovis::X");
    }
    catch (const KOVISUtilException&)
    {
        bThrown = true;
    }
    try
    {
        throwMessage<KOVISUtilException>(getKOVISUtilLogMessageManager(), getKOVISUtilLogger(),
                                         eKOVISUtilErrors::eUE_NoCopySupport, place);
    }
    catch (const BaseException&)
    {
        return bThrown;
    }
    return false;
}
} // namespace

int main(int argc, char** argv)
{
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "stranger")
    {
        log4cplus::Logger::getInstance("Stranger").log(log4cplus::ERROR_LOG_LEVEL, "text");
        return 0;
    }
    if (mode == "root-before")
    {
        configure(g_root);
    }
    else if (mode == "base-before")
    {
        configure(g_base);
    }
    else if (mode == "off-before")
    {
        configure(g_off);
    }
    kovis::getKOVISUtilLogger();
    if (mode == "root-after")
    {
        configure(g_root);
    }
    else if (mode == "base-after")
    {
        configure(g_base);
    }
    return reportErrors() ? 0 : 1;
}
