#pragma once

#include <string>
#include <utility>

namespace kovis::processor
{
/// What a step of a processor answers.
enum eRetrievalStatus : int
{
    eRS_Provided = 0, ///< a provider was stored
    eRS_NoWork = 1,   ///< there is no provider at this step
    eRS_Failed = 2    ///< the message tells why
};

class RetrievalResult
{
public:
    RetrievalResult(eRetrievalStatus status = eRS_Provided, std::string message = std::string())
        : m_status(status), m_message(std::move(message))
    {
    }

    eRetrievalStatus getStatus() const { return m_status; }
    const std::string& getMessage() const { return m_message; }

private:
    eRetrievalStatus m_status;
    std::string m_message;
};
} // namespace kovis::processor
