#pragma once

#include "KOVIS/KOVISImageProcessing/RawStripParser.h"

#include <memory>

// How a kernel's driver gets at the planes of its strips.

namespace kovis::imaproc::color::details
{
/// Throws KOVISIPLColorException, logged before: a kernel of the class was called without the parsers of its strips.
[[noreturn]] void throwUnboundStrip(const char* className);

/// The parser as a TParser. Throws KOVISIPLColorException, with the class's name, if there is none or one of another type.
template <class TParser>
TParser& accessParser(const boost::shared_ptr<processor::BaseDataParser>& parser, const char* className)
{
    auto* const typed = dynamic_cast<TParser*>(parser.get());
    if (typed == nullptr)
    {
        throwUnboundStrip(className);
    }
    return *typed;
}

/// The address of each channel's run in the colour strip of elements T that the attribute holds; const for an input attribute A.
/// Throws as accessParser does, before it looks at the attribute: neither is there before init.
template <class T, class A>
auto accessPlanes(const boost::shared_ptr<processor::BaseDataParser>& parser, const A* attribute, const char* className)
{
    auto& typed = accessParser<RawYStripUserColor2dParser<T, A>>(parser, className);
    const unsigned long nbChannels = attribute->getBaseImageYStripColor2d().getSizeC();
    using Element = typename RawYStripUserColor2dParser<T, A>::Element;
    std::unique_ptr<Element*[]> planes(new Element*[nbChannels]);
    for (unsigned long c = 0; c < nbChannels; ++c)
    {
        planes[c] = typed.accessBuffer(c);
    }
    return planes;
}
} // namespace kovis::imaproc::color::details
