#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"

namespace kovis::imaproc
{
/// A mandatory input attribute that holds a value of the enumeration T. May be set and read from any thread.
template <class T>
class BaseInputEnumerationAttribute : public BaseImageProcessingAttribute
{
public:
    using StorageType = T;
    static constexpr bool g_bOutput = false;

    virtual void setValue(const StorageType& value)
    {
        const boost::mutex::scoped_lock lock(this->m_mutex);
        m_value = value;
        m_bInitialised = true;
        this->countChange();
    }
    /// The enumerator of number 0 until a value was given.
    virtual StorageType getValue() const
    {
        const boost::mutex::scoped_lock lock(this->m_mutex);
        return m_value;
    }

    eImageProcessingAttributeType getImageProcessingAttributeType() const override { return eIPAT_Enumeration; }
    bool isOutput() const override { return false; }
    bool isMandatory() const override { return true; }
    bool isInitialised() const override
    {
        const boost::mutex::scoped_lock lock(this->m_mutex);
        return m_bInitialised;
    }
    bool isUsable() const override { return isInitialised(); }
    void clear() override
    {
        const boost::mutex::scoped_lock lock(this->m_mutex);
        m_value = T();
        m_bInitialised = false;
        this->countChange();
    }

private:
    StorageType m_value = T();
    bool m_bInitialised = false;
};
} // namespace kovis::imaproc
