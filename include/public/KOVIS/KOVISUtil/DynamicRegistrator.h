#pragma once

#include "KOVIS/KOVISUtil/DynamicObjectFactory.h"

namespace kovis
{
/// Enters T into the object factory for as long as it lives. The static g_classRegistrator is defined as an explicit
/// specialisation in T's own unit, which fixes its place in the order of initialisation.
template <class T>
class DynamicRegistrator
{
public:
    explicit DynamicRegistrator(const char* className) : m_className(className)
    {
        DynamicObjectFactory::getInstance().registerClass(m_className, &newCreatorFcn, &sharedCreatorFcn);
    }
    ~DynamicRegistrator() { DynamicObjectFactory::getInstance().unRegisterClass(m_className); }
    DynamicRegistrator(const DynamicRegistrator&) = delete;
    DynamicRegistrator& operator=(const DynamicRegistrator&) = delete;

    static BaseDynamicObject* newCreatorFcn() { return T::createNewObject(); }
    static boost::shared_ptr<BaseDynamicObject> sharedCreatorFcn() { return T::createSharedObject(); }

    static DynamicRegistrator g_classRegistrator;

private:
    const char* m_className;
};
} // namespace kovis
