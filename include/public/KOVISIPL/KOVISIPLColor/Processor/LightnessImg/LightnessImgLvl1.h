#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAsyncProcessor.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorImg.h"
#include "KOVISIPL/KOVISIPLAttributes/InLightnessType.h"
#include "KOVISIPL/KOVISIPLAttributes/OutLightImg.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// Makes a grey image from a whole image of any size, number of channels and colour space. Attributes: InColorImg,
/// InLightnessType and OutLightImg, which the run makes where none is given: of the input's X, Y, Z, T and buffer type, in
/// eCGT_Grey.
///
/// X, Y, Z, T and buffer type of input and output must agree. eLT_Luminosity is refused unless the input has three channels,
/// which are taken as red, green and blue in whatever space they are. That formula alone is refused so: a number that names none
/// runs as the luminosity of channels 0 to 2 of as many as there are, and fails in level 3 where there are fewer.
///
/// set is there for all three attributes, getStorage for OutLightImg. One run at a time.
class KOVISIPLCOLOR_EXPORT LightnessImgLvl1 : public processor::BaseAsync1Processor
{
    KOVIS_DECLARE_PROCESSOR(LightnessImgLvl1);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();

protected:
    KOVIS_DECLARE_INIT();
    using processor::BaseAsync1Processor::retrieveProvider;
    processor::RetrievalResult retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) override;

private:
    void initAttributeColl(AttributeColl& attributes, OutputInitializerMap& outputInitializers);

    boost::shared_ptr<attr::InColorImg> m_inColorImg;
    boost::shared_ptr<attr::InLightnessType> m_inLightnessType;
    boost::shared_ptr<attr::OutLightImg> m_outLightImg;
    boost::shared_ptr<processor::BaseOutputInitializer> m_outputInitializer;
};
} // namespace kovis::imaproc::color
