#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/BaseAttribute.h"
#include "KOVIS/KOVISBaseProcessing/BaseProcessor.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISBaseProcessing/ProcessorDispatchPolicy.h"
#include "KOVIS/KOVISBaseProcessing/ProcessorFactory.h"
#include "KOVIS/KOVISBaseProcessing/ProcessorMutexes.h"
#include "KOVIS/KOVISSerialization/BaseArchive.h"
#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"
#include "KOVIS/KOVISSerialization/SerializationItem.h"
#include "KOVIS/KOVISUtil/DynamicRegistrator.h"
#include "KOVIS/KOVISUtil/LogMessageFormater.h"
#include "KOVIS/KOVISUtil/Logging.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <boost/core/demangle.hpp>
#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/utility/enable_if.hpp>

#include <string>
#include <tuple>
#include <typeinfo>
#include <vector>

// What all processor classes have in common, written once. A class's unit specialises ProcessorTraits (KOVIS_PROCESSOR_TRAITS),
// defines the common operations by KOVIS_DEFINE_PROCESSOR, and enters the class into the factories by KOVIS_REGISTER_PROCESSOR.

namespace kovis::processor
{
/// What differs by class: names, place, tool tip, base.
template <class T>
struct ProcessorTraits;

template <class T>
struct ProcessorAnatomy
{
    using Traits = ProcessorTraits<T>;

    static unsigned int getVersion()
    {
        // The lock guards nothing; every getter of a class takes its own.
        const boost::mutex::scoped_lock lock(VersionMutex<T>::get());
        return 1;
    }

    static const std::string& getTypeName()
    {
        const boost::mutex::scoped_lock lock(TypeNameMutex<T>::get());
        static const std::string g_typeName(Traits::g_typeName);
        return g_typeName;
    }

    static const std::string& getObjectNameStr()
    {
        const boost::mutex::scoped_lock lock(ToolTipMutex<T>::get());
        static std::string g_objectNameStr;
        if (g_objectNameStr.empty())
        {
            g_objectNameStr = Traits::g_objectName;
        }
        return g_objectNameStr;
    }

    static const std::string& getToolTipStr()
    {
        const boost::mutex::scoped_lock lock(ToolTipMutex<T>::get());
        static std::string g_toolTipStr;
        if (g_toolTipStr.empty())
        {
            Traits::enterMessages();
            LogMessageFormater formater(Traits::getLogMessageManager());
            formater.setMsgId(Traits::g_toolTipDomain, Traits::g_toolTipNumber);
            g_toolTipStr = formater.string();
        }
        return g_toolTipStr;
    }

    static const ProcessorDispatchPolicy& getDefaultDispatchPolicy(ProcessorDispatchPolicy& (*getStaticPolicy)())
    {
        const boost::mutex::scoped_lock lock(DispatchPolicyMutex<T>::get());
        ProcessorDispatchPolicy& policy = getStaticPolicy();
        if (!policy.isSet())
        {
            policy.initDefault();
        }
        return policy;
    }

    static InstructionSetsIdentifier& retrieveForcedInstructionSets()
    {
        const boost::mutex::scoped_lock lock(ForcedInstructionSetsMutex<T>::get());
        static InstructionSetsIdentifier g_forcedInstructionSetsId;
        return g_forcedInstructionSetsId;
    }

    /// What copy, duplicate and duplicateShared do. The function's name stands in two parts around the class's.
    [[noreturn]] static void throwNoCopySupport(const char* returnType, const char* signature, unsigned int line)
    {
        const std::string function = getFunction(returnType, signature);
        throwMessage<KOVISUtilException>(getKOVISUtilLogMessageManager(), getKOVISUtilLogger(),
                                         "N5kovis16eKOVISUtilErrors6domainE", 3,
                                         SourcePlace{function.c_str(), Traits::g_sourcePath, line}, T::getTypeName());
    }

    static BoolResult write(const T& processor, BaseOArchive& archive)
    {
        const BoolResult baseResult = processor.Traits::Base::write(archive);
        if (!baseResult)
        {
            return BoolResult(false, baseResult.getMessage());
        }
        if (!archive.isClassVersionRegistred(processor.getClassName()))
        {
            const unsigned int version = T::getVersion();
            const ArchiveSectionManager section(archive, processor.getClassName());
            archive << SerializationOItem<unsigned int>{"version", &version};
            archive.registerClassVersion(processor.getClassName(), version);
        }
        return BoolResult(true);
    }

    static BoolResult read(T& processor, BaseIArchive& archive, unsigned int line)
    {
        const BoolResult baseResult = processor.Traits::Base::read(archive);
        if (!baseResult)
        {
            return BoolResult(false, baseResult.getMessage());
        }
        if (archive.isClassVersionRegistred(processor.getClassName()))
        {
            // All versions read alike so far.
            static_cast<void>(archive.getRegisterClassVersion(processor.getClassName()));
        }
        else
        {
            const ArchiveSectionManager section(archive, processor.getClassName());
            unsigned int version = 0;
            archive >> SerializationIItem<unsigned int>{"version", &version};
            if (T::getVersion() < version)
            {
                const std::string function = getFunction("virtual kovis::BoolResult", "read(kovis::BaseIArchive&)");
                throwMessage<KOVISSerializationException>(getKOVISSerializationLogMessageManager(), getKOVISSerializationLogger(),
                                                          "N5kovis26eKOVISSerializationMessage6domainE", 25,
                                                          SourcePlace{function.c_str(), Traits::g_sourcePath, line}, version,
                                                          T::getVersion(), processor.getClassName());
            }
            archive.registerClassVersion(processor.getClassName(), version);
        }
        return BoolResult(true);
    }

    template <class TAttribute>
    static void set(const T& processor, const boost::shared_ptr<TAttribute>& attribute,
                    const typename TAttribute::StorageType& value)
    {
        testInitialised<TAttribute>(processor, "void", "set(const typename TAttribute::StorageType&)");
        if constexpr (requires { attribute->init(value); })
        {
            attribute->init(value);
        }
        else
        {
            attribute->setValue(value);
        }
    }

    template <class TAttribute>
    static typename TAttribute::StorageType getStorage(const T& processor, const boost::shared_ptr<TAttribute>& attribute)
    {
        testInitialised<TAttribute>(processor,
                                    "typename boost::enable_if_c<TAttribute::g_bOutput, typename TAttribute::StorageType>::type",
                                    "getStorage()");
        return attribute->getStorage();
    }

private:
    static std::string getFunction(const char* returnType, const char* signature)
    {
        return std::string(returnType) + " " + Traits::g_typeName + "::" + signature;
    }

    template <class TAttribute>
    static void testInitialised(const T& processor, const char* returnType, const char* signature)
    {
        if (!processor.isInitialised())
        {
            const std::string function = getFunction(returnType, signature) +
                                         " [with TAttribute = " + boost::core::demangle(typeid(TAttribute).name()) + "]";
            throwMessage<KOVISBaseProcessingException>(getKOVISBaseProcessingLogMessageManager(), getKOVISBaseProcessingLogger(),
                                                       "N5kovis9processor17eProcessorMessage6domainE", 33,
                                                       SourcePlace{function.c_str(), Traits::g_sourcePath, T::g_accessLine},
                                                       processor.getObjectName());
        }
    }
};

/// The pointer to the attribute TAttribute among a class's pointers.
template <class TAttribute, class... TAttributes>
const boost::shared_ptr<TAttribute>& selectAttribute(const boost::shared_ptr<TAttributes>&... attributes)
{
    return std::get<const boost::shared_ptr<TAttribute>&>(std::tie(attributes...));
}

/// Makes the attribute of each member, in place of an older one: they are the whole collection, in this order.
template <class... TAttributes>
void makeAttributes(std::vector<boost::shared_ptr<BaseAttribute>>& attributes, boost::shared_ptr<TAttributes>&... members)
{
    attributes.clear();
    ((members = boost::make_shared<TAttributes>(), attributes.push_back(members)), ...);
}

/// The end of every initDerived: the default policy of the class T, and the rule that makeRule gives, unless rules are not
/// wanted.
template <class T, class TMakeRule>
BoolResult finishInit(ProcessorDispatchPolicy& dispatchPolicy, boost::shared_ptr<BaseRule>& rule,
                      const eProcessorRulePolicy& rulePolicy, const TMakeRule& makeRule)
{
    dispatchPolicy = T::getDefaultDispatchPolicy();
    rule.reset();
    if (rulePolicy != ePRP_NoRules)
    {
        rule = makeRule();
    }
    return BoolResult(true);
}
} // namespace kovis::processor

/// The traits of NAMESPACE::CLASS. MODULE is a struct with what a library's classes share: g_module, g_toolTipDomain,
/// getLogMessageManager() and enterMessages(). PATH is the folder of the class's header and source; KOVIS_INCLUDE_ROOT the tree's
/// include folder, which the build gives.
#define KOVIS_PROCESSOR_TRAITS(NAMESPACE, CLASS, BASE, MODULE, PATH, TOOL_TIP)                                                   \
    template <>                                                                                                                  \
    struct kovis::processor::ProcessorTraits<NAMESPACE::CLASS> : MODULE                                                          \
    {                                                                                                                            \
        using Base = BASE;                                                                                                       \
        static constexpr const char* g_typeName = #NAMESPACE "::" #CLASS;                                                        \
        static constexpr const char* g_objectName = #CLASS;                                                                      \
        static constexpr const char* g_sourcePath = PATH "/" #CLASS;                                                             \
        static constexpr int g_toolTipNumber = TOOL_TIP;                                                                         \
        static constexpr ProcessorSourceLocation g_location{                                                                     \
            MODULE::g_module,                                                                                                    \
            KOVIS_INCLUDE_ROOT "/public/" PATH "/" #CLASS ".h",                                                                  \
            {KOVIS_INCLUDE_ROOT "/public", KOVIS_INCLUDE_ROOT "/partner", KOVIS_INCLUDE_ROOT "/private"}};                       \
    }

/// Defines what KOVIS_DECLARE_PROCESSOR declares, inside the class's namespace, and get<class>StaticDispatchPolicy.
#define KOVIS_DEFINE_PROCESSOR(CLASS)                                                                                            \
    static ::kovis::processor::ProcessorDispatchPolicy& get##CLASS##StaticDispatchPolicy()                                       \
    {                                                                                                                            \
        static ::kovis::processor::ProcessorDispatchPolicy g_dispatchPolicy;                                                     \
        return g_dispatchPolicy;                                                                                                 \
    }                                                                                                                            \
    CLASS::CLASS() = default;                                                                                                    \
    CLASS::~CLASS() = default;                                                                                                   \
    ::kovis::BaseDynamicObject* CLASS::createNewObject()                                                                         \
    {                                                                                                                            \
        return new CLASS;                                                                                                        \
    }                                                                                                                            \
    ::kovis::DynamicObjectPtr CLASS::createSharedObject()                                                                        \
    {                                                                                                                            \
        return boost::make_shared<CLASS>();                                                                                      \
    }                                                                                                                            \
    boost::shared_ptr<CLASS> CLASS::createProcessor()                                                                            \
    {                                                                                                                            \
        return boost::make_shared<CLASS>();                                                                                      \
    }                                                                                                                            \
    boost::shared_ptr<::kovis::processor::BaseProcessor> CLASS::createBaseProcessor()                                            \
    {                                                                                                                            \
        return boost::make_shared<CLASS>();                                                                                      \
    }                                                                                                                            \
    const std::string& CLASS::getTypeName()                                                                                      \
    {                                                                                                                            \
        return ::kovis::processor::ProcessorAnatomy<CLASS>::getTypeName();                                                       \
    }                                                                                                                            \
    const std::string& CLASS::getObjectNameStr()                                                                                 \
    {                                                                                                                            \
        return ::kovis::processor::ProcessorAnatomy<CLASS>::getObjectNameStr();                                                  \
    }                                                                                                                            \
    const std::string& CLASS::getToolTipStr()                                                                                    \
    {                                                                                                                            \
        return ::kovis::processor::ProcessorAnatomy<CLASS>::getToolTipStr();                                                     \
    }                                                                                                                            \
    const ::kovis::processor::ProcessorDispatchPolicy& CLASS::getDefaultDispatchPolicy()                                         \
    {                                                                                                                            \
        return ::kovis::processor::ProcessorAnatomy<CLASS>::getDefaultDispatchPolicy(&get##CLASS##StaticDispatchPolicy);         \
    }                                                                                                                            \
    unsigned int CLASS::getVersion()                                                                                             \
    {                                                                                                                            \
        return ::kovis::processor::ProcessorAnatomy<CLASS>::getVersion();                                                        \
    }                                                                                                                            \
    const ::kovis::processor::ProcessorSourceLocation& CLASS::getSourceLocation()                                                \
    {                                                                                                                            \
        return ::kovis::processor::ProcessorTraits<CLASS>::g_location;                                                           \
    }                                                                                                                            \
    const std::string& CLASS::getClassName() const                                                                               \
    {                                                                                                                            \
        return getTypeName();                                                                                                    \
    }                                                                                                                            \
    ::kovis::BaseDynamicObject* CLASS::createNew() const                                                                         \
    {                                                                                                                            \
        return new CLASS;                                                                                                        \
    }                                                                                                                            \
    ::kovis::DynamicObjectPtr CLASS::createShared() const                                                                        \
    {                                                                                                                            \
        return boost::make_shared<CLASS>();                                                                                      \
    }                                                                                                                            \
    bool CLASS::hasCopySupport() const                                                                                           \
    {                                                                                                                            \
        return false;                                                                                                            \
    }                                                                                                                            \
    ::kovis::BaseDynamicObject* CLASS::duplicate() const                                                                         \
    {                                                                                                                            \
        ::kovis::processor::ProcessorAnatomy<CLASS>::throwNoCopySupport("virtual kovis::BaseDynamicObject*",                     \
                                                                        "duplicate() const", __LINE__);                          \
    }                                                                                                                            \
    ::kovis::DynamicObjectPtr CLASS::duplicateShared() const                                                                     \
    {                                                                                                                            \
        ::kovis::processor::ProcessorAnatomy<CLASS>::throwNoCopySupport("virtual kovis::DynamicObjectPtr",                       \
                                                                        "duplicateShared() const", __LINE__);                    \
    }                                                                                                                            \
    void CLASS::copy(const ::kovis::BaseDynamicObject&)                                                                          \
    {                                                                                                                            \
        ::kovis::processor::ProcessorAnatomy<CLASS>::throwNoCopySupport("virtual void", "copy(const kovis::BaseDynamicObject&)", \
                                                                        __LINE__);                                               \
    }                                                                                                                            \
    ::kovis::BoolResult CLASS::write(::kovis::BaseOArchive& archive) const                                                       \
    {                                                                                                                            \
        return ::kovis::processor::ProcessorAnatomy<CLASS>::write(*this, archive);                                               \
    }                                                                                                                            \
    ::kovis::BoolResult CLASS::read(::kovis::BaseIArchive& archive)                                                              \
    {                                                                                                                            \
        return ::kovis::processor::ProcessorAnatomy<CLASS>::read(*this, archive, __LINE__);                                      \
    }                                                                                                                            \
    const std::string& CLASS::getObjectName() const                                                                              \
    {                                                                                                                            \
        return getObjectNameStr();                                                                                               \
    }                                                                                                                            \
    const std::string& CLASS::getToolTip() const                                                                                 \
    {                                                                                                                            \
        return getToolTipStr();                                                                                                  \
    }                                                                                                                            \
    static_assert(true)

/// Defines the selector of a class with kernels; SELECTOR is its class.
#define KOVIS_DEFINE_FUNCTION_SELECTOR(CLASS, SELECTOR)                                                                          \
    ::kovis::processor::SELECTOR& CLASS::retrieveFunctionSelector()                                                              \
    {                                                                                                                            \
        static ::kovis::processor::SELECTOR g_functionSelector;                                                                  \
        return g_functionSelector;                                                                                               \
    }                                                                                                                            \
    ::kovis::processor::SELECTOR& CLASS::accessFunctionSelector()                                                                \
    {                                                                                                                            \
        return retrieveFunctionSelector();                                                                                       \
    }                                                                                                                            \
    const ::kovis::processor::SELECTOR& CLASS::getFunctionSelector() const                                                       \
    {                                                                                                                            \
        return retrieveFunctionSelector();                                                                                       \
    }                                                                                                                            \
    static_assert(true)

/// Defines the selector and the forced instruction sets of a class with kernels.
#define KOVIS_DEFINE_ALGORITHM(CLASS)                                                                                            \
    KOVIS_DEFINE_FUNCTION_SELECTOR(CLASS, AlgorithmFunctionSelector);                                                            \
    ::kovis::processor::InstructionSetsIdentifier& CLASS::retrieveForcedInstructionSets()                                        \
    {                                                                                                                            \
        return ::kovis::processor::ProcessorAnatomy<CLASS>::retrieveForcedInstructionSets();                                     \
    }                                                                                                                            \
    ::kovis::processor::InstructionSetsIdentifier& CLASS::accessForcedInstructionSets()                                          \
    {                                                                                                                            \
        return retrieveForcedInstructionSets();                                                                                  \
    }                                                                                                                            \
    void CLASS::forceInstructionSets(const ::kovis::processor::InstructionSetsIdentifier& instructionSets)                       \
    {                                                                                                                            \
        retrieveForcedInstructionSets() = instructionSets;                                                                       \
    }                                                                                                                            \
    void CLASS::releaseForcedInstructionSets()                                                                                   \
    {                                                                                                                            \
        retrieveForcedInstructionSets().clear();                                                                                 \
    }                                                                                                                            \
    const ::kovis::processor::InstructionSetsIdentifier& CLASS::getForcedInstructionSets() const                                 \
    {                                                                                                                            \
        return retrieveForcedInstructionSets();                                                                                  \
    }                                                                                                                            \
    static_assert(true)

/// Defines set of a class, inside the class's namespace; the pointers to the attributes that it may set follow.
#define KOVIS_DEFINE_SET(CLASS, ...)                                                                                             \
    template <class TAttribute>                                                                                                  \
    void CLASS::set(const typename TAttribute::StorageType& value)                                                               \
    {                                                                                                                            \
        ::kovis::processor::ProcessorAnatomy<CLASS>::set(*this, ::kovis::processor::selectAttribute<TAttribute>(__VA_ARGS__),    \
                                                         value);                                                                 \
    }                                                                                                                            \
    static_assert(true)

/// The same for getStorage; the pointers to the output attributes that it may give follow.
#define KOVIS_DEFINE_GET_STORAGE(CLASS, ...)                                                                                     \
    template <class TAttribute>                                                                                                  \
    typename boost::enable_if_c<TAttribute::g_bOutput, typename TAttribute::StorageType>::type CLASS::getStorage()               \
    {                                                                                                                            \
        return ::kovis::processor::ProcessorAnatomy<CLASS>::getStorage(                                                          \
            *this, ::kovis::processor::selectAttribute<TAttribute>(__VA_ARGS__));                                                \
    }                                                                                                                            \
    static_assert(true)

/// Instantiates what the two above define, for one attribute; EXPORT is the library's export macro.
#define KOVIS_INSTANTIATE_SET(EXPORT, CLASS, ATTRIBUTE) template EXPORT void CLASS::set<ATTRIBUTE>(const ATTRIBUTE::StorageType&)
#define KOVIS_INSTANTIATE_GET_STORAGE(EXPORT, CLASS, ATTRIBUTE)                                                                  \
    template EXPORT ATTRIBUTE::StorageType CLASS::getStorage<ATTRIBUTE>()

/// What a class's unit does at load, in this order: mutexes, object factory, message map, processor factory. At global scope,
/// after everything else of the unit; CLASS with its namespaces, MAKE_MUTEXES is makeClassMutexes or makeAlgorithmMutexes.
#define KOVIS_REGISTER_PROCESSOR(CLASS, MAKE_MUTEXES)                                                                            \
    namespace                                                                                                                    \
    {                                                                                                                            \
    [[maybe_unused]] const bool g_bMutexesMade = kovis::processor::MAKE_MUTEXES<CLASS>();                                        \
    }                                                                                                                            \
    template <>                                                                                                                  \
    kovis::DynamicRegistrator<CLASS> kovis::DynamicRegistrator<CLASS>::g_classRegistrator(#CLASS);                               \
    namespace                                                                                                                    \
    {                                                                                                                            \
    [[maybe_unused]] const bool g_bMessagesEntered = kovis::processor::ProcessorTraits<CLASS>::enterMessages();                  \
    }                                                                                                                            \
    template <>                                                                                                                  \
    kovis::processor::ProcessorRegistrator<CLASS> kovis::processor::ProcessorRegistrator<CLASS>::g_bProcessorRegistrator{};      \
    static_assert(true)
