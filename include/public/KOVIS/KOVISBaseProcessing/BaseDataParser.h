#pragma once

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"

namespace kovis::processor
{
/// Gives a kernel the addresses of one attribute's data.
class KOVISBASEPROCESSING_EXPORT BaseDataParser
{
public:
    virtual ~BaseDataParser();
    BaseDataParser(const BaseDataParser&) = delete;
    BaseDataParser& operator=(const BaseDataParser&) = delete;

    /// Unbinds the data.
    virtual void clear() = 0;
    /// Elements per plane that a kernel may process, and how many of them are elements of the image. Zeros if nothing is bound.
    virtual unsigned long getNbElements() const = 0;
    virtual unsigned long getNbExactElements() const = 0;
    /// Brings what a kernel wrote to where it belongs; nothing to do for data that is read.
    virtual void commit() = 0;

protected:
    BaseDataParser();
};
} // namespace kovis::processor
