#pragma once

// Processors that are worth keeping, and what they make of images that are the same in every process.

#include "KOVIS/KOVISSerialization/JsonIArchive.h"
#include "KOVIS/KOVISSerialization/JsonOArchive.h"
#include "KOVIS/KOVISSerialization/ObjectArchive.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl1.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl1.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl1.h"
#include "KOVISIPLColor/ColorTestImages.h"

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace kovis::test
{
using Objects = std::vector<boost::shared_ptr<BaseSerializationObject>>;
using imaproc::color::AppendColorChannelImgLvl1;
using imaproc::color::ColorConvertImgLvl1;
using imaproc::color::LightnessImgLvl1;

inline boost::shared_ptr<ColorConvertImgLvl1> makeConversion(int target, const std::vector<float>& matrix = {})
{
    const auto transform = boost::make_shared<imaproc::attr::ColorConversionTransform>();
    transform->setTarget(target);
    transform->setMatrix(matrix);
    const auto made = boost::make_shared<ColorConvertImgLvl1>();
    made->init();
    made->set<imaproc::attr::InColorConversionTransform>(transform);
    return made;
}

inline boost::shared_ptr<LightnessImgLvl1> makeLightness(imaproc::attr::eLightnessType formula)
{
    const auto made = boost::make_shared<LightnessImgLvl1>();
    made->init();
    made->set<imaproc::attr::InLightnessType>(formula);
    return made;
}

inline Objects makeTunedProcessors()
{
    const auto append = boost::make_shared<AppendColorChannelImgLvl1>();
    append->init();
    return {makeConversion(image::eCGT_HSV),
            makeConversion(image::eCGT_User, {0.299F, 0.587F, 0.114F, -1.0F / 3.0F, 1e-40F, -0.0F, 1e9F, 0.1F}),
            makeLightness(imaproc::attr::eLT_Luminosity),
            append,
            makeConversion(image::eCGT_CieLab),
            makeLightness(imaproc::attr::eLT_Lightness)};
}

/// The bytes of the image that the processor makes of the test images.
inline std::vector<unsigned char> run(const boost::shared_ptr<BaseSerializationObject>& object)
{
    const auto makeInput = [](unsigned char first)
    {
        const ImagePtr made = makeFilledImage<unsigned char>(37, 5, image::eCGT_Rgb, 0);
        for (unsigned long c = 0; c < 3; ++c)
        {
            unsigned char* const plane = image::planeData<unsigned char>(made, c);
            for (unsigned long i = 0; i < 37UL * 5UL; ++i)
            {
                plane[i] = static_cast<unsigned char>(first + 71 * c + 13 * i + i * i % 7);
            }
        }
        return made;
    };
    ImagePtr result;
    if (const auto conversion = boost::dynamic_pointer_cast<ColorConvertImgLvl1>(object))
    {
        const auto transform = boost::dynamic_pointer_cast<imaproc::attr::InColorConversionTransform>(
            conversion->getAttribute("InColorConversionTransform"));
        conversion->set<imaproc::attr::InColorImg>(makeInput(3));
        if (transform->getStorage()->getTarget() == image::eCGT_User)
        {
            conversion->set<imaproc::attr::OutColorImg>(image::createImageUser2d(37, 5, 2, image::eIBT_Real));
        }
        processor::executeSyncRun(conversion);
        result = conversion->getStorage<imaproc::attr::OutColorImg>();
    }
    else if (const auto lightness = boost::dynamic_pointer_cast<LightnessImgLvl1>(object))
    {
        lightness->set<imaproc::attr::InColorImg>(makeInput(3));
        processor::executeSyncRun(lightness);
        result = lightness->getStorage<imaproc::attr::OutLightImg>();
    }
    else if (const auto append = boost::dynamic_pointer_cast<AppendColorChannelImgLvl1>(object))
    {
        append->set<imaproc::attr::InImg1>(makeInput(3));
        append->set<imaproc::attr::InImg2>(makeInput(200));
        processor::executeSyncRun(append);
        result = append->getStorage<imaproc::attr::OutColorImg>();
    }
    if (!result)
    {
        throw std::runtime_error("no result");
    }
    std::vector<unsigned char> bytes;
    for (unsigned long c = 0; c < result->getSizeC(); ++c)
    {
        const bool bReal = result->getBufferType() == image::eIBT_Real;
        const auto* const plane = bReal ? reinterpret_cast<const unsigned char*>(image::planeData<float>(result, c))
                                        : image::planeData<unsigned char>(result, c);
        bytes.insert(bytes.end(), plane, plane + 37UL * 5UL * (bReal ? sizeof(float) : 1));
    }
    return bytes;
}

inline std::string writeObjects(const Objects& objects)
{
    std::ostringstream stream;
    JsonOArchive archive(stream);
    for (const auto& object : objects)
    {
        const BoolResult result = writeObject(archive, *object);
        if (!result)
        {
            throw std::runtime_error(result.getMessage());
        }
    }
    archive.finish();
    return stream.str();
}

/// Throws std::runtime_error where the object's read gives false.
inline Objects readObjects(const std::string& text)
{
    std::istringstream stream(text);
    JsonIArchive archive(stream);
    Objects objects;
    do
    {
        boost::shared_ptr<BaseSerializationObject> object;
        const BoolResult result = readObject(archive, object);
        if (!result)
        {
            throw std::runtime_error(result.getMessage());
        }
        objects.push_back(object);
    } while (archive.hasNextSection());
    return objects;
}
} // namespace kovis::test
