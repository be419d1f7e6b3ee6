#pragma once

#include "KOVIS/KOVISHardware/GpuDescription.h"
#include "KOVIS/KOVISHardware/KOVISHardwareExport.h"
#include "KOVIS/KOVISUtil/eInstructionSet.h"

#include <cstddef>
#include <string>

namespace kovis::hard
{
/// The processor of this computer, read once from the processor itself.
class KOVISHARDWARE_EXPORT ProcessorDescription
{
public:
    ProcessorDescription();

    /// Whether the processor has every feature of the set and the operating system saves its registers. 8 means AVX512 F, BW, DQ
    /// and VL together, 6 means FMA3 with AVX. False for a value that is no set.
    bool hasInstructionSet(const eInstructionSet& set) const;

    const std::string& getName() const { return m_name; }
    /// Logical processors that this process may use; at least 1.
    unsigned int getNbProcessors() const { return m_nbProcessors; }
    /// Bytes of the level 2 cache of one core; 256 KiB where it is not known.
    std::size_t getLevel2CacheSize() const { return m_level2CacheSize; }

private:
    std::string m_name;
    unsigned int m_nbProcessors;
    std::size_t m_level2CacheSize;
    unsigned int m_instructionSets; ///< bit n is set n
};

/// What this computer is made of.
class KOVISHARDWARE_EXPORT ComputerDescription
{
public:
    const ProcessorDescription& getProcessorDescription() const { return m_processor; }
    const GpuDescription& getGpuDescription() const { return m_gpu; }

private:
    ProcessorDescription m_processor;
    GpuDescription m_gpu;
};
} // namespace kovis::hard
