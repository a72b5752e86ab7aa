#include "store/CorvaneException.h"

#include <utility>

#include "platform/Text.h"

CorvaneExceptionBase::CorvaneExceptionBase(std::wstring message, std::string text, int code)
    : m_message(std::move(message)), m_text(std::move(text)), m_code(code), m_what(XMLConfig::detail::toUtf8(m_message)) {}

CorvaneExceptionBase::~CorvaneExceptionBase() = default;
CorvaneException::~CorvaneException() = default;
CorvaneParseException::~CorvaneParseException() = default;
