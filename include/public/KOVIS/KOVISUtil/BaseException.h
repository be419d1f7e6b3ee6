#pragma once

#include "KOVIS/KOVISUtil/KOVISUtilExport.h"

#include <boost/shared_ptr.hpp>

#include <exception>
#include <string>

namespace kovis
{
/// The root of the platform's exceptions: a message, the place that threw it and, where there is one, the cause.
class KOVISUTIL_EXPORT BaseException : public std::exception
{
public:
    BaseException(const std::string& message, const char* function, const char* file, unsigned int line);
    BaseException(const std::string& message, const char* function, const char* file, unsigned int line,
                  const BaseException& cause);
    BaseException(const std::string& message, const char* function, const char* file, unsigned int line,
                  const std::exception& cause);
    BaseException(const BaseException&);
    BaseException& operator=(const BaseException&);
    ~BaseException() override;

    /// The message alone, in UTF-8.
    const char* what() const noexcept override;

    const std::string& getMessage() const noexcept { return m_message; }
    /// The pretty name of the function that threw.
    const std::string& getFunction() const noexcept { return m_function; }
    const std::string& getFile() const noexcept { return m_file; }
    unsigned int getLine() const noexcept { return m_line; }

    /// The cause, or an empty pointer. A cause that is no BaseException comes as one that holds its what().
    const boost::shared_ptr<const BaseException>& getCause() const noexcept { return m_cause; }

    /// Message, place and causes, one line each, for a log.
    std::string getFullMessage() const;

protected:
    BaseException();

private:
    std::string m_message;
    std::string m_function;
    std::string m_file;
    unsigned int m_line = 0;
    boost::shared_ptr<const BaseException> m_cause;
};

/// Stands for a cause of unknown type.
class KOVISUTIL_EXPORT UnHandleException : public BaseException
{
public:
    UnHandleException();
    ~UnHandleException() override;
};

/// Declares a library's exception: a BaseException that adds nothing but its type. The destructor is defined by
/// KOVIS_DEFINE_EXCEPTION, so that the type information has one home.
#define KOVIS_DECLARE_EXCEPTION(EXPORT, CLASS)                                                                                   \
    class EXPORT CLASS : public ::kovis::BaseException                                                                           \
    {                                                                                                                            \
    public:                                                                                                                      \
        using ::kovis::BaseException::BaseException;                                                                             \
        CLASS(const CLASS&);                                                                                                     \
        CLASS& operator=(const CLASS&) = default;                                                                                \
        ~CLASS() override;                                                                                                       \
    }

#define KOVIS_DEFINE_EXCEPTION(CLASS)                                                                                            \
    CLASS::CLASS(const CLASS&) = default;                                                                                        \
    CLASS::~CLASS() = default

KOVIS_DECLARE_EXCEPTION(KOVISUTIL_EXPORT, KOVISUtilException);
} // namespace kovis
