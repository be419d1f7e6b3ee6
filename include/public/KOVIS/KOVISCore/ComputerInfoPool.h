#pragma once

#include "KOVIS/KOVISCore/KOVISCoreExport.h"
#include "KOVIS/KOVISHardware/ComputerDescription.h"
#include "KOVIS/KOVISUtil/Guid.h"

namespace kovis::core
{
/// A computer that takes part in runs.
class KOVISCORE_EXPORT BaseComputerInfo
{
public:
    BaseComputerInfo();

    const Guid& getId() const { return m_id; }
    const hard::ComputerDescription& getComputerDescription() const { return m_description; }

private:
    Guid m_id;
    hard::ComputerDescription m_description;
};

/// The computers that take part in runs: this one.
class KOVISCORE_EXPORT ComputerInfoPool
{
public:
    static ComputerInfoPool& getInstance();

    const BaseComputerInfo& getLocalComputerInfo() const { return m_local; }

private:
    ComputerInfoPool();
    ~ComputerInfoPool();

    BaseComputerInfo m_local;
};
} // namespace kovis::core
