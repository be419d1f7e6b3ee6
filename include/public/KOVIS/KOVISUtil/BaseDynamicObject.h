#pragma once

#include "KOVIS/KOVISUtil/KOVISUtilExport.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace kovis
{
class BaseDynamicObject;
using DynamicObjectPtr = boost::shared_ptr<BaseDynamicObject>;

/// An object that knows its class by name and can make others of its class.
class KOVISUTIL_EXPORT BaseDynamicObject
{
public:
    virtual ~BaseDynamicObject();

    /// The full type name with namespaces, the key of DynamicObjectFactory.
    virtual const std::string& getClassName() const = 0;
    /// A new default-constructed object of this class; the caller owns it.
    virtual BaseDynamicObject* createNew() const = 0;
    virtual DynamicObjectPtr createShared() const = 0;
    /// Whether copy, duplicate and duplicateShared work. Where it is false they throw KOVISUtilException.
    virtual bool hasCopySupport() const = 0;
    virtual BaseDynamicObject* duplicate() const = 0;
    virtual DynamicObjectPtr duplicateShared() const = 0;
    /// Hook of the copy of a class with copy support; does nothing here.
    virtual void initCtorCopy(const BaseDynamicObject& source);
    virtual void copy(const BaseDynamicObject& source) = 0;

protected:
    BaseDynamicObject() = default;
    BaseDynamicObject(const BaseDynamicObject&) = default;
    BaseDynamicObject& operator=(const BaseDynamicObject&) = default;
};
} // namespace kovis
