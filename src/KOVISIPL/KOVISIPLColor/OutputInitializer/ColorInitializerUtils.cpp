#include "KOVISIPL/KOVISIPLColor/OutputInitializer/ColorInitializerUtils.h"

#include "KOVIS/KOVISUtil/ThrowMessage.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/OutputInitializer/AppendColorOutputInitializer.h"
#include "KOVISIPL/KOVISIPLColor/OutputInitializer/TargetColorSpaceOutputInitializer.h"
#include "KOVISIPL/KOVISIPLColor/OutputInitializerLogMessages.h"
#include "KOVISIPL/KOVISIPLColor/getHeldImage.h"
#include "KOVISIPL/KOVISIPLColor/getTransformNode.h"

#include <boost/make_shared.hpp>

namespace
{
using namespace kovis;
using namespace kovis::imaproc;

[[maybe_unused]] const bool g_bMessagesEntered = MessageMapRegistrator<color::eOutputInitializerMessage, void>::process();

[[noreturn]] void throwInitializerMessage(color::eOutputInitializerMessage::domain message, const char* function,
                                          unsigned int line)
{
    throwMessage<color::KOVISIPLColorException>(
        color::getKOVISIPLColorLogMessageManager(), color::getKOVISIPLColorLogger(), message,
        SourcePlace{function, "KOVISIPL/KOVISIPLColor/OutputInitializer/ColorInitializerUtils", line});
}

bool isRgbOrRgba(const image::eColorGeometryType& type)
{
    return type == image::eCGT_Rgb || type == image::eCGT_Rgba;
}
} // namespace

TargetColorSpaceOutputInitializer::TargetColorSpaceOutputInitializer() = default;
TargetColorSpaceOutputInitializer::~TargetColorSpaceOutputInitializer() = default;

boost::shared_ptr<const attr::InColorConversionTransform>
TargetColorSpaceOutputInitializer::getTransform(const char* function) const
{
    const boost::shared_ptr<const attr::InColorConversionTransform> transform = m_transform.lock();
    if (!transform)
    {
        throwInitializerMessage(color::eOutputInitializerMessage::eOIM_AttributeNull, function, __LINE__);
    }
    return transform;
}

image::eImageBufferType TargetColorSpaceOutputInitializer::getImageBufferType() const
{
    const auto transform =
        getTransform("virtual kovis::image::eImageBufferType TargetColorSpaceOutputInitializer::getImageBufferType() const");
    const image::eColorGeometryType target = color::getTransformNode(*transform)->getTargetGeometry();
    const boost::shared_ptr<const image::BaseImage> input = getInputImage();
    if (isRgbOrRgba(input->getColorGeometryType()) && isRgbOrRgba(target))
    {
        return input->getBufferType();
    }
    if (target == image::eCGT_YCbCr)
    {
        return input->getBufferType();
    }
    // float for all others, the same space on both sides and YCbCr to Rgb included
    return image::eIBT_Real;
}

image::ColorGeometry TargetColorSpaceOutputInitializer::getColorGeometry() const
{
    const auto transform =
        getTransform("virtual kovis::image::ColorGeometry TargetColorSpaceOutputInitializer::getColorGeometry() const");
    const boost::shared_ptr<const attr::ColorConversionTransform> node = color::getTransformNode(*transform);
    const image::eColorGeometryType target = node->getTargetGeometry();
    const boost::shared_ptr<const image::BaseImage> input = getInputImage();
    image::ColorGeometry geometry;
    if (target == image::eCGT_User)
    {
        geometry.initUser(node->getMatrix().size() / (input->getSizeC() + 1));
    }
    else
    {
        geometry.init(target);
    }
    return geometry;
}

AppendColorOutputInitializer::AppendColorOutputInitializer() = default;
AppendColorOutputInitializer::~AppendColorOutputInitializer() = default;

image::eImageBufferType AppendColorOutputInitializer::getImageBufferType() const
{
    return getInputImage()->getBufferType();
}

image::ColorGeometry AppendColorOutputInitializer::getColorGeometry() const
{
    const unsigned long sizeC1 = getInputImage()->getSizeC();
    const boost::shared_ptr<const BaseImageAttribute> secondInput = m_secondInput.lock();
    if (!secondInput)
    {
        throwInitializerMessage(color::eOutputInitializerMessage::eOIM_AttributeExpired,
                                "virtual kovis::image::ColorGeometry AppendColorOutputInitializer::getColorGeometry() const",
                                __LINE__);
    }
    image::ColorGeometry geometry;
    geometry.initUser(sizeC1 + color::getHeldImage(*secondInput)->getSizeC());
    return geometry;
}

namespace kovis::imaproc::color
{
boost::shared_ptr<BaseCustomImageInfo> outputAppendColor(const boost::shared_ptr<const BaseImageAttribute>& input1,
                                                         const boost::shared_ptr<const BaseImageAttribute>& input2)
{
    const auto info = boost::make_shared<AppendColorOutputInitializer>();
    info->initBase(input1);
    info->setSecondInput(input2);
    return info;
}

boost::shared_ptr<BaseCustomImageInfo>
outputTargetColorSpace(const boost::shared_ptr<const BaseImageAttribute>& input,
                       const boost::shared_ptr<const attr::InColorConversionTransform>& transform)
{
    const auto info = boost::make_shared<TargetColorSpaceOutputInitializer>();
    info->setTransform(transform);
    info->initBase(input);
    return info;
}
} // namespace kovis::imaproc::color
