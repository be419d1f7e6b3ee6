#pragma once

#include "KOVIS/KOVISCore/KOVISCoreExport.h"

namespace kovis::core
{
/// Who asks a provider for work: the worker's number in the pull, from 0. All workers live in this process.
class KOVISCORE_EXPORT BaseRequestOrigin
{
public:
    BaseRequestOrigin() = default;
    explicit BaseRequestOrigin(unsigned int worker) : m_worker(worker) {}

    unsigned int getWorker() const { return m_worker; }

private:
    unsigned int m_worker = 0;
};
} // namespace kovis::core
