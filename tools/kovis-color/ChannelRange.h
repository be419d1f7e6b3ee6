#pragma once

#include "Picture.h"

#include <cstddef>

namespace kovis::tool
{
/// The least and the greatest finite sample of a channel over all pages.
struct ChannelRange
{
    double minimum = 0.0;
    double maximum = 0.0;
    std::size_t nbFinite = 0;
    std::size_t nbOthers = 0; ///< NaN and infinities
};

ChannelRange measureChannel(const Picture& picture, std::size_t channel);
} // namespace kovis::tool
