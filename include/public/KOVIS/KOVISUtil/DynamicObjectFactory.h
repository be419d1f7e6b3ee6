#pragma once

#include "KOVIS/KOVISUtil/BaseDynamicObject.h"
#include "KOVIS/KOVISUtil/KOVISUtilExport.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"

#include <boost/shared_ptr.hpp>
#include <boost/thread/mutex.hpp>

#include <map>
#include <string>
#include <vector>

namespace kovis
{
/// Makes objects by class name. One per process; all operations are safe from any thread.
class KOVISUTIL_EXPORT DynamicObjectFactory
{
public:
    using NewCreator = BaseDynamicObject* (*)();
    using SharedCreator = boost::shared_ptr<BaseDynamicObject> (*)();

    static DynamicObjectFactory& getInstance();

    /// False, with a message, if a class of that name is registered already: the first one stays.
    BoolResult registerClass(const std::string& className, NewCreator newCreator, SharedCreator sharedCreator);
    /// False, with a message, if no class of that name is registered.
    BoolResult unRegisterClass(const std::string& className);

    bool isRegistred(const std::string& className) const;
    std::vector<std::string> getClassNameColl() const;

    /// A new object of that class. Throws KOVISUtilException if no class of that name is registered.
    BaseDynamicObject* createNew(const std::string& className) const;
    boost::shared_ptr<BaseDynamicObject> createShared(const std::string& className) const;

private:
    struct Creators
    {
        NewCreator m_newCreator;
        SharedCreator m_sharedCreator;
    };

    DynamicObjectFactory();
    ~DynamicObjectFactory();
    Creators getCreators(const std::string& className) const;

    mutable boost::mutex m_mutex;
    std::map<std::string, Creators> m_creators;
};
} // namespace kovis
