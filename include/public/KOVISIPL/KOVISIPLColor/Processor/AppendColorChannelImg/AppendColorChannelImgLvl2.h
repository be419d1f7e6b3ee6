#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAsyncProcessor.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVISIPL/KOVISIPLAttributes/InSubColorImg2d1.h"
#include "KOVISIPL/KOVISIPLAttributes/InSubColorImg2d2.h"
#include "KOVISIPL/KOVISIPLAttributes/OutColorImg.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// Puts the channels of two 2D images into one, strip by strip. Attributes: InSubColorImg2d1, InSubColorImg2d2, OutColorImg, all
/// to be given by set. Sizes and buffer types must agree, and the output must have as many channels as the inputs together.
class KOVISIPLCOLOR_EXPORT AppendColorChannelImgLvl2 : public processor::BaseAsync1Processor
{
    KOVIS_DECLARE_PROCESSOR(AppendColorChannelImgLvl2);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();

    /// The same on the GPU: stores a provider of one AppendColorChannelImgGpuLvl3 and answers status 0 where GPU support is on
    /// and every image that is set lies on a GPU; status 1 where not, for the caller to go on in host memory; status 2, with a
    /// message, where an attribute is not set. The rule is not tested here, and nothing of this library calls it: run the
    /// provider by kovis::core::runProvider. Throws KOVISBaseProcessingException before init where support is on.
    processor::RetrievalResult tryToLaunchGpuProcess(const core::BasePriority& priority, core::ActionProviderPtr& provider);

protected:
    KOVIS_DECLARE_INIT();
    using processor::BaseAsync1Processor::retrieveProvider;
    processor::RetrievalResult retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) override;

private:
    boost::shared_ptr<processor::BaseRule> createRule() const;

    boost::shared_ptr<attr::InSubColorImg2d1> m_inSubColorImg2d1;
    boost::shared_ptr<attr::InSubColorImg2d2> m_inSubColorImg2d2;
    boost::shared_ptr<attr::OutColorImg> m_outColorImg;
};
} // namespace kovis::imaproc::color
