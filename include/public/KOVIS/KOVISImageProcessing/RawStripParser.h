#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseDataParser.h"
#include "KOVIS/KOVISImageProcessing/BaseStripAttribute.h"
#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingExport.h"

#include <boost/shared_ptr.hpp>

#include <type_traits>

namespace kovis::imaproc
{
namespace detail
{
/// Throws KOVISImageProcessingException.
[[noreturn]] KOVISIMAGEPROCESSING_EXPORT void throwUnboundParser();
} // namespace detail

/// Binds the strip of an attribute of type A.
template <class A>
class BaseRawStripParser : public processor::BaseDataParser
{
public:
    void init(const typename A::StorageType& strip) { m_strip = strip; }
    void clear() override { m_strip.reset(); }
    unsigned long getNbElements() const override { return m_strip ? m_strip->getNbElements() : 0; }
    unsigned long getNbExactElements() const override { return m_strip ? m_strip->getNbExactElements() : 0; }
    void commit() override
    {
        if constexpr (A::g_bOutput)
        {
            if (m_strip)
            {
                m_strip->commit();
            }
        }
    }

protected:
    /// Throws KOVISImageProcessingException if no strip is bound.
    auto& getStrip() const
    {
        if (!m_strip)
        {
            detail::throwUnboundParser();
        }
        return *m_strip;
    }

private:
    typename A::StorageType m_strip;
};

template <class A>
class BaseRawYStripColor2dParser : public BaseRawStripParser<A>
{
};

template <class A>
class BaseRawYStrip2dParser : public BaseRawStripParser<A>
{
};

/// The planes of a colour strip as elements T: const for an input attribute.
template <class T, class A>
class RawYStripUserColor2dParser : public BaseRawYStripColor2dParser<A>
{
public:
    using Element = std::conditional_t<A::g_bOutput, T, const T>;

    /// The first element of a channel's run. Throws KOVISImageProcessingException if no strip is bound.
    virtual Element* accessBuffer(unsigned long channel) { return static_cast<Element*>(this->getStrip().getPlane(channel)); }
};

/// The plane of a one-channel strip as elements T.
template <class T, class A>
class RawYStrip2dParser : public BaseRawYStrip2dParser<A>
{
public:
    using Element = std::conditional_t<A::g_bOutput, T, const T>;

    /// The first element of the plane's run. Throws KOVISImageProcessingException if no strip is bound.
    virtual Element* accessBuffer() { return static_cast<Element*>(this->getStrip().getPlane()); }
};
} // namespace kovis::imaproc
