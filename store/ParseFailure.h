#pragma once

#include <stdexcept>
#include <string>

namespace XMLConfig::detail {

/// Text that is refused, and where.
class ParseFailure : public std::runtime_error {
public:
    ParseFailure(unsigned long long line, unsigned long long column, const std::wstring& reason);
    /// "line L, column C: reason"
    [[nodiscard]] const std::wstring& message() const { return m_message; }

private:
    std::wstring m_message;
};

/// Text of UTF-8 that holds wrong bytes. The XML library decodes it block by block, and tells no place inside of a block.
class WrongBytes : public ParseFailure {
public:
    WrongBytes(unsigned long long line, unsigned long long column, const std::wstring& reason);
    /// Throws the failure with the place of the first wrong ones of the bytes that were parsed.
    [[noreturn]] void throwWithPlaceIn(const std::string& bytes) const;

private:
    std::wstring m_reason;
};

}  // namespace XMLConfig::detail
