#pragma once

#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"

#include <functional>
#include <string>

namespace kovis::test
{
/// The message of the KOVISSerializationException that the call throws; "nothing was thrown" without one.
inline std::string getRefusal(const std::function<void()>& call)
{
    try
    {
        call();
    }
    catch (const KOVISSerializationException& e)
    {
        return e.what();
    }
    return "nothing was thrown";
}
} // namespace kovis::test
