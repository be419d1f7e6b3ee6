#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAsyncProcessor.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorImg.h"
#include "KOVISIPL/KOVISIPLAttributes/OutColorImg.h"
#include "KOVISIPL/KOVISIPLAttributes/OutOptWk1RealImg.h"
#include "KOVISIPL/KOVISIPLAttributes/StatsResult.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// Converts a whole image of any size from one colour space to another. Attributes: InColorImg, InColorConversionTransform,
/// OutOptWk1RealImg (a working image; nobody needs to give one) and OutColorImg, which the run makes where none is given.
///
/// X, Y, Z and T of input and output must agree, and the output must be in the transform's target space. From eCGT_Rgb to
/// eCGT_CieLab or eCGT_XYZ the image is measured first, and a value outside 0 to 255 ends the run with a KOVISIPLColorException
/// before anything is written; an image that is not of float is then converted to the float working image. A float image goes to
/// level 2 twice, the second time from the working image, which holds zeros: who needs the result of the first runs level 2
/// alone.
///
/// set is there for InColorImg, InColorConversionTransform and OutColorImg, getStorage for OutColorImg. One run at a time.
class KOVISIPLCOLOR_EXPORT ColorConvertImgLvl1 : public processor::BaseAsync3Processor
{
    KOVIS_DECLARE_PROCESSOR(ColorConvertImgLvl1);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();

protected:
    KOVIS_DECLARE_INIT();
    /// Measures the input where the conversion asks for that, otherwise converts it.
    processor::RetrievalResult retrieveFirstProvider(const core::BasePriority& priority,
                                                     core::ActionProviderPtr& provider) override;
    /// Tests the measured range and makes the working image; no work for all other conversions.
    processor::RetrievalResult retrieveSecondProvider(const core::BasePriority& priority,
                                                      core::ActionProviderPtr& provider) override;
    /// Converts the working image; no work for all other conversions.
    processor::RetrievalResult retrieveThirdProvider(const core::BasePriority& priority,
                                                     core::ActionProviderPtr& provider) override;

private:
    void initAttributeColl(AttributeColl& attributes, OutputInitializerMap& outputInitializers);
    boost::shared_ptr<processor::BaseRule> createRule() const;
    /// Whether the conversion reads its samples on the scale 0 to 255 by the sRGB curve, and so needs them measured.
    bool isRangeTestNeeded() const;
    processor::RetrievalResult stats(const core::BasePriority& priority, core::ActionProviderPtr& provider);
    processor::RetrievalResult convert(const core::BasePriority& priority, core::ActionProviderPtr& provider);
    processor::RetrievalResult callLvl2(const core::BasePriority& priority, core::ActionProviderPtr& provider);
    processor::RetrievalResult provideProcessor(const boost::shared_ptr<core::BaseAction>& action,
                                                const core::BasePriority& priority, core::ActionProviderPtr& provider);

    boost::shared_ptr<attr::InColorImg> m_inColorImg;
    boost::shared_ptr<attr::InColorConversionTransform> m_inColorConversionTransform;
    boost::shared_ptr<attr::OutOptWk1RealImg> m_outOptWk1RealImg;
    boost::shared_ptr<attr::OutColorImg> m_outColorImg;
    boost::shared_ptr<const image::BaseImage> m_currentSource; ///< what level 2 reads in the next callLvl2
    boost::shared_ptr<attr::StatsResult> m_statsResult;
};
} // namespace kovis::imaproc::color
