#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAsyncProcessor.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVISIPL/KOVISIPLAttributes/InImg1.h"
#include "KOVISIPL/KOVISIPLAttributes/InImg2.h"
#include "KOVISIPL/KOVISIPLAttributes/OutColorImg.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// Puts the channels of two whole images into one, those of the first before those of the second. Attributes: InImg1, InImg2 and
/// OutColorImg, which the run makes where none is given: of the first input's size and buffer type, in eCGT_User.
///
/// X, Y, Z and T of all three must agree, their buffer types must be the same value, and the output must have as many channels as
/// the inputs together. The colour spaces are not looked at.
///
/// set is there for all three, getStorage for OutColorImg. One run at a time.
class KOVISIPLCOLOR_EXPORT AppendColorChannelImgLvl1 : public processor::BaseAsync1Processor
{
    KOVIS_DECLARE_PROCESSOR(AppendColorChannelImgLvl1);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();

protected:
    KOVIS_DECLARE_INIT();
    using processor::BaseAsync1Processor::retrieveProvider;
    processor::RetrievalResult retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) override;

private:
    void initAttributeColl(AttributeColl& attributes, OutputInitializerMap& outputInitializers);
    boost::shared_ptr<processor::BaseRule> createRule() const;

    boost::shared_ptr<attr::InImg1> m_inImg1;
    boost::shared_ptr<attr::InImg2> m_inImg2;
    boost::shared_ptr<attr::OutColorImg> m_outColorImg;
    boost::shared_ptr<processor::BaseOutputInitializer> m_outputInitializer;
};
} // namespace kovis::imaproc::color
