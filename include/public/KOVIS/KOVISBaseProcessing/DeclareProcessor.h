#pragma once

#include "KOVIS/KOVISBaseProcessing/ProcessorDispatchPolicy.h"
#include "KOVIS/KOVISSerialization/BaseArchive.h"
#include "KOVIS/KOVISUtil/BaseDynamicObject.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"

#include <boost/shared_ptr.hpp>
#include <boost/utility/enable_if.hpp>

#include <string>

namespace kovis::processor
{
class BaseProcessor;
struct ProcessorSourceLocation;
} // namespace kovis::processor

/// The operations that every processor class has, in the public part of its declaration:
///   - createNewObject, createSharedObject, createProcessor, createBaseProcessor: a new processor, not initialised;
///   - getTypeName (with namespaces), getObjectNameStr, getToolTipStr: texts that live as long as the library, made at first use,
///     from any thread;
///   - getDefaultDispatchPolicy, getVersion, getSourceLocation;
///   - copy, duplicate, duplicateShared: always throw KOVISUtilException, for processors have no copy support;
///   - write, read: the base's part, and the class's version once per class and archive. read throws KOVISSerializationException
///     for the version of a newer program.
#define KOVIS_DECLARE_PROCESSOR(CLASS)                                                                                           \
public:                                                                                                                          \
    CLASS();                                                                                                                     \
    ~CLASS() override;                                                                                                           \
                                                                                                                                 \
    static ::kovis::BaseDynamicObject* createNewObject();                                                                        \
    static ::kovis::DynamicObjectPtr createSharedObject();                                                                       \
    static boost::shared_ptr<CLASS> createProcessor();                                                                           \
    static boost::shared_ptr<::kovis::processor::BaseProcessor> createBaseProcessor();                                           \
    static const std::string& getTypeName();                                                                                     \
    static const std::string& getObjectNameStr();                                                                                \
    static const std::string& getToolTipStr();                                                                                   \
    static const ::kovis::processor::ProcessorDispatchPolicy& getDefaultDispatchPolicy();                                        \
    static unsigned int getVersion();                                                                                            \
    static const ::kovis::processor::ProcessorSourceLocation& getSourceLocation();                                               \
                                                                                                                                 \
    const std::string& getClassName() const override;                                                                            \
    ::kovis::BaseDynamicObject* createNew() const override;                                                                      \
    ::kovis::DynamicObjectPtr createShared() const override;                                                                     \
    bool hasCopySupport() const override;                                                                                        \
    ::kovis::BaseDynamicObject* duplicate() const override;                                                                      \
    ::kovis::DynamicObjectPtr duplicateShared() const override;                                                                  \
    void copy(const ::kovis::BaseDynamicObject& source) override;                                                                \
    ::kovis::BoolResult write(::kovis::BaseOArchive& archive) const override;                                                    \
    ::kovis::BoolResult read(::kovis::BaseIArchive& archive) override;                                                           \
    const std::string& getObjectName() const override;                                                                           \
    const std::string& getToolTip() const override

/// The access to attributes' values, by attribute class. Both throw KOVISBaseProcessingException for a processor that is not
/// initialised. g_accessLine is the line that messages name.
#define KOVIS_DECLARE_ATTRIBUTE_ACCESS()                                                                                         \
    /** Gives an attribute its value; nothing is checked before the run. */                                                      \
    template <class TAttribute>                                                                                                  \
    void set(const typename TAttribute::StorageType& value);                                                                     \
    /** The value of an output attribute; may be called before, during and after a run. */                                       \
    template <class TAttribute>                                                                                                  \
    typename boost::enable_if_c<TAttribute::g_bOutput, typename TAttribute::StorageType>::type getStorage();                     \
    enum : unsigned int                                                                                                          \
    {                                                                                                                            \
        g_accessLine = __LINE__                                                                                                  \
    }

/// The kernels of a class, in the public part of its declaration: filled at load, read-only afterwards. SELECTOR is
/// AlgorithmFunctionSelector, or CudaFunctionSelector for a class of GPU kernels, which needs nothing else.
#define KOVIS_DECLARE_FUNCTION_SELECTOR(SELECTOR)                                                                                \
    static ::kovis::processor::SELECTOR& retrieveFunctionSelector();                                                             \
    static ::kovis::processor::SELECTOR& accessFunctionSelector()

/// The statics of a class with kernels, in the public part of its declaration:
///   - the kernels of the class: filled at load, read-only afterwards;
///   - the instruction sets that every run must use from now on; empty means the best that there is. Change them between runs,
///   never
///     during one.
#define KOVIS_DECLARE_ALGORITHM()                                                                                                \
    KOVIS_DECLARE_FUNCTION_SELECTOR(AlgorithmFunctionSelector);                                                                  \
    static ::kovis::processor::InstructionSetsIdentifier& retrieveForcedInstructionSets();                                       \
    static ::kovis::processor::InstructionSetsIdentifier& accessForcedInstructionSets();                                         \
    static void forceInstructionSets(const ::kovis::processor::InstructionSetsIdentifier& instructionSets);                      \
    static void releaseForcedInstructionSets()

/// The overriding initDerived of a processor class, in the protected part of its declaration.
#define KOVIS_DECLARE_INIT()                                                                                                     \
    ::kovis::BoolResult initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,                         \
                                    ::kovis::processor::ProcessorDispatchPolicy& dispatchPolicy,                                 \
                                    boost::shared_ptr<::kovis::processor::BaseRule>& rule,                                       \
                                    const ::kovis::processor::eProcessorRulePolicy& rulePolicy) override

/// What BaseProcessingAlgorithm asks a class with kernels for, in the protected part of its declaration: the selector and the
/// forced instruction sets; the data types that pick the kernel; the parsers that it works on, and their end.
#define KOVIS_DECLARE_ALGORITHM_STEPS()                                                                                          \
    const ::kovis::processor::AlgorithmFunctionSelector& getFunctionSelector() const override;                                   \
    const ::kovis::processor::InstructionSetsIdentifier& getForcedInstructionSets() const override;                              \
    void getDataTypeIdColl(::kovis::processor::DataTypeIdentifierColl& types) const override;                                    \
    void initDataParserColl(std::vector<boost::shared_ptr<::kovis::processor::BaseDataParser>>& parsers) override;               \
    void clearDataParserColl() override
