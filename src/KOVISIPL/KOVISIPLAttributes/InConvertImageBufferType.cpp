#include "KOVISIPL/KOVISIPLAttributes/InConvertImageBufferType.h"

#include "KOVISIPL/KOVISIPLAttributes/DefineAttribute.h"

namespace kovis::imaproc::attr
{
KOVIS_DEFINE_ATTRIBUTE(InConvertImageBufferType, "Buffer type to convert the image to");

void InConvertImageBufferType::setValue(const StorageType& value)
{
    const boost::mutex::scoped_lock lock(m_mutex);
    m_value = value;
    m_bInitialised = true;
}

InConvertImageBufferType::StorageType InConvertImageBufferType::getValue() const
{
    const boost::mutex::scoped_lock lock(m_mutex);
    return m_value;
}

bool InConvertImageBufferType::isInitialised() const
{
    const boost::mutex::scoped_lock lock(m_mutex);
    return m_bInitialised;
}

bool InConvertImageBufferType::isUsable() const
{
    return image::getElementSize(getValue()) != 0;
}

void InConvertImageBufferType::clear()
{
    const boost::mutex::scoped_lock lock(m_mutex);
    m_value = image::eIBT_None;
    m_bInitialised = false;
}
} // namespace kovis::imaproc::attr
