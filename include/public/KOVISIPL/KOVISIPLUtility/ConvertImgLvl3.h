#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/BaseProcessingAlgorithm.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorYStrip2d.h"
#include "KOVISIPL/KOVISIPLAttributes/OutColorYStrip2d.h"
#include "KOVISIPL/KOVISIPLUtility/KOVISIPLUtilityExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::util
{
/// Converts the elements of one Y strip to the output's buffer type. Attributes: InColorYStrip2d, OutColorYStrip2d, with as many
/// channels each.
class KOVISIPLUTILITY_EXPORT ConvertImgLvl3 : public processor::BaseProcessingAlgorithm
{
    KOVIS_DECLARE_PROCESSOR(ConvertImgLvl3);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();
    KOVIS_DECLARE_ALGORITHM();

    /// The kernel of two element types.
    template <class Tin, class Tout>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    KOVIS_DECLARE_INIT();
    KOVIS_DECLARE_ALGORITHM_STEPS();

private:
    boost::shared_ptr<attr::InColorYStrip2d> m_inColorYStrip2d;
    boost::shared_ptr<attr::OutColorYStrip2d> m_outColorYStrip2d;
    boost::shared_ptr<processor::BaseDataParser> m_inputParser;
    boost::shared_ptr<processor::BaseDataParser> m_outputParser;
};
} // namespace kovis::imaproc::util
