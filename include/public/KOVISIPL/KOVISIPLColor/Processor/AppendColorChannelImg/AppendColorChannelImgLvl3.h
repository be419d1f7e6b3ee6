#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/BaseProcessingAlgorithm.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVIS/KOVISUtil/eInstructionSet.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorYStrip2.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorYStrip2d1.h"
#include "KOVISIPL/KOVISIPLAttributes/OutColorYStrip2d.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// Puts the channels of two Y strips into one. Attributes: InColorYStrip2d1, InColorYStrip2, OutColorYStrip2d, all to be given by
/// set. No rule is tested. Buffer types may differ: each input is converted by itself, floats are truncated toward zero, and what
/// lies outside the output's range becomes what the instruction sets in use make of it. The output must have room for the
/// channels of both inputs. Kernels work on whole blocks, so a strip's planes need room past their end; strips of images have it.
class KOVISIPLCOLOR_EXPORT AppendColorChannelImgLvl3 : public processor::BaseProcessingAlgorithm
{
    KOVIS_DECLARE_PROCESSOR(AppendColorChannelImgLvl3);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();
    KOVIS_DECLARE_ALGORITHM();

    /// The kernel of three element types and an instruction set: works on the strips that the parsers are bound to. Throws
    /// KOVISIPLColorException for an output of fewer channels than the inputs have together.
    template <class T1, class T2, class Tout, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    KOVIS_DECLARE_INIT();
    KOVIS_DECLARE_ALGORITHM_STEPS();

private:
    boost::shared_ptr<attr::InColorYStrip2d1> m_inColorYStrip2d1;
    boost::shared_ptr<attr::InColorYStrip2> m_inColorYStrip2;
    boost::shared_ptr<attr::OutColorYStrip2d> m_outColorYStrip2d;
    boost::shared_ptr<processor::BaseDataParser> m_inputParser1;
    boost::shared_ptr<processor::BaseDataParser> m_inputParser2;
    boost::shared_ptr<processor::BaseDataParser> m_outputParser;
};
} // namespace kovis::imaproc::color
