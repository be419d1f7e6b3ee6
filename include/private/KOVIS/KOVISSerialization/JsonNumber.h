#pragma once

#include <cfenv>
#include <string>

namespace kovis::json
{
/// The shortest decimal number that is read back as this value to the bit, as the double that JSON text is written from.
double toJsonNumber(float value);

/// NaN and infinities, which JSON has no numbers for: "inf", "-inf", and "nan:" with the value's bits in hexadecimal digits, 8
/// for a float and 16 for a double. Empty for a finite value.
std::string toSpecialText(float value);
std::string toSpecialText(double value);

/// Reads such a text; "nan" without bits is the quiet NaN. False, and no value, for any other text.
bool fromSpecialText(const std::string& text, float& value);
bool fromSpecialText(const std::string& text, double& value);

/// The float nearest to the number that a JSON text has, whose nearest double is `number`. False, and no value, where it rounds
/// to beyond the greatest float.
bool toFloat(const std::string& text, double number, float& value);

/// The float nearest to a finite number. False, and no value, where the number rounds to beyond the greatest float.
bool toFloat(double number, float& value);

/// The default floating-point environment for as long as this object lives: numbers must not depend on the caller's rounding mode
/// or on its flushing of denormals.
class DefaultFloatEnvironment
{
public:
    DefaultFloatEnvironment();
    ~DefaultFloatEnvironment();
    DefaultFloatEnvironment(const DefaultFloatEnvironment&) = delete;
    DefaultFloatEnvironment& operator=(const DefaultFloatEnvironment&) = delete;

private:
    std::fenv_t m_state;
};
} // namespace kovis::json
