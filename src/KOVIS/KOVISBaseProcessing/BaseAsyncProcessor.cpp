#include "KOVIS/KOVISBaseProcessing/BaseAsyncProcessor.h"

#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"
#include "KOVIS/KOVISCore/Scheduler.h"

namespace kovis::processor
{
BaseAsyncProcessor::BaseAsyncProcessor() = default;
BaseAsyncProcessor::~BaseAsyncProcessor() = default;

BoolResult BaseAsyncProcessor::runDerived()
{
    BoolResult result = initProcess();
    if (!result || !(result = preProcess()))
    {
        return result;
    }
    core::detail::RunContext& context = getRunContext();
    const unsigned int nbSteps = retrieveSequenceInfo();
    m_nbWorkingSteps = 0;
    for (unsigned int step = 0; step < nbSteps; ++step)
    {
        if (core::detail::isStopping(context))
        {
            return BoolResult(false, processingText(eProcessorMessage::ePM_Stopped, getObjectName()));
        }
        result = runStep(step, nbSteps);
        if (!result)
        {
            return result;
        }
    }
    result = postProcess();
    return result ? endProcess() : result;
}

BoolResult BaseAsyncProcessor::runStep(unsigned int step, unsigned int nbSteps)
{
    core::detail::RunContext& context = getRunContext();
    core::ActionProviderPtr provider;
    const RetrievalResult retrieval = retrieveProvider(getActionPriority(), step, nbSteps, provider);
    const double share = getProgressShare() / (m_nbWorkingSteps != 0 ? m_nbWorkingSteps : nbSteps);
    switch (retrieval.getStatus())
    {
    case eRS_Provided:
        if (provider == nullptr)
        {
            return BoolResult(false, processingText(eProcessorMessage::ePM_NoProvider, step, nbSteps, getObjectName()));
        }
        if (!core::detail::runNestedProvider(provider, context, share))
        {
            return BoolResult(false, processingText(eProcessorMessage::ePM_Stopped, getObjectName()));
        }
        return BoolResult(true);
    case eRS_NoWork:
        if (m_nbWorkingSteps == 0)
        {
            core::detail::addProgress(context, share);
        }
        return BoolResult(true);
    case eRS_Failed:
        return BoolResult(false, retrieval.getMessage().empty()
                                     ? processingText(eProcessorMessage::ePM_StepFailed, step, nbSteps, getObjectName())
                                     : retrieval.getMessage());
    }
    return BoolResult(false, processingText(eProcessorMessage::ePM_UnknownStatus, step, nbSteps, getObjectName(),
                                            static_cast<int>(retrieval.getStatus())));
}

// The run tells the providers that it pulls from by itself.
void BaseAsyncProcessor::requestCancellationdDerived() {}

BoolResult BaseAsyncProcessor::preProcess()
{
    return BoolResult(true);
}

BoolResult BaseAsyncProcessor::postProcess()
{
    return BoolResult(true);
}

BaseAsync1Processor::BaseAsync1Processor() = default;
BaseAsync1Processor::~BaseAsync1Processor() = default;

eProcessorType BaseAsync1Processor::getProcessorType() const
{
    return eProcessorType::async1;
}

unsigned int BaseAsync1Processor::retrieveSequenceInfo() const
{
    return 1;
}

RetrievalResult BaseAsync1Processor::retrieveProvider(const core::BasePriority& priority, unsigned int, unsigned int,
                                                      core::ActionProviderPtr& provider)
{
    return retrieveProvider(priority, provider);
}

BaseAsync3Processor::BaseAsync3Processor() = default;
BaseAsync3Processor::~BaseAsync3Processor() = default;

eProcessorType BaseAsync3Processor::getProcessorType() const
{
    return eProcessorType::async3;
}

unsigned int BaseAsync3Processor::retrieveSequenceInfo() const
{
    return 3;
}

RetrievalResult BaseAsync3Processor::retrieveProvider(const core::BasePriority& priority, unsigned int step, unsigned int,
                                                      core::ActionProviderPtr& provider)
{
    switch (step)
    {
    case 0:
        return retrieveFirstProvider(priority, provider);
    case 1:
        return retrieveSecondProvider(priority, provider);
    case 2:
        return retrieveThirdProvider(priority, provider);
    default:
        return RetrievalResult(eRS_NoWork);
    }
}
} // namespace kovis::processor
