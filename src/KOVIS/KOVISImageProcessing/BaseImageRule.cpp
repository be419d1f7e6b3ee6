#include "KOVIS/KOVISImageProcessing/BaseImageRule.h"

#include "KOVIS/KOVISImageProcessing/ImageProcessingMessages.h"

#include <boost/smart_ptr/shared_ptr.hpp>

namespace kovis::imaproc
{
namespace
{
template <class TAttribute>
boost::shared_ptr<const TAttribute> castAttribute(const boost::shared_ptr<const processor::BaseAttribute>& attribute,
                                                  eImageRuleMessage::domain message, const SourcePlace& place)
{
    const auto cast = boost::dynamic_pointer_cast<const TAttribute>(attribute);
    if (cast == nullptr)
    {
        throwImageProcessingMessage(message, place, attribute->getObjectName());
    }
    return cast;
}
} // namespace

BaseImageProcessingRule::BaseImageProcessingRule() = default;
BaseImageProcessingRule::~BaseImageProcessingRule() = default;

BaseImageRule::BaseImageRule() = default;
BaseImageRule::~BaseImageRule() = default;

processor::eAttributeRuleType BaseImageRule::getAttributeRuleType() const
{
    return processor::eART_Image;
}

boost::shared_ptr<const BaseImageAttribute> BaseImageRule::getImageAttribute1() const
{
    return castAttribute<BaseImageAttribute>(
        getAttribute1(), eImageRuleMessage::eIRM_NotAnImage,
        {"boost::shared_ptr<const kovis::imaproc::BaseImageAttribute> kovis::imaproc::BaseImageRule::getImageAttribute1() const",
         "KOVIS/KOVISImageProcessing/BaseImageRule.cpp", __LINE__});
}

boost::shared_ptr<const BaseImageAttribute> BaseImageRule::getImageAttribute2() const
{
    return castAttribute<BaseImageAttribute>(
        getAttribute2(), eImageRuleMessage::eIRM_NotAnImage,
        {"boost::shared_ptr<const kovis::imaproc::BaseImageAttribute> kovis::imaproc::BaseImageRule::getImageAttribute2() const",
         "KOVIS/KOVISImageProcessing/BaseImageRule.cpp", __LINE__});
}

BaseStripRule::BaseStripRule() = default;
BaseStripRule::~BaseStripRule() = default;

processor::eAttributeRuleType BaseStripRule::getAttributeRuleType() const
{
    return processor::eART_Strip;
}

boost::shared_ptr<const BaseStripAttribute> BaseStripRule::getStripAttribute1() const
{
    return castAttribute<BaseStripAttribute>(
        getAttribute1(), eImageRuleMessage::eIRM_NotAStrip,
        {"boost::shared_ptr<const kovis::imaproc::BaseStripAttribute> kovis::imaproc::BaseStripRule::getStripAttribute1() const",
         "KOVIS/KOVISImageProcessing/BaseImageRule.cpp", __LINE__});
}

boost::shared_ptr<const BaseStripAttribute> BaseStripRule::getStripAttribute2() const
{
    return castAttribute<BaseStripAttribute>(
        getAttribute2(), eImageRuleMessage::eIRM_NotAStrip,
        {"boost::shared_ptr<const kovis::imaproc::BaseStripAttribute> kovis::imaproc::BaseStripRule::getStripAttribute2() const",
         "KOVIS/KOVISImageProcessing/BaseImageRule.cpp", __LINE__});
}

BaseIPEnumRule::BaseIPEnumRule() = default;
BaseIPEnumRule::~BaseIPEnumRule() = default;

processor::eAttributeRuleType BaseIPEnumRule::getAttributeRuleType() const
{
    return processor::eART_Mixed;
}

BaseImagePropertyRule::BaseImagePropertyRule() = default;
BaseImagePropertyRule::~BaseImagePropertyRule() = default;

BaseImageBinaryMixedRule::BaseImageBinaryMixedRule() = default;
BaseImageBinaryMixedRule::~BaseImageBinaryMixedRule() = default;

processor::eAttributeRuleType BaseImageBinaryMixedRule::getAttributeRuleType() const
{
    return processor::eART_Mixed;
}

BaseStripBinaryMixedRule::BaseStripBinaryMixedRule() = default;
BaseStripBinaryMixedRule::~BaseStripBinaryMixedRule() = default;

processor::eAttributeRuleType BaseStripBinaryMixedRule::getAttributeRuleType() const
{
    return processor::eART_Mixed;
}

BaseRuleMatchImageRange::BaseRuleMatchImageRange() = default;
BaseRuleMatchImageRange::~BaseRuleMatchImageRange() = default;

BaseRuleMatchScalarToImageSize::BaseRuleMatchScalarToImageSize() = default;
BaseRuleMatchScalarToImageSize::~BaseRuleMatchScalarToImageSize() = default;

BaseRuleMatchStripRange::BaseRuleMatchStripRange() = default;
BaseRuleMatchStripRange::~BaseRuleMatchStripRange() = default;
} // namespace kovis::imaproc
