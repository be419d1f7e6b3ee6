#pragma once

#include "KOVIS/KOVISBaseProcessing/PointerStorage.h"
#include "KOVIS/KOVISImage/ImageStrip.h"
#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc
{
/// An attribute that holds a strip of an image.
class KOVISIMAGEPROCESSING_EXPORT BaseStripAttribute : public BaseImageProcessingAttribute
{
public:
    ~BaseStripAttribute() override;

    eImageProcessingAttributeType getImageProcessingAttributeType() const override { return eIPAT_Strip; }
    /// The strip's buffer type; eIBT_None if there is no strip.
    const image::eImageBufferType& getImageBufferType() const;
    /// The strip, or an empty pointer.
    virtual boost::shared_ptr<const image::BaseImageYStrip> getBaseImageYStripPtr() const = 0;

protected:
    BaseStripAttribute();
};

/// An attribute that holds a strip of a colour image.
class KOVISIMAGEPROCESSING_EXPORT BaseYStripColor2dAttribute : public BaseStripAttribute
{
public:
    ~BaseYStripColor2dAttribute() override;

    /// The strip, which lives as long as the attribute holds it. Throws KOVISImageProcessingException, with the attribute's name,
    /// if there is none.
    const image::BaseImageYStripColor2d& getBaseImageYStripColor2d() const;

protected:
    BaseYStripColor2dAttribute();
};

class KOVISIMAGEPROCESSING_EXPORT BaseInputYStripColor2dAttribute
    : public processor::PointerStorage<BaseYStripColor2dAttribute, image::InputImageYStripColor2d>
{
public:
    using StorageType = boost::shared_ptr<image::InputImageYStripColor2d>;
    static constexpr bool g_bOutput = false;

    ~BaseInputYStripColor2dAttribute() override;

    bool isOutput() const override { return false; }
    bool isMandatory() const override { return true; }
    void init(const StorageType& strip) { setPointer(strip); }
    StorageType getStorage() const { return getPointer(); }
    boost::shared_ptr<const image::BaseImageYStrip> getBaseImageYStripPtr() const override { return getPointer(); }

protected:
    BaseInputYStripColor2dAttribute();
};

class KOVISIMAGEPROCESSING_EXPORT BaseOutputYStripColor2dAttribute
    : public processor::PointerStorage<BaseYStripColor2dAttribute, image::OutputImageYStripColor2d>
{
public:
    using StorageType = boost::shared_ptr<image::OutputImageYStripColor2d>;
    static constexpr bool g_bOutput = true;

    ~BaseOutputYStripColor2dAttribute() override;

    bool isOutput() const override { return true; }
    bool isMandatory() const override { return true; }
    void init(const StorageType& strip) { setPointer(strip); }
    StorageType getStorage() const { return getPointer(); }
    boost::shared_ptr<const image::BaseImageYStrip> getBaseImageYStripPtr() const override { return getPointer(); }

protected:
    BaseOutputYStripColor2dAttribute();
};

/// An attribute that holds a strip of a one-channel image, to write.
class KOVISIMAGEPROCESSING_EXPORT BaseOutputYStrip2dAttribute
    : public processor::PointerStorage<BaseStripAttribute, image::OutputImageYStrip2d>
{
public:
    using StorageType = boost::shared_ptr<image::OutputImageYStrip2d>;
    static constexpr bool g_bOutput = true;

    ~BaseOutputYStrip2dAttribute() override;

    bool isOutput() const override { return true; }
    bool isMandatory() const override { return true; }
    void init(const StorageType& strip) { setPointer(strip); }
    StorageType getStorage() const { return getPointer(); }
    boost::shared_ptr<const image::BaseImageYStrip> getBaseImageYStripPtr() const override { return getPointer(); }

protected:
    BaseOutputYStrip2dAttribute();
};
} // namespace kovis::imaproc
