#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseAttribute.h"

#include <boost/shared_ptr.hpp>

namespace kovis::processor
{
/// The locked value of an attribute that holds a shared pointer, over the attribute base TBase.
template <class TBase, class T>
class PointerStorage : public TBase
{
public:
    bool isInitialised() const override
    {
        const boost::mutex::scoped_lock lock(this->m_mutex);
        return m_bInitialised;
    }
    bool isUsable() const override { return getPointer() != nullptr; }
    void clear() override
    {
        boost::shared_ptr<T> dropped; // released after the lock
        const boost::mutex::scoped_lock lock(this->m_mutex);
        dropped.swap(m_value);
        m_bInitialised = false;
        this->countChange();
    }

protected:
    void setPointer(const boost::shared_ptr<T>& value)
    {
        boost::shared_ptr<T> copy(value);
        const boost::mutex::scoped_lock lock(this->m_mutex);
        m_value.swap(copy);
        m_bInitialised = true;
        this->countChange();
    }
    boost::shared_ptr<T> getPointer() const
    {
        const boost::mutex::scoped_lock lock(this->m_mutex);
        return m_value;
    }

private:
    boost::shared_ptr<T> m_value;
    bool m_bInitialised = false;
};
} // namespace kovis::processor
