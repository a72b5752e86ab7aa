#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Conversions between the three forms text takes: wide text at every interface (UTF-16 where wchar_t has
/// 16 bits, UTF-32 elsewhere), UTF-8 in files, and UTF-16 inside the XML library. None depends on a locale.
namespace XMLConfig::detail {

/// Ill-formed input (lone surrogates, cut or overlong sequences) becomes U+FFFD, one for each maximal ill-formed part.
std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view text);
std::u16string toUtf16(std::wstring_view text);
std::wstring fromUtf16(std::u16string_view text);

/// Like toUtf16, appended to `out`, so that a caller can reuse its buffer.
void appendUtf16(std::u16string& out, std::wstring_view text);
/// Appends UTF-16 as UTF-8; a lone surrogate becomes U+FFFD.
void appendUtf8(std::string& out, std::u16string_view text);
/// Whether `left` is what toUtf16(right) gives; no conversion is stored.
bool equal(std::u16string_view left, std::wstring_view right);

/// Strict form of fromUtf8: nothing when the bytes are not well-formed UTF-8.
std::optional<std::wstring> fromUtf8Strictly(std::string_view text);

struct CharacterFault {
    std::size_t position;  ///< number of the character in the text, counted from 1, a surrogate pair being one
    char32_t character;    ///< its code point
};
/// The first character that XML 1.0 cannot hold: U+0000 to U+0008, U+000B, U+000C, U+000E to U+001F,
/// U+FFFE, U+FFFF, a lone surrogate, or a value beyond U+10FFFF. Nothing when every character can be held.
std::optional<CharacterFault> firstCharacterXmlCannotHold(std::wstring_view text);

/// Whether the texts are the same but for the case of ASCII letters.
bool equalIgnoringCase(std::wstring_view left, std::wstring_view right);

/// "&", "<", ">" and double quotes as XML's entities: fit for an element's text and for an attribute in double quotes.
std::wstring escapedForXml(std::wstring_view text);

}  // namespace XMLConfig::detail
