#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/BaseProcessingAlgorithm.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVIS/KOVISUtil/eInstructionSet.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorYStrip2d.h"
#include "KOVISIPL/KOVISIPLAttributes/InLightnessType.h"
#include "KOVISIPL/KOVISIPLAttributes/OutLightYStrip2d.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// Makes one Y strip of a grey image from one of a colour image. Attributes: InColorYStrip2d, InLightnessType, OutLightYStrip2d,
/// all to be given by set; the strips are of one size and one buffer type. Values are rounded half away from zero; 8- and 16-bit
/// results always fit, a 32-bit one that does not becomes -2147483648 (int), or 0, in AVX512 4294967295 (unsigned int). Kernels
/// work on whole blocks of up to 64 pixels, so planes need room past their end; strips of images have it.
class KOVISIPLCOLOR_EXPORT LightnessImgLvl3 : public processor::BaseProcessingAlgorithm
{
    KOVIS_DECLARE_PROCESSOR(LightnessImgLvl3);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();
    KOVIS_DECLARE_ALGORITHM();

    /// The kernel of an element type and an instruction set: computes the strip that the parsers are bound to. Throws
    /// KOVISIPLColorException for the luminosity of fewer than three channels, and where no strips are bound or strips of another
    /// element type.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    KOVIS_DECLARE_INIT();
    KOVIS_DECLARE_ALGORITHM_STEPS();

private:
    boost::shared_ptr<attr::InColorYStrip2d> m_inColorYStrip2d;
    boost::shared_ptr<attr::InLightnessType> m_inLightnessType;
    boost::shared_ptr<attr::OutLightYStrip2d> m_outLightYStrip2d;
    boost::shared_ptr<processor::BaseDataParser> m_inputParser;
    boost::shared_ptr<processor::BaseDataParser> m_outputParser;
};
} // namespace kovis::imaproc::color
