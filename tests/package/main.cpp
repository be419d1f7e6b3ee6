#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"

#include <iostream>

int main()
{
    using namespace kovis::image;
    const auto rgb = createImage2d(64, 48, eCGT_Rgb, eIBT_UInt8);
    planeData<unsigned char>(rgb, 1)[0] = 255; // one green pixel
    const auto hsv = kovis::imaproc::color::colorConvertImg(rgb, eCGT_HSV);
    for (unsigned long channel = 0; channel < 3; ++channel)
        std::cout << planeData<float>(hsv, channel)[0] << ' ';
    std::cout << '\n';
}
