#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAsyncProcessor.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLAttributes/InSubColorImg2d.h"
#include "KOVISIPL/KOVISIPLAttributes/OutSubColorImg2d.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// Converts one 2D image with all its channels from one colour space to another, strip by strip. Attributes: InSubColorImg2d,
/// InColorConversionTransform, OutSubColorImg2d, all to be given by set. X and Y must agree, and the output must be in the target
/// space. The range of the samples is not looked at.
class KOVISIPLCOLOR_EXPORT ColorConvertImgLvl2 : public processor::BaseAsync1Processor
{
    KOVIS_DECLARE_PROCESSOR(ColorConvertImgLvl2);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();

protected:
    KOVIS_DECLARE_INIT();
    using processor::BaseAsync1Processor::retrieveProvider;
    processor::RetrievalResult retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) override;

private:
    boost::shared_ptr<attr::InSubColorImg2d> m_inSubColorImg2d;
    boost::shared_ptr<attr::InColorConversionTransform> m_inColorConversionTransform;
    boost::shared_ptr<attr::OutSubColorImg2d> m_outSubColorImg2d;
};
} // namespace kovis::imaproc::color
