#pragma once

#include <exception>
#include <string>

#include "platform/Export.h"

/// The base of the library's exceptions: a wide message, a narrow text and a code. The library itself leaves the text empty
/// and the code at -1.
class XMLCONFIG_API CorvaneExceptionBase : public std::exception {
public:
    /// Keeps copies of all three.
    explicit CorvaneExceptionBase(std::wstring message, std::string text = "", int code = -1);
    CorvaneExceptionBase(const CorvaneExceptionBase&) = default;
    CorvaneExceptionBase& operator=(const CorvaneExceptionBase&) = default;
    ~CorvaneExceptionBase() override;

    const std::wstring& getMessage() const { return m_message; }  ///< what went wrong, as long as the exception lives
    const std::string& getText() const { return m_text; }         ///< a further text of the thrower's, or ""
    int getCode() const { return m_code; }                        ///< a number of the thrower's, or -1
    /// The wide message as UTF-8; valid as long as the exception.
    const char* what() const noexcept override { return m_what.c_str(); }

private:
    std::wstring m_message;
    std::string m_text;
    int m_code;
    std::string m_what;
};

/// What the library throws where something cannot be loaded, saved, stored or converted; a malformed file is such a case.
class XMLCONFIG_API CorvaneException : public CorvaneExceptionBase {
public:
    using CorvaneExceptionBase::CorvaneExceptionBase;
    CorvaneException(const CorvaneException&) = default;
    CorvaneException& operator=(const CorvaneException&) = default;
    ~CorvaneException() override;
};

/// Thrown for a text that is no address or no assignment, see store/Address.h.
class XMLCONFIG_API CorvaneParseException : public CorvaneExceptionBase {
public:
    using CorvaneExceptionBase::CorvaneExceptionBase;
    CorvaneParseException(const CorvaneParseException&) = default;
    CorvaneParseException& operator=(const CorvaneParseException&) = default;
    ~CorvaneParseException() override;
};
