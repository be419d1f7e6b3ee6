#pragma once

#include "KOVIS/KOVISImageProcessing/BufferTypeKeys.h"
#include "KOVIS/KOVISImageProcessing/StripParserInfo.h"

#include <boost/shared_ptr.hpp>

#include <initializer_list>
#include <vector>

// What the classes that process strips have in common: the key of their kernels, and the parsers of their strips.

namespace kovis::imaproc
{
/// An attribute's part of the key that the selector is asked with.
inline ImageBufferTypeIdentifier getTypeIdentifier(const BaseStripAttribute& attribute)
{
    return getTypeIdentifier(attribute.getImageBufferType());
}

/// Makes the parser of a strip attribute, if there is an attribute, keeps it in the class's member and adds it to the collection.
/// A is the strip attribute's base, which names the kind of strip.
template <class A>
void addParser(const boost::shared_ptr<A>& attribute, boost::shared_ptr<processor::BaseDataParser>& member,
               std::vector<boost::shared_ptr<processor::BaseDataParser>>& parsers)
{
    if (attribute)
    {
        member = StripParserInfo<RawStripParserMode, A, A>::createParser(attribute);
        parsers.push_back(member);
    }
}

/// Clears and releases the parsers of these members.
inline void clearParsers(std::initializer_list<boost::shared_ptr<processor::BaseDataParser>*> members)
{
    for (boost::shared_ptr<processor::BaseDataParser>* const member : members)
    {
        if (*member)
        {
            (*member)->clear();
            member->reset();
        }
    }
}
} // namespace kovis::imaproc
