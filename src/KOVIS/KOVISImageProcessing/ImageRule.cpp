#include "KOVIS/KOVISImageProcessing/ImageRule.h"

#include "KOVIS/KOVISImage/getFormatedName.h"
#include "KOVIS/KOVISImageProcessing/BaseImageRule.h"
#include "KOVIS/KOVISImageProcessing/ImageProcessingMessages.h"

#include <boost/make_shared.hpp>

#include <string>

namespace kovis::imaproc
{
namespace
{
using processor::BaseRule;

std::string getKind(const processor::BaseAttribute& attribute, const char* thing)
{
    return std::string(attribute.isOutput() ? "output " : "input ") + thing;
}

std::string sizeFormal(const processor::BaseAttribute& first, const processor::BaseAttribute& second, const char* thing,
                       const char* dimensions)
{
    return imageProcessingText(eImageRuleMessage::eIRM_SizeFormal, getKind(first, thing), first.getObjectName(),
                               getKind(second, thing), second.getObjectName(), dimensions);
}

std::string bufferTypeFormal(const processor::BaseAttribute& first, const processor::BaseAttribute& second, const char* thing)
{
    return imageProcessingText(eImageRuleMessage::eIRM_BufferTypeFormal, getKind(first, thing), first.getObjectName(),
                               getKind(second, thing), second.getObjectName());
}

// TObject is an image or a strip.
template <class TObject>
std::string sizeEvaluated(const processor::BaseAttribute& first, const TObject& object1, const processor::BaseAttribute& second,
                          const TObject& object2, const char* thing, const char* dimensions)
{
    return imageProcessingText(eImageRuleMessage::eIRM_SizeEvaluated, getKind(first, thing), first.getObjectName(),
                               getFormatedName(object1, image::eFT_Short), getKind(second, thing), second.getObjectName(),
                               getFormatedName(object2, image::eFT_Short), dimensions);
}

template <class TObject>
std::string bufferTypeEvaluated(const processor::BaseAttribute& first, const TObject& object1,
                                const processor::BaseAttribute& second, const TObject& object2, const char* thing)
{
    return imageProcessingText(eImageRuleMessage::eIRM_BufferTypeEvaluated, getKind(first, thing), first.getObjectName(),
                               getFormatedName(object1, image::eFT_Short), static_cast<int>(object1.getBufferType()),
                               getKind(second, thing), second.getObjectName(), getFormatedName(object2, image::eFT_Short),
                               static_cast<int>(object2.getBufferType()));
}

// Holds the image, for the attribute may be given another one meanwhile.
boost::shared_ptr<const image::BaseImage> getImage(const BaseImageAttribute& attribute)
{
    const boost::shared_ptr<const image::BaseImage> image = attribute.getImagePtr();
    if (image == nullptr)
    {
        throwImageProcessingMessage(
            eImageAttributeMessage::eIAM_NoImage,
            {"bool kovis::processor::BaseRule::testRule() const", "KOVIS/KOVISImageProcessing/ImageRule.cpp", __LINE__},
            attribute.getObjectName());
    }
    return image;
}

boost::shared_ptr<const image::BaseImageYStrip> getStrip(const BaseStripAttribute& attribute)
{
    const boost::shared_ptr<const image::BaseImageYStrip> strip = attribute.getBaseImageYStripPtr();
    if (strip == nullptr)
    {
        throwImageProcessingMessage(
            eImageAttributeMessage::eIAM_NoStrip,
            {"bool kovis::processor::BaseRule::testRule() const", "KOVIS/KOVISImageProcessing/ImageRule.cpp", __LINE__},
            attribute.getObjectName());
    }
    return strip;
}

class RuleMatchImageSize : public BaseImageRule
{
public:
    explicit RuleMatchImageSize(eMatchImageSizeType type) : m_type(type) {}

    bool testRule() const override
    {
        const auto first = getImage(*getImageAttribute1());
        const auto second = getImage(*getImageAttribute2());
        if (first->getSizeX() != second->getSizeX() || first->getSizeY() != second->getSizeY())
        {
            return false;
        }
        if (m_type == eMIST_XY)
        {
            return true;
        }
        return first->getSizeZ() == second->getSizeZ() && first->getSizeT() == second->getSizeT() &&
               (m_type == eMIST_XYZT || first->getSizeC() == second->getSizeC());
    }
    std::string createRuleFormalString() const override
    {
        return sizeFormal(*getImageAttribute1(), *getImageAttribute2(), "image", getDimensions());
    }
    std::string createRuleEvaluatedString(unsigned int indentation) const override
    {
        const auto first = getImageAttribute1();
        const auto second = getImageAttribute2();
        return createRuleEvaluatedStartString(indentation) +
               sizeEvaluated(*first, *getImage(*first), *second, *getImage(*second), "image", getDimensions());
    }

private:
    const char* getDimensions() const
    {
        switch (m_type)
        {
        case eMIST_XY:
            return "X and Y";
        case eMIST_XYZT:
            return "X, Y, Z and T";
        case eMIST_All:
            break;
        }
        return "X, Y, Z, channels and T";
    }

    const eMatchImageSizeType m_type;
};

class RuleMatchImageBufferType : public BaseImageRule
{
public:
    bool testRule() const override
    {
        return getImage(*getImageAttribute1())->getBufferType() == getImage(*getImageAttribute2())->getBufferType();
    }
    std::string createRuleFormalString() const override
    {
        return bufferTypeFormal(*getImageAttribute1(), *getImageAttribute2(), "image");
    }
    std::string createRuleEvaluatedString(unsigned int indentation) const override
    {
        const auto first = getImageAttribute1();
        const auto second = getImageAttribute2();
        return createRuleEvaluatedStartString(indentation) +
               bufferTypeEvaluated(*first, *getImage(*first), *second, *getImage(*second), "image");
    }
};

class RuleMatchStripPlanarSize : public BaseStripRule
{
public:
    bool testRule() const override
    {
        const auto first = getStrip(*getStripAttribute1());
        const auto second = getStrip(*getStripAttribute2());
        return first->getSizeX() == second->getSizeX() && first->getSizeY() == second->getSizeY();
    }
    std::string createRuleFormalString() const override
    {
        return sizeFormal(*getStripAttribute1(), *getStripAttribute2(), "strip", "X and Y");
    }
    std::string createRuleEvaluatedString(unsigned int indentation) const override
    {
        const auto first = getStripAttribute1();
        const auto second = getStripAttribute2();
        return createRuleEvaluatedStartString(indentation) + sizeEvaluated<image::BaseImageFragment>(*first, *getStrip(*first),
                                                                                                     *second, *getStrip(*second),
                                                                                                     "strip", "X and Y");
    }
};

class RuleMatchStripBufferType : public BaseStripRule
{
public:
    bool testRule() const override
    {
        return getStrip(*getStripAttribute1())->getBufferType() == getStrip(*getStripAttribute2())->getBufferType();
    }
    std::string createRuleFormalString() const override
    {
        return bufferTypeFormal(*getStripAttribute1(), *getStripAttribute2(), "strip");
    }
    std::string createRuleEvaluatedString(unsigned int indentation) const override
    {
        const auto first = getStripAttribute1();
        const auto second = getStripAttribute2();
        return createRuleEvaluatedStartString(indentation) +
               bufferTypeEvaluated<image::BaseImageFragment>(*first, *getStrip(*first), *second, *getStrip(*second), "strip");
    }
};

template <class TRule, class TAttribute, class... TArguments>
boost::shared_ptr<BaseRule> makeRule(const boost::weak_ptr<const TAttribute>& first,
                                     const boost::weak_ptr<const TAttribute>& second, const TArguments&... arguments)
{
    const auto rule = boost::make_shared<TRule>(arguments...);
    rule->initBase(first, second);
    return rule;
}
} // namespace

boost::shared_ptr<BaseRule> matchSize(const ImageAttributeWeakPtr& first, const ImageAttributeWeakPtr& second)
{
    return makeRule<RuleMatchImageSize>(first, second, eMIST_All);
}

boost::shared_ptr<BaseRule> matchSize(const eMatchImageSizeType& type, const ImageAttributeWeakPtr& first,
                                      const ImageAttributeWeakPtr& second)
{
    if (type != eMIST_All && type != eMIST_XYZT && type != eMIST_XY)
    {
        throwImageProcessingMessage(eImageRuleMessage::eIRM_UnknownMatch,
                                    {"boost::shared_ptr<kovis::processor::BaseRule> kovis::imaproc::matchSize(const "
                                     "kovis::imaproc::eMatchImageSizeType&, const "
                                     "kovis::imaproc::ImageAttributeWeakPtr&, const kovis::imaproc::ImageAttributeWeakPtr&)",
                                     "KOVIS/KOVISImageProcessing/ImageRule.cpp", __LINE__},
                                    static_cast<int>(type));
    }
    return makeRule<RuleMatchImageSize>(first, second, type);
}

boost::shared_ptr<BaseRule> match2dSize(const ImageAttributeWeakPtr& first, const ImageAttributeWeakPtr& second)
{
    return makeRule<RuleMatchImageSize>(first, second, eMIST_XY);
}

boost::shared_ptr<BaseRule> matchBufferType(const ImageAttributeWeakPtr& first, const ImageAttributeWeakPtr& second)
{
    return makeRule<RuleMatchImageBufferType>(first, second);
}

boost::shared_ptr<BaseRule> matchPlanarSize(const StripAttributeWeakPtr& first, const StripAttributeWeakPtr& second)
{
    return makeRule<RuleMatchStripPlanarSize>(first, second);
}

boost::shared_ptr<BaseRule> matchBufferType(const StripAttributeWeakPtr& first, const StripAttributeWeakPtr& second)
{
    return makeRule<RuleMatchStripBufferType>(first, second);
}
} // namespace kovis::imaproc
