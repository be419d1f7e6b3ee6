#pragma once

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"

namespace kovis::processor
{
/// Where the pieces of a processor may run.
enum eDispatchTarget : int
{
    eDT_LocalThreads = 0
};

/// How a processor's work is handed out. Unset until initDefault is called.
class KOVISBASEPROCESSING_EXPORT ProcessorDispatchPolicy
{
public:
    ProcessorDispatchPolicy() = default;

    /// On the threads of this computer.
    void initDefault()
    {
        m_target = eDT_LocalThreads;
        m_bSet = true;
    }
    bool isSet() const { return m_bSet; }
    eDispatchTarget getTarget() const { return m_target; }

private:
    eDispatchTarget m_target = eDT_LocalThreads;
    bool m_bSet = false;
};
} // namespace kovis::processor
