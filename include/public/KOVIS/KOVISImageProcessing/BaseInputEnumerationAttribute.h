#pragma once

#include "KOVIS/KOVISBaseProcessing/archiveIsSet.h"
#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVIS/KOVISSerialization/SerializationItem.h"

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
    bool isArchivable() const override { return true; }
    void writeValue(BaseOArchive& archive) const override
    {
        int value = 0;
        bool bSet = false;
        {
            const boost::mutex::scoped_lock lock(this->m_mutex);
            value = m_value;
            bSet = m_bInitialised;
        }
        if (processor::writeIsSet(archive, bSet))
        {
            archive << SerializationOItem<int>{"value", &value};
        }
    }
    /// The number is taken as it stands, as setValue takes any.
    void readValue(BaseIArchive& archive) override
    {
        if (!processor::readIsSet(archive))
        {
            this->clear();
            return;
        }
        int value = 0;
        archive >> SerializationIItem<int>{"value", &value};
        setValue(static_cast<T>(value));
    }
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
