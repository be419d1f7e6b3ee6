#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAttribute.h"
#include "KOVIS/KOVISBaseProcessing/BaseObjectInfo.h"
#include "KOVIS/KOVISBaseProcessing/BaseOutputInitializer.h"
#include "KOVIS/KOVISBaseProcessing/BaseRule.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"
#include "KOVIS/KOVISBaseProcessing/ProcessorDispatchPolicy.h"
#include "KOVIS/KOVISCore/BaseAction.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"

#include <boost/shared_ptr.hpp>

#include <map>
#include <string>
#include <vector>

namespace kovis::processor
{
/// Whether a processor's rule is built and tested.
enum eProcessorRulePolicy : int
{
    ePRP_Rules = 0,
    ePRP_NoRules = 1
};

enum class eProcessorType
{
    sync,
    async1,
    async3
};

/// A processor: named attributes, a rule on them, and a run. The life of one:
///   1. It is made: no attribute exists yet.
///   2. init makes the attributes, output initializers, dispatch policy and rule (initDerived).
///   3. set gives the attributes their values; nothing is checked yet.
///   4. A run checks in this order: every mandatory input is set and not null; outputs that are not set are made by their
///      initializers, and one that is neither is an error; the rule holds. Then it does its work.
///   5. Afterwards the outputs keep their values. An image that an initializer made for a run that failed is taken out again.
/// A second init replaces all attributes; it is refused while a run is under way.
class KOVISBASEPROCESSING_EXPORT BaseProcessor : public core::BaseComplexAction, public BaseObjectInfo
{
public:
    ~BaseProcessor() override;

    /// Makes the processor ready for its values. False, with a message, if it could not be done; the processor is then not
    /// initialised.
    BoolResult init(eProcessorRulePolicy rulePolicy = ePRP_Rules);
    bool isInitialised() const { return m_bInitialised; }

    /// The attribute of that name, or an empty pointer.
    boost::shared_ptr<BaseAttribute> getAttribute(const std::string& name) const;
    /// The attributes' names, in their order.
    std::vector<std::string> getAttributeNameColl() const;
    /// The rule that init built, or an empty pointer.
    const boost::shared_ptr<BaseRule>& getRule() const { return m_rule; }
    const ProcessorDispatchPolicy& getDispatchPolicy() const { return m_dispatchPolicy; }

    /// Writes a section with the class, the rule policy and, within it, a section for each attribute whose value an archive
    /// keeps. Always true. Throws what the archive throws. A processor that is not initialised has no values.
    BoolResult write(BaseOArchive& archive) const override;
    /// Initialises the processor with the rule policy that was written, and gives its attributes the values that were; the
    /// others, images above all, are not set. False, with a message, where init gives that. Throws KOVISSerializationException
    /// for the section of another class, and what the archive throws; the processor is then not to be used before another init or
    /// read.
    BoolResult read(BaseIArchive& archive) override;

protected:
    using AttributeColl = std::vector<boost::shared_ptr<BaseAttribute>>;
    /// By the name of the attribute that each makes the value of.
    using OutputInitializerMap = std::map<std::string, boost::shared_ptr<BaseOutputInitializer>>;

    BaseProcessor();

    /// Drops the values of all attributes.
    void globalCleanDerived() override;
    BoolResult syncInputDataDerived(const Guid& computer) override;
    BoolResult syncOutputDataDerived(const Guid& computer) override;
    /// Drops the values of all inputs.
    void clearInputData() override;
    /// Takes out what initializers of this run made, unless it has been replaced since. Called when a run failed or was
    /// cancelled.
    void clearOutputData() override;

    /// Puts an output that a class's own step has just made among what this run has made: a run that fails or is cancelled takes
    /// it out again, one that goes well keeps it. To be called on the thread of the run, right after the output was made.
    void noteMadeOutput(const boost::shared_ptr<BaseAttribute>& attribute);

    /// Checks inputs, makes outputs, tests the rule. First thing of a run.
    virtual BoolResult initProcess();
    /// Last thing of a run that went well.
    virtual BoolResult endProcess();
    virtual eProcessorType getProcessorType() const = 0;
    /// Makes attributes, output initializers (under the name of their attribute), dispatch policy and, unless the policy asks for
    /// none, the rule.
    virtual BoolResult initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                   ProcessorDispatchPolicy& dispatchPolicy, boost::shared_ptr<BaseRule>& rule,
                                   const eProcessorRulePolicy& rulePolicy) = 0;

private:
    AttributeColl m_attributes;
    OutputInitializerMap m_outputInitializers;
    ProcessorDispatchPolicy m_dispatchPolicy;
    boost::shared_ptr<BaseRule> m_rule;
    /// An output that an initializer of this run made, and the attribute's count of changes right afterwards.
    struct MadeOutput
    {
        boost::shared_ptr<BaseAttribute> m_attribute;
        unsigned long m_nbChanges;
    };

    BoolResult checkInputs() const;
    BoolResult makeOutputs();

    std::vector<MadeOutput> m_madeOutputs;
    bool m_bInitialised = false;
    eProcessorRulePolicy m_rulePolicy = ePRP_Rules;
};

/// Runs a processor to the end, on the calling thread and the workers. Throws what the run failed with (see
/// kovis::core::executeAction), and KOVISBaseProcessingException for an empty pointer and a processor that is not initialised.
KOVISBASEPROCESSING_EXPORT void executeSyncRun(const boost::shared_ptr<BaseProcessor>& processor);
} // namespace kovis::processor
