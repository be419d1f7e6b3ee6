#pragma once

#include "KOVIS/KOVISBaseProcessing/archiveIsSet.h"
#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVIS/KOVISSerialization/SerializationItem.h"
#include "KOVIS/KOVISSerialization/readArchiveEnumeration.h"

#include <limits>
#include <utility>

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
    /// Throws KOVISSerializationException, with the value as it was, for a number outside getArchiveRange; setValue takes any.
    void readValue(BaseIArchive& archive) override
    {
        if (!processor::readIsSet(archive))
        {
            this->clear();
            return;
        }
        const std::pair<int, int> range = getArchiveRange();
        setValue(static_cast<T>(readArchiveEnumeration(archive, "value", range.first, range.second)));
    }
    void clear() override
    {
        const boost::mutex::scoped_lock lock(this->m_mutex);
        m_value = T();
        m_bInitialised = false;
        this->countChange();
    }

protected:
    /// The first and the last number that an archive may give: those of the enumerators. Any number, unless it is overridden.
    virtual std::pair<int, int> getArchiveRange() const
    {
        return {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    }

private:
    StorageType m_value = T();
    bool m_bInitialised = false;
};
} // namespace kovis::imaproc
