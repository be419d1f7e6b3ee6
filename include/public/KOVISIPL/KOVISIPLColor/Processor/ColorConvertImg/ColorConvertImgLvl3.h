#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/BaseProcessingAlgorithm.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVIS/KOVISUtil/eInstructionSet.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorYStrip2d.h"
#include "KOVISIPL/KOVISIPLAttributes/OutColorYStrip2d.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// Converts one Y strip of a colour image. Attributes: InColorYStrip2d, InColorConversionTransform, OutColorYStrip2d, all to be
/// given by set. Its kernels work on whole blocks, so a strip's planes need room past their end; strips of images have it. Where
/// the chain of spaces has three entries or more, the number of elements must be a multiple of the block, as it always is in a
/// run. The same planes may be input and output: rows are then written one after the other within a block.
class KOVISIPLCOLOR_EXPORT ColorConvertImgLvl3 : public processor::BaseProcessingAlgorithm
{
    KOVIS_DECLARE_PROCESSOR(ColorConvertImgLvl3);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();
    KOVIS_DECLARE_ALGORITHM();

    /// The kernel of two element types and a pair of instruction sets: converts the strip that the parsers are bound to. Throws
    /// KOVISIPLColorException for a user matrix that is too short.
    template <class Tin, class Tout, eInstructionSet::domain A, eInstructionSet::domain B>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    KOVIS_DECLARE_INIT();
    KOVIS_DECLARE_ALGORITHM_STEPS();

private:
    boost::shared_ptr<attr::InColorYStrip2d> m_inColorYStrip2d;
    boost::shared_ptr<attr::InColorConversionTransform> m_inColorConversionTransform;
    boost::shared_ptr<attr::OutColorYStrip2d> m_outColorYStrip2d;
    boost::shared_ptr<processor::BaseDataParser> m_inputParser;
    boost::shared_ptr<processor::BaseDataParser> m_outputParser;
};
} // namespace kovis::imaproc::color
