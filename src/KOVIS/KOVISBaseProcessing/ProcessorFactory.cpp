#include "KOVIS/KOVISBaseProcessing/ProcessorFactory.h"

#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"

#include <boost/thread/lock_guard.hpp>

namespace kovis::processor
{
ProcessorFactory::ProcessorFactory() = default;
ProcessorFactory::~ProcessorFactory() = default;

ProcessorFactory& ProcessorFactory::getInstance()
{
    static ProcessorFactory g_instance;
    return g_instance;
}

BoolResult ProcessorFactory::registerProcessor(const std::string& typeName, const ProcessorInfo& info)
{
    if (info.m_creator == nullptr)
    {
        return BoolResult(false, processingText(eProcessorMessage::ePM_NoCreator, typeName));
    }
    const boost::lock_guard<boost::mutex> lock(m_mutex);
    return m_infos.emplace(typeName, info).second
               ? BoolResult(true)
               : BoolResult(false, processingText(eProcessorMessage::ePM_AlreadyRegistred, typeName));
}

BoolResult ProcessorFactory::unRegisterProcessor(const std::string& typeName)
{
    const boost::lock_guard<boost::mutex> lock(m_mutex);
    return m_infos.erase(typeName) == 1 ? BoolResult(true)
                                        : BoolResult(false, processingText(eProcessorMessage::ePM_NotRegistred, typeName));
}

bool ProcessorFactory::isRegistred(const std::string& typeName) const
{
    const boost::lock_guard<boost::mutex> lock(m_mutex);
    return m_infos.count(typeName) == 1;
}

std::vector<std::string> ProcessorFactory::getTypeNameColl() const
{
    const boost::lock_guard<boost::mutex> lock(m_mutex);
    std::vector<std::string> typeNames;
    typeNames.reserve(m_infos.size());
    for (const auto& [typeName, info] : m_infos)
    {
        typeNames.push_back(typeName);
    }
    return typeNames;
}

ProcessorFactory::ProcessorInfo ProcessorFactory::getProcessorInfo(const std::string& typeName) const
{
    {
        const boost::lock_guard<boost::mutex> lock(m_mutex);
        const auto found = m_infos.find(typeName);
        if (found != m_infos.end())
        {
            return found->second;
        }
    }
    throwProcessingMessage(
        eProcessorMessage::ePM_NotRegistred,
        {"kovis::processor::ProcessorFactory::ProcessorInfo kovis::processor::ProcessorFactory::getProcessorInfo(const "
         "std::string&) const",
         "KOVIS/KOVISBaseProcessing/ProcessorFactory.cpp", __LINE__},
        typeName);
}

boost::shared_ptr<BaseProcessor> ProcessorFactory::createProcessor(const std::string& typeName) const
{
    return getProcessorInfo(typeName).m_creator();
}
} // namespace kovis::processor
