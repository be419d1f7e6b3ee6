#include "KOVIS/KOVISUtil/DynamicObjectFactory.h"

#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <boost/thread/lock_guard.hpp>

namespace kovis
{
namespace
{
BoolResult makeFailure(eKOVISUtilErrors::domain message, const std::string& className)
{
    LogMessageFormater formater(getKOVISUtilLogMessageManager());
    formater[message] % className;
    return BoolResult(false, formater.string());
}
} // namespace

DynamicObjectFactory::DynamicObjectFactory() = default;
DynamicObjectFactory::~DynamicObjectFactory() = default;

DynamicObjectFactory& DynamicObjectFactory::getInstance()
{
    // Made at the first request, whichever library's initialiser that is, and never destroyed: libraries withdraw their classes
    // from their static destructors.
    static auto* const g_factory = new DynamicObjectFactory();
    return *g_factory;
}

BoolResult DynamicObjectFactory::registerClass(const std::string& className, NewCreator newCreator, SharedCreator sharedCreator)
{
    if (newCreator == nullptr || sharedCreator == nullptr)
    {
        return makeFailure(eKOVISUtilErrors::eUE_NoCreator, className);
    }
    bool bInserted = false;
    {
        const boost::lock_guard<boost::mutex> lock(m_mutex);
        bInserted = m_creators.emplace(className, Creators{newCreator, sharedCreator}).second;
    }
    return bInserted ? BoolResult(true) : makeFailure(eKOVISUtilErrors::eUE_ClassAlreadyRegistred, className);
}

BoolResult DynamicObjectFactory::unRegisterClass(const std::string& className)
{
    bool bErased = false;
    {
        const boost::lock_guard<boost::mutex> lock(m_mutex);
        bErased = m_creators.erase(className) != 0;
    }
    return bErased ? BoolResult(true) : makeFailure(eKOVISUtilErrors::eUE_UnknownClass, className);
}

bool DynamicObjectFactory::isRegistred(const std::string& className) const
{
    const boost::lock_guard<boost::mutex> lock(m_mutex);
    return m_creators.count(className) != 0;
}

std::vector<std::string> DynamicObjectFactory::getClassNameColl() const
{
    const boost::lock_guard<boost::mutex> lock(m_mutex);
    std::vector<std::string> names;
    names.reserve(m_creators.size());
    for (const auto& entry : m_creators)
    {
        names.push_back(entry.first);
    }
    return names;
}

BaseDynamicObject* DynamicObjectFactory::createNew(const std::string& className) const
{
    return getCreators(className).m_newCreator();
}

boost::shared_ptr<BaseDynamicObject> DynamicObjectFactory::createShared(const std::string& className) const
{
    return getCreators(className).m_sharedCreator();
}

DynamicObjectFactory::Creators DynamicObjectFactory::getCreators(const std::string& className) const
{
    {
        const boost::lock_guard<boost::mutex> lock(m_mutex);
        const auto found = m_creators.find(className);
        if (found != m_creators.end())
        {
            return found->second;
        }
    }
    throwMessage<KOVISUtilException>(
        getKOVISUtilLogMessageManager(), getKOVISUtilLogger(), eKOVISUtilErrors::eUE_UnknownClass,
        SourcePlace{"kovis::DynamicObjectFactory::Creators kovis::DynamicObjectFactory::getCreators(const std::string&) const",
                    "KOVIS/KOVISUtil/DynamicObjectFactory.cpp", __LINE__},
        className);
}
} // namespace kovis
