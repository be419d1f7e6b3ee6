#include "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils.h"

#include "KOVIS/KOVISImage/getFormatedName.h"
#include "KOVIS/KOVISUtil/LogMessageFormater.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/RuleLogMessages.h"
#include "KOVISIPL/KOVISIPLColor/getHeldImage.h"
#include "KOVISIPL/KOVISIPLColor/getTransformNode.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

namespace kovis::imaproc::color
{
namespace
{
[[maybe_unused]] const bool g_bMessagesEntered = MessageMapRegistrator<eRuleMessage, void>::process();

constexpr const char* g_sourcePath = "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils";

boost::shared_ptr<const image::BaseImage> getShape(const BaseImageAttribute& attribute)
{
    return getHeldImage(attribute);
}

/// The same for a strip.
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

/// The pretty name of an operation of one of the rule templates.
template <class ImageAttributeType>
std::string getFunction(const char* returnType, const char* operation)
{
    return std::string(returnType) + " kovis::imaproc::color::{anonymous}::" + operation +
           "() const [with ImageAttributeType = " + getTypeName(static_cast<ImageAttributeType*>(nullptr)) + "]";
}

/// An attribute that a rule on ImageAttributeType does not keep alive, for the operation that is named. Throws
/// KOVISIPLColorException for a rule that is not initialised and for an attribute that is gone.
template <class ImageAttributeType, class TAttribute>
boost::shared_ptr<TAttribute> lockAttribute(bool bInitialised, const boost::weak_ptr<TAttribute>& attribute,
                                            const char* returnType, const char* operation, unsigned int line)
{
    const boost::shared_ptr<TAttribute> locked = attribute.lock();
    if (!bInitialised || !locked)
    {
        const std::string function = getFunction<ImageAttributeType>(returnType, operation);
        throwMessage<KOVISIPLColorException>(getKOVISIPLColorLogMessageManager(), getKOVISIPLColorLogger(),
                                             bInitialised ? eRuleMessage::eRM_AttributeExpired : eRuleMessage::eRM_NotInitialised,
                                             SourcePlace{function.c_str(), g_sourcePath, line});
    }
    return locked;
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
        return lockAttribute<ImageAttributeType>(
            isInitialised(), m_transform, "boost::shared_ptr<const kovis::imaproc::attr::InColorConversionTransform>",
            "RuleMatchColorSpace<ImageAttributeType>::getColorConversionTransformAttribute", __LINE__);
    }

    boost::weak_ptr<const attr::InColorConversionTransform> m_transform;
};

/// That the output has the channels of both inputs. The first input and the output are the attributes of the base.
template <class ImageAttributeType>
class RuleMatchAppendChannel : public processor::BaseAttributeRule
{
public:
    void init(const boost::weak_ptr<ImageAttributeType>& input1, const boost::weak_ptr<ImageAttributeType>& input2,
              const boost::weak_ptr<ImageAttributeType>& output)
    {
        m_input2 = input2;
        initBase(input1, output);
    }

    bool testRule() const override
    {
        const auto outSizeC = static_cast<unsigned int>(getShape(*getOutput())->getSizeC());
        const auto sizeC1 = static_cast<unsigned int>(getShape(*getInput1())->getSizeC());
        return sizeC1 + getShape(*getInput2())->getSizeC() == outSizeC;
    }

    std::string createRuleFormalString() const override
    {
        const auto input2 = getInput2();
        LogMessageFormater formater(getKOVISIPLColorLogMessageManager());
        formater[eRuleMessage::eRM_AppendFormal] % getInput1()->getObjectName() % input2->getObjectName() %
            getOutput()->getObjectName();
        return formater.string();
    }

    std::string createRuleEvaluatedString(unsigned int indentation) const override
    {
        const auto input2 = getInput2();
        const std::string image2 = getImageName(*input2);
        const auto output = getOutput();
        const std::string outputImage = getImageName(*output);
        const auto input1 = getInput1();
        const std::string image1 = getImageName(*input1);
        try
        {
            LogMessageFormater formater(getKOVISIPLColorLogMessageManager());
            formater << createRuleEvaluatedStartString(indentation);
            // the text for colour spaces, which asks for three strings more: no text is ever finished
            formater[eRuleMessage::eRM_ColorSpaceEvaluated] % input1->getObjectName() % image1 % input2->getObjectName() %
                image2 % output->getObjectName() % outputImage;
            return formater.string();
        }
        catch (...)
        {
            const std::string function = getFunction<ImageAttributeType>(
                "std::string", "RuleMatchAppendChannel<ImageAttributeType>::createRuleEvaluatedString");
            kovis::detail::throwMessageFailure({function.c_str(), g_sourcePath, __LINE__});
        }
    }

    processor::eAttributeRuleType getAttributeRuleType() const override { return processor::eART_Image; }

private:
    boost::shared_ptr<ImageAttributeType> getInput1() const
    {
        return boost::static_pointer_cast<ImageAttributeType>(getAttribute1());
    }
    boost::shared_ptr<ImageAttributeType> getInput2() const
    {
        return lockAttribute<ImageAttributeType>(isInitialised(), m_input2, "boost::shared_ptr<ImageAttributeType>",
                                                 "RuleMatchAppendChannel<ImageAttributeType>::getInput2", __LINE__);
    }
    boost::shared_ptr<ImageAttributeType> getOutput() const
    {
        return boost::static_pointer_cast<ImageAttributeType>(getAttribute2());
    }

    static std::string getImageName(const BaseImageAttribute& attribute)
    {
        return getFormatedName(*getShape(attribute), image::eFT_Short);
    }

    boost::weak_ptr<ImageAttributeType> m_input2;
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

boost::shared_ptr<processor::BaseRule> matchAppendChannel(const boost::shared_ptr<const BaseImageAttribute>& input1,
                                                          const boost::shared_ptr<const BaseImageAttribute>& input2,
                                                          const boost::shared_ptr<const BaseImageAttribute>& output)
{
    const auto rule = boost::make_shared<RuleMatchAppendChannel<const BaseImageAttribute>>();
    rule->init(input1, input2, output);
    return rule;
}
} // namespace kovis::imaproc::color
