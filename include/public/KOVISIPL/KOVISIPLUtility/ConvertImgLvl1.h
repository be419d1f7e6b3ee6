#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAsyncProcessor.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVISIPL/KOVISIPLAttributes/InConvertImageBufferType.h"
#include "KOVISIPL/KOVISIPLAttributes/InImg.h"
#include "KOVISIPL/KOVISIPLAttributes/OutImg.h"
#include "KOVISIPL/KOVISIPLUtility/KOVISIPLUtilityExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::util
{
/// Writes an image with the values of another one in another buffer type, without any scaling. Attributes: InImg,
/// InConvertImageBufferType, OutImg, which must have the input's sizes, channels too, and just that buffer type.
/// To float every value is converted plainly; to an integer type fractions are rounded half away from zero and values saturate; a
/// NaN becomes 0.
class KOVISIPLUTILITY_EXPORT ConvertImgLvl1 : public processor::BaseAsync1Processor
{
    KOVIS_DECLARE_PROCESSOR(ConvertImgLvl1);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();

protected:
    KOVIS_DECLARE_INIT();
    using processor::BaseAsync1Processor::retrieveProvider;
    processor::RetrievalResult retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) override;

private:
    boost::shared_ptr<attr::InImg> m_inImg;
    boost::shared_ptr<attr::InConvertImageBufferType> m_inConvertImageBufferType;
    boost::shared_ptr<attr::OutImg> m_outImg;
};
} // namespace kovis::imaproc::util
