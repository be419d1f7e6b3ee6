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

// The registrations below stand at global scope, last in their units. Names in ENTER and in the sets are looked up in
// NAMESPACE::details.

/// NAMESPACE::details::functionRegistration(), file-local: calls the function that follows, which enters the rows, with the place
/// of this line in the unit PATH, and returns what it returns.
#define KOVIS_DEFINE_FUNCTION_REGISTRATION(NAMESPACE, PATH, ...)                                                                 \
    namespace NAMESPACE::details                                                                                                 \
    {                                                                                                                            \
    static bool functionRegistration()                                                                                           \
    {                                                                                                                            \
        return __VA_ARGS__({"bool " #NAMESPACE "::details::functionRegistration()", PATH, __LINE__});                            \
    }                                                                                                                            \
    }                                                                                                                            \
    static_assert(true)

/// The end of a class's unit, after KOVIS_REGISTER_PROCESSOR: functionRegistration(), and its call at load.
#define KOVIS_REGISTER_FUNCTIONS(NAMESPACE, CLASS, ...)                                                                          \
    KOVIS_DEFINE_FUNCTION_REGISTRATION(NAMESPACE, kovis::processor::ProcessorTraits<NAMESPACE::CLASS>::g_sourcePath,             \
                                       __VA_ARGS__);                                                                             \
    namespace NAMESPACE                                                                                                          \
    {                                                                                                                            \
    namespace                                                                                                                    \
    {                                                                                                                            \
    [[maybe_unused]] const bool g_bFunctionsRegistred = details::functionRegistration();                                         \
    }                                                                                                                            \
    }                                                                                                                            \
    static_assert(true)

/// All of the unit of one form: functionRegistration(), which calls ENTER<sets...>, and its call at load where this machine has
/// all sets, those that follow. The initialiser runs on every processor, so that nothing in such a unit is compiled for the sets;
/// the kernels stand in units of their own.
#define KOVIS_REGISTER_VARIANT(NAMESPACE, PATH, ENTER, ...)                                                                      \
    KOVIS_DEFINE_FUNCTION_REGISTRATION(NAMESPACE, PATH, ENTER<__VA_ARGS__>);                                                     \
    namespace NAMESPACE                                                                                                          \
    {                                                                                                                            \
    namespace                                                                                                                    \
    {                                                                                                                            \
    /** The owner of this unit's mutexes. */                                                                                     \
    struct Variant;                                                                                                              \
                                                                                                                                 \
    [[maybe_unused]] const bool g_bEntered =                                                                                     \
        kovis::processor::enterVariant<Variant, __VA_ARGS__>(&details::functionRegistration);                                    \
    }                                                                                                                            \
    }                                                                                                                            \
    static_assert(true)
