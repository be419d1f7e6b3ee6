#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAsyncProcessor.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVISIPL/KOVISIPLAttributes/InSubColorImg2d.h"
#include "KOVISIPL/KOVISIPLAttributes/OutSubColorImg2d.h"
#include "KOVISIPL/KOVISIPLUtility/KOVISIPLUtilityExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::util
{
/// Converts the elements of one 2D image with all its channels, strip by strip, to the output's buffer type. Attributes:
/// InSubColorImg2d, OutSubColorImg2d, of the same sizes.
class KOVISIPLUTILITY_EXPORT ConvertImgLvl2 : public processor::BaseAsync1Processor
{
    KOVIS_DECLARE_PROCESSOR(ConvertImgLvl2);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();

protected:
    KOVIS_DECLARE_INIT();
    using processor::BaseAsync1Processor::retrieveProvider;
    processor::RetrievalResult retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) override;

private:
    boost::shared_ptr<attr::InSubColorImg2d> m_inSubColorImg2d;
    boost::shared_ptr<attr::OutSubColorImg2d> m_outSubColorImg2d;
};
} // namespace kovis::imaproc::util
