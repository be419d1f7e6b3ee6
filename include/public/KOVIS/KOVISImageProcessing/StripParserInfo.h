#pragma once

#include "KOVIS/KOVISImageProcessing/RawStripParser.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <type_traits>

namespace kovis::imaproc
{
/// Parsing by raw addresses.
struct RawStripParserMode
{
};

/// Makes the parser of a strip attribute. Its instances stand in the modules that use them.
template <class TMode, class TAttribute, class TBaseAttribute>
struct StripParserInfo;

template <class A>
struct StripParserInfo<RawStripParserMode, A, A>
{
    /// A parser of the attribute's element type, bound to its strip; an empty pointer for a buffer type outside 1 to 11.
    static boost::shared_ptr<processor::BaseDataParser> createParser(const boost::shared_ptr<A>& attribute);

private:
    template <class T>
    static boost::shared_ptr<processor::BaseDataParser> create(const boost::shared_ptr<A>& attribute)
    {
        using Parser = std::conditional_t<std::is_base_of_v<BaseYStripColor2dAttribute, A>, RawYStripUserColor2dParser<T, A>,
                                          RawYStrip2dParser<T, A>>;
        const auto parser = boost::make_shared<Parser>();
        parser->init(attribute->getStorage());
        return parser;
    }
};

template <class A>
boost::shared_ptr<processor::BaseDataParser>
StripParserInfo<RawStripParserMode, A, A>::createParser(const boost::shared_ptr<A>& attribute)
{
    boost::shared_ptr<processor::BaseDataParser> parser;
    int bufferType = attribute->getImageBufferType();
    if (bufferType > 11)
    {
        bufferType = 0;
    }
    switch (bufferType)
    {
    case image::eIBT_Int8:
        parser = create<signed char>(attribute);
        break;
    case image::eIBT_UInt8:
    case image::eIBT_UInt8_8:
    case image::eIBT_UInt8_11:
        parser = create<unsigned char>(attribute);
        break;
    case image::eIBT_Int16:
        parser = create<short>(attribute);
        break;
    case image::eIBT_UInt16:
    case image::eIBT_UInt16_9:
        parser = create<unsigned short>(attribute);
        break;
    case image::eIBT_Int32:
        parser = create<int>(attribute);
        break;
    case image::eIBT_UInt32:
    case image::eIBT_UInt32_10:
        parser = create<unsigned int>(attribute);
        break;
    case image::eIBT_Real:
        parser = create<float>(attribute);
        break;
    default:
        break;
    }
    return parser;
}
} // namespace kovis::imaproc
