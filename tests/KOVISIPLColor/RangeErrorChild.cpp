// Has a conversion refused for its range, with or without an appender of its own. What it prints is the test.

#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"

#include <log4cplus/configurator.h>

#include <sstream>
#include <string>

int main(int argc, char** argv)
{
    using namespace kovis;
    if (argc > 1 && std::string(argv[1]) == "console")
    {
        std::istringstream text("log4cplus.rootLogger=DEBUG, A\n"
                                "log4cplus.appender.A=log4cplus::ConsoleAppender\n"
                                "log4cplus.appender.A.layout=log4cplus::PatternLayout\n"
                                "log4cplus.appender.A.layout.ConversionPattern=%p|%c|%m|%F%n\n");
        log4cplus::PropertyConfigurator(text).configure();
    }
    const auto in = image::createImage2d(5, 4, image::eCGT_Rgb, image::eIBT_Real);
    image::planeData<float>(in, 1)[7] = 255.5F;
    try
    {
        imaproc::color::colorConvertImg(in, image::eCGT_XYZ);
    }
    catch (const imaproc::color::KOVISIPLColorException& e)
    {
        return std::string(e.what()) == "Error: the image values does not match the range [0, 255]" ? 0 : 1;
    }
    return 2;
}
