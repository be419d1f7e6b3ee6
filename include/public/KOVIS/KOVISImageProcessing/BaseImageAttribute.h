#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAttribute.h"
#include "KOVIS/KOVISBaseProcessing/PointerStorage.h"
#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc
{
/// What an image-processing attribute holds.
enum eImageProcessingAttributeType : int
{
    eIPAT_Enumeration = 1,
    eIPAT_Image = 4,
    eIPAT_Strip = 5
};

class KOVISIMAGEPROCESSING_EXPORT BaseImageProcessingAttribute : public processor::BaseAttribute
{
public:
    ~BaseImageProcessingAttribute() override;

    processor::eAttributeType getAttributeType() const override { return processor::eAT_ImageProcessing; }
    virtual eImageProcessingAttributeType getImageProcessingAttributeType() const = 0;

protected:
    BaseImageProcessingAttribute();
};

/// An attribute that holds an image.
class KOVISIMAGEPROCESSING_EXPORT BaseImageAttribute : public BaseImageProcessingAttribute
{
public:
    ~BaseImageAttribute() override;

    eImageProcessingAttributeType getImageProcessingAttributeType() const override { return eIPAT_Image; }
    /// The image, or an empty pointer.
    virtual boost::shared_ptr<const image::BaseImage> getImagePtr() const = 0;
    /// The image, which lives as long as the attribute holds it. Throws KOVISImageProcessingException, with the attribute's name,
    /// if there is none.
    const image::BaseImage& getImage() const;

protected:
    BaseImageAttribute();
};

class KOVISIMAGEPROCESSING_EXPORT BaseInputImageAttribute
    : public processor::PointerStorage<BaseImageAttribute, const image::BaseImage>
{
public:
    using StorageType = boost::shared_ptr<const image::BaseImage>;
    static constexpr bool g_bOutput = false;

    ~BaseInputImageAttribute() override;

    bool isOutput() const override { return false; }
    bool isMandatory() const override { return true; }
    void init(const StorageType& image) { setPointer(image); }
    StorageType getStorage() const { return getPointer(); }
    boost::shared_ptr<const image::BaseImage> getImagePtr() const override { return getPointer(); }

protected:
    BaseInputImageAttribute();
};

class KOVISIMAGEPROCESSING_EXPORT BaseOutputImageAttribute
    : public processor::PointerStorage<BaseImageAttribute, image::BaseImage>
{
public:
    using StorageType = boost::shared_ptr<image::BaseImage>;
    static constexpr bool g_bOutput = true;

    ~BaseOutputImageAttribute() override;

    bool isOutput() const override { return true; }
    bool isMandatory() const override { return true; }
    void init(const StorageType& image) { setPointer(image); }
    StorageType getStorage() const { return getPointer(); }
    boost::shared_ptr<const image::BaseImage> getImagePtr() const override { return getPointer(); }

protected:
    BaseOutputImageAttribute();
};
} // namespace kovis::imaproc
