#pragma once

#include <string>

/// The operations that every concrete attribute class has, in the public part of its declaration. The texts live as long as the
/// library and may be asked for from any thread.
#define KOVIS_DECLARE_ATTRIBUTE(CLASS)                                                                                           \
public:                                                                                                                          \
    CLASS();                                                                                                                     \
    ~CLASS() override;                                                                                                           \
    static const std::string& getObjectNameStr();                                                                                \
    static const std::string& getToolTipStr();                                                                                   \
    const std::string& getObjectName() const override;                                                                           \
    const std::string& getToolTip() const override
