#include "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils.h"

#include "KOVIS/KOVISImage/getFormatedName.h"
#include "KOVIS/KOVISUtil/LogMessageFormater.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/RuleLogMessages.h"
#include "KOVISIPL/KOVISIPLColor/getTransformNode.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

namespace kovis::imaproc::color
{
namespace
{
[[maybe_unused]] const bool g_bMessagesEntered = MessageMapRegistrator<eRuleMessage, void>::process();

// What an attribute holds, kept alive: the attribute may be set anew meanwhile. Where it holds nothing, its own getter throws by
// name.
boost::shared_ptr<const image::BaseImage> getShape(const BaseImageAttribute& attribute)
{
    boost::shared_ptr<const image::BaseImage> shape;
    while (!(shape = attribute.getImagePtr()))
    {
        (void)attribute.getImage();
    }
    return shape;
}

boost::shared_ptr<const image::BaseImageYStripColor2d> getShape(const BaseYStripColor2dAttribute& attribute)
{
    boost::shared_ptr<const image::BaseImageYStrip> shape;
    while (!(shape = attribute.getBaseImageYStripPtr()))
    {
        (void)attribute.getBaseImageYStripColor2d();
    }
    return boost::static_pointer_cast<const image::BaseImageYStripColor2d>(shape);
}

const char* getTypeName(const BaseImageAttribute*)
{
    return "const kovis::imaproc::BaseImageAttribute";
}
const char* getTypeName(const BaseYStripColor2dAttribute*)
{
    return "const kovis::imaproc::BaseYStripColor2dAttribute";
}

/// That the output is in the space that the transform aims at and that a user matrix has the shape that the channels ask for.
template <class ImageAttributeType>
class RuleMatchColorSpace : public processor::BaseAttributeRule
{
public:
    void init(const boost::weak_ptr<ImageAttributeType>& input, const boost::weak_ptr<ImageAttributeType>& output,
              const boost::weak_ptr<const attr::InColorConversionTransform>& transform)
    {
        m_transform = transform;
        initBase(input, output);
    }

    bool testRule() const override
    {
        const auto input = getInput();
        const auto output = getOutput();
        const auto inSizeC = static_cast<unsigned int>(getShape(*input)->getSizeC());
        const auto outputShape = getShape(*output);
        const image::eColorGeometryType outGeometry = outputShape->getColorGeometryType();
        const auto outSizeC = static_cast<unsigned int>(outputShape->getSizeC());
        const auto node = getTransformNode(*getColorConversionTransformAttribute());
        const image::eColorGeometryType target = node->getTargetGeometry();
        if (target != outGeometry)
        {
            return false;
        }
        if (target < image::eCGT_User)
        {
            return true;
        }
        return outSizeC * (inSizeC + 1U) == static_cast<unsigned int>(node->getMatrix().size());
    }

    std::string createRuleFormalString() const override
    {
        const auto input = getInput();
        const auto output = getOutput();
        const auto transform = getColorConversionTransformAttribute();
        LogMessageFormater formater(getKOVISIPLColorLogMessageManager());
        formater[eRuleMessage::eRM_ColorSpaceFormal] % input->getObjectName() % output->getObjectName() %
            transform->getObjectName();
        return formater.string();
    }

    std::string createRuleEvaluatedString(unsigned int indentation) const override
    {
        const auto input = getInput();
        const auto output = getOutput();
        const auto transform = getColorConversionTransformAttribute();
        const auto inputShape = getShape(*input);
        const auto outputShape = getShape(*output);
        const auto node = getTransformNode(*transform);
        LogMessageFormater formater(getKOVISIPLColorLogMessageManager());
        formater << createRuleEvaluatedStartString(indentation);
        // strips too are told with the words for images
        formater[eRuleMessage::eRM_ColorSpaceEvaluated] % input->getObjectName() %
            getFormatedName(*inputShape, image::eFT_Short) % getGeometryName(inputShape->getColorGeometryType()) %
            output->getObjectName() % getFormatedName(*outputShape, image::eFT_Short) %
            getGeometryName(outputShape->getColorGeometryType()) % transform->getObjectName() %
            getGeometryName(node->getTargetGeometry()) % static_cast<unsigned int>(node->getMatrix().size());
        return formater.string();
    }

    processor::eAttributeRuleType getAttributeRuleType() const override { return processor::eART_Mixed; }

private:
    boost::shared_ptr<ImageAttributeType> getInput() const
    {
        return boost::static_pointer_cast<ImageAttributeType>(getAttribute1());
    }
    boost::shared_ptr<ImageAttributeType> getOutput() const
    {
        return boost::static_pointer_cast<ImageAttributeType>(getAttribute2());
    }

    static std::string getGeometryName(const image::eColorGeometryType& type) { return image::getColorGeometryTypeName(type); }

    boost::shared_ptr<const attr::InColorConversionTransform> getColorConversionTransformAttribute() const
    {
        if (!isInitialised())
        {
            throwRuleMessage(eRuleMessage::eRM_NotInitialised);
        }
        const boost::shared_ptr<const attr::InColorConversionTransform> transform = m_transform.lock();
        if (!transform)
        {
            throwRuleMessage(eRuleMessage::eRM_AttributeExpired);
        }
        return transform;
    }

    [[noreturn]] static void throwRuleMessage(eRuleMessage::domain message)
    {
        const std::string function =
            std::string(
                "boost::shared_ptr<const kovis::imaproc::attr::InColorConversionTransform> kovis::imaproc::color::{anonymous}::"
                "RuleMatchColorSpace<ImageAttributeType>::getColorConversionTransformAttribute() const [with ImageAttributeType "
                "= ") +
            getTypeName(static_cast<ImageAttributeType*>(nullptr)) + "]";
        throwMessage<KOVISIPLColorException>(
            getKOVISIPLColorLogMessageManager(), getKOVISIPLColorLogger(), message,
            SourcePlace{function.c_str(), "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils", __LINE__});
    }

    boost::weak_ptr<const attr::InColorConversionTransform> m_transform;
};

template <class ImageAttributeType>
boost::shared_ptr<processor::BaseRule> makeRule(const boost::shared_ptr<ImageAttributeType>& input,
                                                const boost::shared_ptr<ImageAttributeType>& output,
                                                const boost::shared_ptr<const attr::InColorConversionTransform>& transform)
{
    const auto rule = boost::make_shared<RuleMatchColorSpace<ImageAttributeType>>();
    rule->init(input, output, transform);
    return rule;
}
} // namespace

boost::shared_ptr<processor::BaseRule> matchColorSpace(const boost::shared_ptr<const BaseImageAttribute>& input,
                                                       const boost::shared_ptr<const BaseImageAttribute>& output,
                                                       const boost::shared_ptr<const attr::InColorConversionTransform>& transform)
{
    return makeRule(input, output, transform);
}

boost::shared_ptr<processor::BaseRule> matchColorSpace(const boost::shared_ptr<const BaseYStripColor2dAttribute>& input,
                                                       const boost::shared_ptr<const BaseYStripColor2dAttribute>& output,
                                                       const boost::shared_ptr<const attr::InColorConversionTransform>& transform)
{
    return makeRule(input, output, transform);
}
} // namespace kovis::imaproc::color
