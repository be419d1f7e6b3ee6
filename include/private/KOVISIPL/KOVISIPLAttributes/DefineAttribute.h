#pragma once

#include <string>

/// Defines what KOVIS_DECLARE_ATTRIBUTE declares, inside the class's namespace.
#define KOVIS_DEFINE_ATTRIBUTE(CLASS, TOOL_TIP)                                                                                  \
    CLASS::CLASS() = default;                                                                                                    \
    CLASS::~CLASS() = default;                                                                                                   \
    const std::string& CLASS::getObjectNameStr()                                                                                 \
    {                                                                                                                            \
        static const std::string g_objectNameStr(#CLASS);                                                                        \
        return g_objectNameStr;                                                                                                  \
    }                                                                                                                            \
    const std::string& CLASS::getToolTipStr()                                                                                    \
    {                                                                                                                            \
        static const std::string g_toolTipStr(TOOL_TIP);                                                                         \
        return g_toolTipStr;                                                                                                     \
    }                                                                                                                            \
    const std::string& CLASS::getObjectName() const                                                                              \
    {                                                                                                                            \
        return getObjectNameStr();                                                                                               \
    }                                                                                                                            \
    const std::string& CLASS::getToolTip() const                                                                                 \
    {                                                                                                                            \
        return getToolTipStr();                                                                                                  \
    }                                                                                                                            \
    static_assert(true)
