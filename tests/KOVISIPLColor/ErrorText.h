#pragma once

#include "KOVIS/KOVISUtil/BaseException.h"

#include <gtest/gtest.h>

#include <string>

namespace kovis::test
{
/// What the call's exception says; a failure of the test if there is none.
template <class TCall>
std::string getError(const TCall& call)
{
    try
    {
        call();
    }
    catch (const BaseException& e)
    {
        return e.what();
    }
    ADD_FAILURE() << "nothing was thrown";
    return std::string();
}
} // namespace kovis::test
