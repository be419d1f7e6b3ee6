#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseObjectInfo.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"

#include <boost/thread/mutex.hpp>

#include <string>

namespace kovis
{
class BaseOArchive;
class BaseIArchive;
} // namespace kovis

namespace kovis::processor
{
/// What kind of thing an attribute belongs to.
enum eAttributeType : int
{
    eAT_DataItem = 1,
    eAT_ImageProcessing = 2
};

/// A typed slot of a processor. Its value may be read before, during and after a run, from any thread.
class KOVISBASEPROCESSING_EXPORT BaseAttribute : public BaseObjectInfo
{
public:
    ~BaseAttribute() override;
    BaseAttribute(const BaseAttribute&) = delete;
    BaseAttribute& operator=(const BaseAttribute&) = delete;

    virtual eAttributeType getAttributeType() const = 0;
    virtual bool isOutput() const = 0;
    /// Whether a run needs a value here; an output that an initializer makes is mandatory too.
    virtual bool isMandatory() const = 0;
    /// Whether a value was given. A null pointer that was given counts as given.
    virtual bool isInitialised() const = 0;
    /// Whether a value was given and it can be used: a pointer is not null.
    virtual bool isUsable() const = 0;
    /// Drops the value.
    virtual void clear() = 0;

    /// Whether an archive keeps the value: plain data that a run is given. Images, strips and results are not kept; false here.
    virtual bool isArchivable() const;
    /// Writes the value into the open section, with whether there is one. Throws what the archive throws. Nothing is written
    /// here.
    virtual void writeValue(BaseOArchive& archive) const;
    /// Reads what writeValue wrote; the value is dropped where there was none. Throws what the archive throws, and leaves the
    /// value then as it was.
    virtual void readValue(BaseIArchive& archive);

    /// Grows whenever a value is given or dropped: who made a value can tell whether it is still there.
    unsigned long getNbChanges() const
    {
        const boost::mutex::scoped_lock lock(m_mutex);
        return m_nbChanges;
    }

protected:
    BaseAttribute();

    /// To be called with the lock held, by what gives or drops a value.
    void countChange() { ++m_nbChanges; }

    /// Guards the value.
    mutable boost::mutex m_mutex;

private:
    unsigned long m_nbChanges = 0;
};
} // namespace kovis::processor
