#pragma once

#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVISIPL/KOVISIPLColor/Rule/ColorRuleUtils.h"

namespace kovis::imaproc::color::details
{
/// The rule of levels 1 and 2 over their own attributes: equal X, Y, Z and T, channels that add up, one buffer type.
inline boost::shared_ptr<processor::BaseRule> createAppendRule(const boost::shared_ptr<const BaseImageAttribute>& input1,
                                                               const boost::shared_ptr<const BaseImageAttribute>& input2,
                                                               const boost::shared_ptr<const BaseImageAttribute>& output)
{
    return matchSize(eMIST_XYZT, input1, input2) && matchSize(eMIST_XYZT, input1, output) &&
           matchAppendChannel(input1, input2, output) && matchBufferType(input1, input2) && matchBufferType(input1, output);
}
} // namespace kovis::imaproc::color::details
