#include "KOVIS/KOVISBaseProcessing/BaseProcessor.h"

#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVIS/KOVISSerialization/BaseArchive.h"
#include "KOVIS/KOVISSerialization/SerializationItem.h"
#include "KOVIS/KOVISSerialization/quoteArchiveText.h"

#include <utility>

namespace kovis::processor
{
namespace
{
using AttributeColl = std::vector<boost::shared_ptr<BaseAttribute>>;
using InitializerMap = std::map<std::string, boost::shared_ptr<BaseOutputInitializer>>;

// Of what an archive keeps.
constexpr const char* g_archiveSection = "kovis::processor::BaseProcessor";
constexpr const char* g_classKey = "class";
constexpr const char* g_initialisedKey = "initialised";
constexpr const char* g_rulesKey = "rules";

boost::shared_ptr<BaseAttribute> findAttribute(const AttributeColl& attributes, const std::string& name)
{
    for (const auto& attribute : attributes)
    {
        if (attribute->getObjectName() == name)
        {
            return attribute;
        }
    }
    return boost::shared_ptr<BaseAttribute>();
}

// What a class made in its initDerived.
BoolResult checkMade(const std::string& processorName, const AttributeColl& attributes, const InitializerMap& initializers)
{
    for (std::size_t i = 0; i < attributes.size(); ++i)
    {
        if (attributes[i] == nullptr)
        {
            return BoolResult(false, processingText(eProcessorMessage::ePM_NullAttribute, processorName, i));
        }
        for (std::size_t j = 0; j < i; ++j)
        {
            if (attributes[i]->getObjectName() == attributes[j]->getObjectName())
            {
                return BoolResult(false, processingText(eProcessorMessage::ePM_DoubledAttribute, processorName,
                                                        attributes[i]->getObjectName()));
            }
        }
    }
    for (const auto& [name, initializer] : initializers)
    {
        const boost::shared_ptr<BaseAttribute> attribute = findAttribute(attributes, name);
        if (initializer == nullptr || attribute == nullptr || !attribute->isOutput())
        {
            return BoolResult(false, processingText(eProcessorMessage::ePM_InitializerOfNothing, processorName, name));
        }
    }
    return BoolResult(true);
}
} // namespace

BaseProcessor::BaseProcessor() = default;
BaseProcessor::~BaseProcessor() = default;

BoolResult BaseProcessor::init(eProcessorRulePolicy rulePolicy)
{
    if (getState() == core::eActionState::running)
    {
        return BoolResult(false, processingText(eProcessorMessage::ePM_RunUnderWay, getObjectName()));
    }
    m_bInitialised = false;
    m_madeOutputs.clear();
    m_attributes.clear();
    m_outputInitializers.clear();
    m_rule.reset();

    AttributeColl attributes;
    InitializerMap initializers;
    ProcessorDispatchPolicy dispatchPolicy;
    boost::shared_ptr<BaseRule> rule;
    BoolResult result = initDerived(attributes, initializers, dispatchPolicy, rule, rulePolicy);
    if (!result)
    {
        return result.getMessage().empty() ? BoolResult(false, processingText(eProcessorMessage::ePM_InitFailed, getObjectName()))
                                           : result;
    }
    result = checkMade(getObjectName(), attributes, initializers);
    if (!result)
    {
        return result;
    }
    m_attributes = std::move(attributes);
    m_outputInitializers = std::move(initializers);
    m_dispatchPolicy = dispatchPolicy;
    m_rule = std::move(rule);
    m_rulePolicy = rulePolicy;
    m_bInitialised = true;
    return result;
}

boost::shared_ptr<BaseAttribute> BaseProcessor::getAttribute(const std::string& name) const
{
    return findAttribute(m_attributes, name);
}

std::vector<std::string> BaseProcessor::getAttributeNameColl() const
{
    std::vector<std::string> names;
    names.reserve(m_attributes.size());
    for (const auto& attribute : m_attributes)
    {
        names.push_back(attribute->getObjectName());
    }
    return names;
}

BoolResult BaseProcessor::write(BaseOArchive& archive) const
{
    const ArchiveSectionManager section(archive, g_archiveSection);
    const bool bRules = m_rulePolicy != ePRP_NoRules;
    archive << SerializationOItem<std::string>{g_classKey, &getClassName()}
            << SerializationOItem<bool>{g_initialisedKey, &m_bInitialised} << SerializationOItem<bool>{g_rulesKey, &bRules};
    for (const auto& attribute : m_attributes)
    {
        if (attribute->isArchivable())
        {
            const ArchiveSectionManager attributeSection(archive, attribute->getObjectName());
            attribute->writeValue(archive);
        }
    }
    return BoolResult(true);
}

BoolResult BaseProcessor::read(BaseIArchive& archive)
{
    const ArchiveSectionManager section(archive, g_archiveSection);
    std::string className;
    bool bInitialised = false;
    bool bRules = true;
    archive >> SerializationIItem<std::string>{g_classKey, &className};
    if (className != getClassName())
    {
        archive.refuseItem(g_classKey, processingText(eProcessorMessage::ePM_OtherClass, quoteArchiveText(className), getClassName()));
    }
    archive >> SerializationIItem<bool>{g_initialisedKey, &bInitialised} >> SerializationIItem<bool>{g_rulesKey, &bRules};
    const BoolResult result = init(bRules ? ePRP_Rules : ePRP_NoRules);
    if (!result || !bInitialised) // who was not initialised had no values
    {
        return result;
    }
    for (const auto& attribute : m_attributes)
    {
        if (attribute->isArchivable())
        {
            const ArchiveSectionManager attributeSection(archive, attribute->getObjectName());
            attribute->readValue(archive);
        }
    }
    return result;
}

void BaseProcessor::globalCleanDerived()
{
    for (const auto& attribute : m_attributes)
    {
        attribute->clear();
    }
    m_madeOutputs.clear();
}

// Attributes hold objects of this process: there is nothing to bring here or away.
BoolResult BaseProcessor::syncInputDataDerived(const Guid&)
{
    return BoolResult(true);
}

BoolResult BaseProcessor::syncOutputDataDerived(const Guid&)
{
    if (core::detail::isStopping(getRunContext()))
    {
        return BoolResult(false, processingText(eProcessorMessage::ePM_Stopped, getObjectName()));
    }
    // The work is done: a later run that ends before it begins must not take these out.
    m_madeOutputs.clear();
    return BoolResult(true);
}

void BaseProcessor::clearInputData()
{
    for (const auto& attribute : m_attributes)
    {
        if (!attribute->isOutput())
        {
            attribute->clear();
        }
    }
}

void BaseProcessor::clearOutputData()
{
    for (const MadeOutput& made : m_madeOutputs)
    {
        // What the caller has set since then is the caller's.
        if (made.m_attribute->getNbChanges() == made.m_nbChanges)
        {
            made.m_attribute->clear();
        }
    }
    m_madeOutputs.clear();
}

void BaseProcessor::noteMadeOutput(const boost::shared_ptr<BaseAttribute>& attribute)
{
    m_madeOutputs.push_back({attribute, attribute->getNbChanges()});
}

BoolResult BaseProcessor::initProcess()
{
    m_madeOutputs.clear();
    if (!m_bInitialised)
    {
        return BoolResult(false, processingText(eProcessorMessage::ePM_NotInitialised, getObjectName()));
    }
    BoolResult result = checkInputs();
    if (!result || !(result = makeOutputs()))
    {
        return result;
    }
    if (m_rule != nullptr && !m_rule->testRule())
    {
        const std::string text = m_rule->createRuleEvaluatedString(0);
        return BoolResult(false, text.empty() ? processingText(eProcessorMessage::ePM_RuleRefused, getObjectName()) : text);
    }
    return result;
}

BoolResult BaseProcessor::checkInputs() const
{
    for (const auto& attribute : m_attributes)
    {
        if (attribute->isOutput() || !attribute->isMandatory() || attribute->isUsable())
        {
            continue;
        }
        const auto message = attribute->isInitialised() ? eProcessorMessage::ePM_InputIsNull : eProcessorMessage::ePM_InputNotSet;
        return BoolResult(false, processingText(message, attribute->getObjectName(), getObjectName()));
    }
    return BoolResult(true);
}

BoolResult BaseProcessor::makeOutputs()
{
    for (const auto& attribute : m_attributes)
    {
        if (!attribute->isOutput() || attribute->isUsable())
        {
            continue;
        }
        // Whoever gives a result wants to see it: one made in its place would be lost.
        if (attribute->isMandatory() && attribute->isInitialised())
        {
            return BoolResult(false,
                              processingText(eProcessorMessage::ePM_OutputIsNull, attribute->getObjectName(), getObjectName()));
        }
        const auto found = m_outputInitializers.find(attribute->getObjectName());
        if (found != m_outputInitializers.end())
        {
            BoolResult result = found->second->initOutputAttribute();
            if (!result)
            {
                return result.getMessage().empty()
                           ? BoolResult(false, processingText(eProcessorMessage::ePM_OutputNotMade, attribute->getObjectName(),
                                                              getObjectName()))
                           : result;
            }
            noteMadeOutput(attribute);
        }
        if (attribute->isMandatory() && !attribute->isUsable())
        {
            const auto message =
                found != m_outputInitializers.end() ? eProcessorMessage::ePM_OutputNotMade : eProcessorMessage::ePM_OutputNotSet;
            return BoolResult(false, processingText(message, attribute->getObjectName(), getObjectName()));
        }
    }
    return BoolResult(true);
}

BoolResult BaseProcessor::endProcess()
{
    return BoolResult(true);
}

void executeSyncRun(const boost::shared_ptr<BaseProcessor>& processor)
{
    const SourcePlace place{"void kovis::processor::executeSyncRun(const boost::shared_ptr<kovis::processor::BaseProcessor>&)",
                            "KOVIS/KOVISBaseProcessing/BaseProcessor.cpp", __LINE__};
    if (processor == nullptr)
    {
        throwProcessingMessage(eProcessorMessage::ePM_NullProcessor, place);
    }
    if (!processor->isInitialised())
    {
        throwProcessingMessage(eProcessorMessage::ePM_NotInitialised, place, processor->getObjectName());
    }
    core::executeAction(processor);
}
} // namespace kovis::processor
