#pragma once

#include <string>
#include <utility>

namespace kovis
{
/// A status and a message. The message is empty on success, and is carried upward unchanged otherwise.
template <class T>
class ProcessingResult
{
public:
    ProcessingResult() : m_result() {}
    explicit ProcessingResult(const T& result, std::string message = std::string())
        : m_result(result), m_message(std::move(message))
    {
    }

    const T& getResult() const { return m_result; }
    const std::string& getMessage() const { return m_message; }

    /// True where the status itself is true: success, for a BoolResult.
    explicit operator bool() const { return static_cast<bool>(m_result); }

private:
    T m_result;
    std::string m_message;
};

using BoolResult = ProcessingResult<bool>;
} // namespace kovis
