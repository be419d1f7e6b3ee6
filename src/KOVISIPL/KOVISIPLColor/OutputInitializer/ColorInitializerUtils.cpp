#include "KOVISIPL/KOVISIPLColor/OutputInitializer/ColorInitializerUtils.h"

#include "KOVIS/KOVISUtil/ThrowMessage.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/OutputInitializer/TargetColorSpaceOutputInitializer.h"
#include "KOVISIPL/KOVISIPLColor/OutputInitializerLogMessages.h"
#include "KOVISIPL/KOVISIPLColor/getTransformNode.h"

#include <boost/make_shared.hpp>

namespace
{
using namespace kovis;
using namespace kovis::imaproc;

[[maybe_unused]] const bool g_bMessagesEntered = MessageMapRegistrator<color::eOutputInitializerMessage, void>::process();

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
        throwMessage<color::KOVISIPLColorException>(
            color::getKOVISIPLColorLogMessageManager(), color::getKOVISIPLColorLogger(),
            color::eOutputInitializerMessage::eOIM_AttributeNull,
            SourcePlace{function, "KOVISIPL/KOVISIPLColor/OutputInitializer/ColorInitializerUtils", __LINE__});
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

namespace kovis::imaproc::color
{
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
