#pragma once

#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISImage/HostImage.h"
#include "KOVIS/KOVISImage/KOVISImageExport.h"
#include "KOVIS/KOVISUtil/ElementsRange.h"

#include <boost/shared_ptr.hpp>

#include <memory>
#include <vector>

namespace kovis::image
{
/// A part of an image, with its own geometry.
class KOVISIMAGE_EXPORT BaseImageFragment
{
public:
    virtual ~BaseImageFragment();
    BaseImageFragment(const BaseImageFragment&) = delete;
    BaseImageFragment& operator=(const BaseImageFragment&) = delete;

    /// The fragment's shape; X and Y are what the fragment covers.
    const BaseImageGeometry& getGeometry() const { return m_geometry; }
    const eImageBufferType& getBufferType() const { return m_geometry.getBufferType(); }
    unsigned long getSizeX() const { return m_geometry.getSizeX(); }
    unsigned long getSizeY() const { return m_geometry.getSizeY(); }

protected:
    explicit BaseImageFragment(const BaseImageGeometry& geometry) : m_geometry(geometry) {}

private:
    const BaseImageGeometry m_geometry;
};

/// How a strip takes its elements from the rows that it is made of.
enum class eStripElements
{
    exact,      ///< just the elements of its rows
    wholeBlocks ///< the whole blocks of 64 that begin in its rows; in the last strip up to the plane's end rounded up
};

/// The planes of one Y strip: for each channel, a flat run of elements that whole blocks can be read from and written to.
/// Where a plane has no room for that, its part is a staging buffer: filled from the plane, and for an output copied back by
/// commit.
class KOVISIMAGE_EXPORT BaseImageYStrip : public BaseImageFragment
{
public:
    ~BaseImageYStrip() override;

    /// Elements per plane, rounded up to whole blocks of 64: that many may be read and, in an output strip, written.
    unsigned long getNbElements() const { return m_nbElements; }
    /// How many of them are elements of the image.
    unsigned long getNbExactElements() const { return m_nbExactElements; }
    /// Where the strip's first element lies in the image's planes.
    unsigned long getFirstElement() const { return m_firstElement; }
    /// Where the strip's first element of a channel lies in the image's own plane, staged or not: two strips of one memory give
    /// the same address. Throws KOVISImageException for a channel out of range.
    const void* getSourceAddress(unsigned long channel) const;

protected:
    /// `range` is a range of elements of the planes of a 2D image: the rows that the strip is made of, one after the other, or a
    /// part of one row; a strip of whole rows has the image's width, any other is one row. Throws KOVISImageException for a null
    /// image, one that is not in host memory or not 2D, a range past a plane's end, and a staging buffer that cannot be had.
    /// Strips of one image may be made on several threads at once.
    BaseImageYStrip(const boost::shared_ptr<const BaseImage>& image, const ElementsRange& range, eStripElements elements);

    void* getPlaneAddress(unsigned long channel) const;
    void commitPlanes();

private:
    void bindPlanes();
    void checkChannel(unsigned long channel, const char* function, unsigned int line) const;

    boost::shared_ptr<const BaseImage> m_image;
    unsigned long m_firstElement = 0;
    unsigned long m_nbElements = 0;
    unsigned long m_nbExactElements = 0;
    std::vector<void*> m_planes;
    std::vector<std::unique_ptr<unsigned char[]>> m_staging;
};

/// One Y strip of a colour image.
class KOVISIMAGE_EXPORT BaseImageYStripColor2d : public BaseImageYStrip
{
public:
    ~BaseImageYStripColor2d() override;

    const eColorGeometryType& getColorGeometryType() const { return getGeometry().getColorGeometry().getColorGeometryType(); }
    unsigned long getSizeC() const { return getGeometry().getSizeC(); }

protected:
    using BaseImageYStrip::BaseImageYStrip;
};

/// The read side of a strip of a colour image.
class KOVISIMAGE_EXPORT InputImageYStripColor2d : public BaseImageYStripColor2d
{
public:
    InputImageYStripColor2d(const boost::shared_ptr<const BaseImage>& image, const ElementsRange& range, eStripElements elements);
    ~InputImageYStripColor2d() override;

    /// The first element of a channel's run. Throws KOVISImageException for a channel out of range.
    const void* getPlane(unsigned long channel) const { return getPlaneAddress(channel); }
};

/// The write side of a strip of a colour image.
class KOVISIMAGE_EXPORT OutputImageYStripColor2d : public BaseImageYStripColor2d
{
public:
    OutputImageYStripColor2d(const boost::shared_ptr<BaseImage>& image, const ElementsRange& range, eStripElements elements);
    ~OutputImageYStripColor2d() override;

    void* getPlane(unsigned long channel) const { return getPlaneAddress(channel); }
    /// Brings what was written into the image, for planes that are staged. Call it once the kernel has ended.
    void commit() { commitPlanes(); }
};

/// The write side of a strip of a one-channel image.
class KOVISIMAGE_EXPORT OutputImageYStrip2d : public BaseImageYStrip
{
public:
    /// Throws KOVISImageException for an image of more than one channel.
    OutputImageYStrip2d(const boost::shared_ptr<BaseImage>& image, const ElementsRange& range, eStripElements elements);
    ~OutputImageYStrip2d() override;

    void* getPlane() const { return getPlaneAddress(0); }
    void commit() { commitPlanes(); }
};
} // namespace kovis::image
