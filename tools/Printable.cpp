#include "tools/Printable.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string_view>

#include "platform/Utf8.h"

namespace tool {
namespace {

constexpr std::size_t digits = 4;

struct CharacterRange {
    char32_t first;
    char32_t last;
};
// Controls; marks, embeddings, overrides and isolates of the direction of writing, and between them the line separators.
constexpr CharacterRange unprintable[] = {{0x0000, 0x001F}, {0x007F, 0x009F}, {0x061C, 0x061C},
                                          {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}};

bool isPrintable(wchar_t character) {
    const auto code = static_cast<char32_t>(character);
    const auto holdsIt = [code](const CharacterRange& range) { return code >= range.first && code <= range.last; };
    return std::none_of(std::begin(unprintable), std::end(unprintable), holdsIt);
}

bool isOneLine(const std::wstring& text) { return std::all_of(text.begin(), text.end(), isPrintable); }

std::wstring written(wchar_t character) {
    if (character == L'\n') return L"\\n";
    if (character == L'\t') return L"\\t";
    if (character == L'\r') return L"\\r";
    std::wstring text = L"\\u0000";
    auto code = static_cast<char32_t>(character);
    for (std::size_t i = text.size(); code != 0; code /= 16) text[--i] = L"0123456789abcdef"[code % 16];
    return text;
}

/// The length of the escape sequence of a colour that begins at that place; 0 where none does.
std::size_t colourAt(std::wstring_view text, std::size_t at) {
    for (const std::wstring_view colour : {L"\x1b[0m", L"\x1b[31m", L"\x1b[32m", L"\x1b[33m"})
        if (text.substr(at, colour.size()) == colour) return colour.size();
    return 0;
}

std::wstring without(const std::wstring& text, std::wstring_view kept, bool keepsColours) {
    if (isOneLine(text)) return text;
    std::wstring result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t colour = keepsColours && text[i] == L'\x1b' ? colourAt(text, i) : 0;
        if (colour > 0) {
            result += text.substr(i, colour);
            i += colour - 1;
        } else if (isPrintable(text[i]) || kept.find(text[i]) != std::wstring_view::npos) {
            result += text[i];
        } else {
            result += written(text[i]);
        }
    }
    return result;
}

/// The character whose number stands at that place in hexadecimal digits.
std::optional<wchar_t> numberedAt(const std::wstring& line, std::size_t at) {
    if (line.size() - at < digits) return std::nullopt;
    const std::wstring number = line.substr(at, digits);
    if (number.find_first_not_of(L"0123456789abcdefABCDEF") != std::wstring::npos) return std::nullopt;
    return static_cast<wchar_t>(std::stoul(number, nullptr, 16));
}

/// Shells do not treat a backslash specially on systems where it separates the names of folders.
constexpr bool isBackslashPlain = std::filesystem::path::preferred_separator == '\\';

/// An unprintable character as the format of printf names it.
std::wstring printfEscape(wchar_t character) {
    if (character == L'\n' || character == L'\t' || character == L'\r') return written(character);
    std::wstring text;
    for (const char byte : XMLConfig::utf8FromWide(std::wstring(1, character))) {
        const auto code = static_cast<unsigned char>(byte);
        text += L'\\';
        for (const int shift : {6, 3, 0}) text += L"01234567"[(code >> shift) & 7];
    }
    return text;
}

/// A word in which a shell has the text printed, for texts that no line can hold as they are.
std::wstring printfWord(const std::wstring& text) {
    std::wstring format;
    for (const wchar_t character : text) {
        if (!isPrintable(character)) format += printfEscape(character);
        else if (character == L'\'') format += L"'\\''";
        else format += std::wstring(character == L'\\' || character == L'%' ? 2 : 1, character);
    }
    return L"\"$(printf '" + format + L"')\"";
}

}  // namespace

std::wstring printable(const std::wstring& text) { return without(text, L"", false); }
std::wstring printableText(const std::wstring& text) { return without(text, L"\n\t", false); }
std::wstring printableLines(const std::wstring& text) { return without(text, L"\n\t", true); }

std::wstring shellQuoted(const std::wstring& text) {
    if (!isBackslashPlain && !isOneLine(text)) return printfWord(text);
    std::wstring word = L"'";
    for (const wchar_t character : text) word += character == L'\'' ? L"'\\''" : std::wstring(1, character);
    return word + L"'";
}

std::wstring shellWord(const std::wstring& text) {
    const std::wstring special = std::wstring(L" '\"$&;()*?[]<>|`!{}#~") + (isBackslashPlain ? L"" : L"\\");
    const bool isPlain = !text.empty() && isOneLine(text) && text.find_first_of(special) == std::wstring::npos;
    return isPlain ? text : shellQuoted(text);
}

std::wstring fileWord(const std::wstring& file) { return shellWord(file.substr(0, 1) == L"-" ? L"./" + file : file); }

std::wstring escaped(const std::wstring& text) {
    std::wstring line;
    for (const wchar_t character : text) line += character == L'\\' ? L"\\\\" : std::wstring(1, character);
    return printable(line);
}

std::wstring unescaped(const std::wstring& line) {
    std::wstring text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != L'\\' || i + 1 == line.size()) {
            text += line[i];
            continue;
        }
        const wchar_t next = line[++i];
        const std::optional<wchar_t> numbered = next == L'u' ? numberedAt(line, i + 1) : std::nullopt;
        if (numbered) i += digits;
        text += numbered ? *numbered : next == L'n' ? L'\n' : next == L't' ? L'\t' : next == L'r' ? L'\r' : next;
    }
    return text;
}

bool isUtf8(const std::string& bytes) { return XMLConfig::utf8FromWide(XMLConfig::wideFromUtf8(bytes)) == bytes; }

}  // namespace tool
