#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseRule.h"
#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVIS/KOVISImageProcessing/BaseStripAttribute.h"
#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc
{
/// A rule on the attributes of image processing.
class KOVISIMAGEPROCESSING_EXPORT BaseImageProcessingRule : public processor::BaseAttributeRule
{
public:
    ~BaseImageProcessingRule() override;

protected:
    BaseImageProcessingRule();
};

/// A rule on up to two attributes, images among them.
class KOVISIMAGEPROCESSING_EXPORT BaseImageRule : public BaseImageProcessingRule
{
public:
    ~BaseImageRule() override;

    processor::eAttributeRuleType getAttributeRuleType() const override;

protected:
    BaseImageRule();

    /// An attribute as an image attribute. Each throws KOVISImageProcessingException for an attribute of another kind, and what
    /// getAttribute1 and getAttribute2 throw.
    boost::shared_ptr<const BaseImageAttribute> getImageAttribute1() const;
    boost::shared_ptr<const BaseImageAttribute> getImageAttribute2() const;
};

/// A rule on up to two attributes, strips among them.
class KOVISIMAGEPROCESSING_EXPORT BaseStripRule : public BaseImageProcessingRule
{
public:
    ~BaseStripRule() override;

    processor::eAttributeRuleType getAttributeRuleType() const override;

protected:
    BaseStripRule();

    /// An attribute as a strip attribute. Each throws KOVISImageProcessingException for an attribute of another kind, and what
    /// getAttribute1 and getAttribute2 throw.
    boost::shared_ptr<const BaseStripAttribute> getStripAttribute1() const;
    boost::shared_ptr<const BaseStripAttribute> getStripAttribute2() const;
};

/// A rule on an enumeration that image processing is given as a parameter.
class KOVISIMAGEPROCESSING_EXPORT BaseIPEnumRule : public BaseImageProcessingRule
{
public:
    ~BaseIPEnumRule() override;

    processor::eAttributeRuleType getAttributeRuleType() const override;

protected:
    BaseIPEnumRule();
};

/// Holds if one image, the first attribute, has a property of its own.
class KOVISIMAGEPROCESSING_EXPORT BaseImagePropertyRule : public BaseImageRule
{
public:
    ~BaseImagePropertyRule() override;

protected:
    BaseImagePropertyRule();
};

/// Holds if an image, the first attribute, and a parameter, the second one, fit each other.
class KOVISIMAGEPROCESSING_EXPORT BaseImageBinaryMixedRule : public BaseImageRule
{
public:
    ~BaseImageBinaryMixedRule() override;

    processor::eAttributeRuleType getAttributeRuleType() const override;

protected:
    BaseImageBinaryMixedRule();
};

/// The same for a strip and a parameter.
class KOVISIMAGEPROCESSING_EXPORT BaseStripBinaryMixedRule : public BaseStripRule
{
public:
    ~BaseStripBinaryMixedRule() override;

    processor::eAttributeRuleType getAttributeRuleType() const override;

protected:
    BaseStripBinaryMixedRule();
};

/// Holds if a range of values fits the buffer type of an image.
class KOVISIMAGEPROCESSING_EXPORT BaseRuleMatchImageRange : public BaseImageBinaryMixedRule
{
public:
    ~BaseRuleMatchImageRange() override;

protected:
    BaseRuleMatchImageRange();
};

/// Holds if a number fits the size of an image.
class KOVISIMAGEPROCESSING_EXPORT BaseRuleMatchScalarToImageSize : public BaseImageBinaryMixedRule
{
public:
    ~BaseRuleMatchScalarToImageSize() override;

protected:
    BaseRuleMatchScalarToImageSize();
};

/// Holds if a range of values fits the buffer type of a strip.
class KOVISIMAGEPROCESSING_EXPORT BaseRuleMatchStripRange : public BaseStripBinaryMixedRule
{
public:
    ~BaseRuleMatchStripRange() override;

protected:
    BaseRuleMatchStripRange();
};
} // namespace kovis::imaproc
