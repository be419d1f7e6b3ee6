#pragma once

#include "KOVIS/KOVISBaseProcessing/ProcessorMutexes.h"
#include "KOVIS/KOVISCore/isAvailable.h"

namespace kovis::processor
{
/// What the unit of one form of a class's kernels does at load: makes its mutexes, and calls its registration where this machine
/// has the sets. TOwner is a type of the unit's own unnamed namespace. Returns true, for a static to be initialised with.
template <class TOwner, eInstructionSet::domain... sets>
bool enterVariant(bool (*functionRegistration)())
{
    makeVariantMutexes<TOwner>();
    if ((core::isAvailable(sets) && ...))
    {
        functionRegistration();
    }
    return true;
}
} // namespace kovis::processor
