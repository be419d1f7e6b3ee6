#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAsyncProcessor.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVISIPL/KOVISIPLAttributes/InLightnessType.h"
#include "KOVISIPL/KOVISIPLAttributes/InSubColorImg2d.h"
#include "KOVISIPL/KOVISIPLAttributes/OutLightImg.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// Makes a 2D grey image from a 2D colour image. Attributes: InSubColorImg2d, InLightnessType, OutLightImg, all to be given by
/// set. X, Y and buffer type of input and output must agree, and the output has one channel.
class KOVISIPLCOLOR_EXPORT LightnessImgLvl2 : public processor::BaseAsync1Processor
{
    KOVIS_DECLARE_PROCESSOR(LightnessImgLvl2);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();

protected:
    KOVIS_DECLARE_INIT();
    using processor::BaseAsync1Processor::retrieveProvider;
    processor::RetrievalResult retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) override;

private:
    boost::shared_ptr<attr::InSubColorImg2d> m_inSubColorImg2d;
    boost::shared_ptr<attr::InLightnessType> m_inLightnessType;
    boost::shared_ptr<attr::OutLightImg> m_outLightImg;
};
} // namespace kovis::imaproc::color
