#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseProcessor.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"
#include "KOVIS/KOVISBaseProcessing/RetrievalResult.h"
#include "KOVIS/KOVISCore/BaseActionProvider.h"
#include "KOVIS/KOVISCore/BasePriority.h"

namespace kovis::processor
{
/// A processor whose work is given out in steps. A run: initProcess, preProcess, each step's provider run to its end, one step
/// after the other, postProcess, endProcess.
class KOVISBASEPROCESSING_EXPORT BaseAsyncProcessor : public BaseProcessor
{
public:
    ~BaseAsyncProcessor() override;

protected:
    BaseAsyncProcessor();

    BoolResult runDerived() override;
    void requestCancellationdDerived() override;

    /// The number of steps.
    virtual unsigned int retrieveSequenceInfo() const = 0;
    /// The work of step `step` of `nbSteps`, counted from 0.
    virtual RetrievalResult retrieveProvider(const core::BasePriority& priority, unsigned int step, unsigned int nbSteps,
                                             core::ActionProviderPtr& provider) = 0;
    virtual BoolResult preProcess();
    virtual BoolResult postProcess();

    /// Tells, from within the first step, how many steps of this run will have work: they share the progress. All if it is not
    /// told.
    void setNbWorkingSteps(unsigned int nbSteps) { m_nbWorkingSteps = nbSteps; }

private:
    BoolResult runStep(unsigned int step, unsigned int nbSteps);

    unsigned int m_nbWorkingSteps = 0; ///< 0: not told
};

/// A processor of one step.
class KOVISBASEPROCESSING_EXPORT BaseAsync1Processor : public BaseAsyncProcessor
{
public:
    ~BaseAsync1Processor() override;

protected:
    BaseAsync1Processor();

    eProcessorType getProcessorType() const override;
    unsigned int retrieveSequenceInfo() const override;
    RetrievalResult retrieveProvider(const core::BasePriority& priority, unsigned int step, unsigned int nbSteps,
                                     core::ActionProviderPtr& provider) override;
    /// The work of the one step.
    virtual RetrievalResult retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) = 0;
};

/// A processor of three steps, each asked for when the work of the one before has ended. A step without work is passed over.
class KOVISBASEPROCESSING_EXPORT BaseAsync3Processor : public BaseAsyncProcessor
{
public:
    ~BaseAsync3Processor() override;

protected:
    BaseAsync3Processor();

    eProcessorType getProcessorType() const override;
    unsigned int retrieveSequenceInfo() const override;
    RetrievalResult retrieveProvider(const core::BasePriority& priority, unsigned int step, unsigned int nbSteps,
                                     core::ActionProviderPtr& provider) override;
    virtual RetrievalResult retrieveFirstProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) = 0;
    virtual RetrievalResult retrieveSecondProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) = 0;
    virtual RetrievalResult retrieveThirdProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) = 0;
};
} // namespace kovis::processor
