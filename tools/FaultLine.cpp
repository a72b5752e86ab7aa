#include "tools/FaultLine.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "platform/Words.h"
#include "store/TextLine.h"
#include "tools/Printable.h"
#include "tools/TableText.h"

namespace tool {
namespace {

struct FaultPlace {
    std::size_t line = 0;
    std::size_t column = 0;  // in units of UTF-16, from 1
};

/// The number that begins after the words; 0 where none does.
std::size_t numberAfter(const std::wstring& text, const std::wstring& words, std::size_t from) {
    const std::size_t at = text.find(words, from);
    if (at == std::wstring::npos) return 0;
    std::size_t number = 0;
    for (std::size_t i = at + words.size(); i < text.size() && text[i] >= L'0' && text[i] <= L'9'; ++i)
        number = std::min<std::size_t>(10 * number + static_cast<std::size_t>(text[i] - L'0'), 1'000'000'000);
    return number;
}

const std::wstring placeMark = L"XML message is: line ";

/// The place at which the XML library finds fault. The name of the file, which may look like a place, stands before it.
std::optional<FaultPlace> placeIn(const std::wstring& message) {
    const std::size_t at = message.rfind(placeMark);
    if (at == std::wstring::npos) return std::nullopt;
    const FaultPlace place{numberAfter(message, placeMark, at), numberAfter(message, L", column ", at)};
    return place.line == 0 || place.column == 0 ? std::nullopt : std::optional<FaultPlace>(place);
}

bool beginsWith(const std::string& bytes, std::string_view start) { return bytes.compare(0, start.size(), start) == 0; }

/// The encoding that the first bytes alone tell; "" where they do not.
std::wstring encodingOfFirstBytes(const std::string& bytes) {
    using namespace std::string_view_literals;
    if (beginsWith(bytes, "\xFF\xFE\0\0"sv) || beginsWith(bytes, "\0\0\xFE\xFF"sv)) return L"UTF-32";
    const bool isWide = beginsWith(bytes, "\xFF\xFE"sv) || beginsWith(bytes, "\xFE\xFF"sv) || beginsWith(bytes, "<\0"sv) ||
                        beginsWith(bytes, "\0<"sv);
    return isWide ? L"UTF-16" : L"";
}

/// The XML library reads either name so.
bool isNameOfUtf8(const std::wstring& encoding) {
    const std::wstring lower = XMLConfig::detail::lowerAscii(encoding);
    return lower == L"utf-8" || lower == L"utf8";
}

std::size_t unitsOf(wchar_t character) {
    const auto code = static_cast<char32_t>(character);
    return code > 0xFFFF ? 2 : 1;
}

/// The index in the line of the character that stands in a column.
std::size_t indexOf(const std::wstring& line, std::size_t column) {
    std::size_t units = 1;
    std::size_t index = 0;
    while (index < line.size() && units < column) units += unitsOf(line[index++]);
    return index;
}

/// The line with each control character replaced by one blank, so that the columns stay.
std::wstring withoutControls(std::wstring line) {
    for (wchar_t& character : line)
        if (printable(std::wstring(1, character)).size() > 1) character = L' ';
    return line;
}

}  // namespace

std::wstring faultLine(const std::wstring& message, const std::string& bytes) {
    constexpr std::size_t before = 60;
    constexpr std::size_t most = 100;
    const std::optional<FaultPlace> place = placeIn(message);
    const std::wstring shown = place ? withoutControls(XMLConfig::textLine(bytes, place->line)) : std::wstring();
    if (shown.empty()) return {};
    const std::size_t index = indexOf(shown, place->column);
    const std::size_t begin = index > before ? index - before : 0;
    const std::wstring blanks(widthOf(shown.substr(begin, index - begin)), L' ');
    return L"  " + shown.substr(begin, most) + L"\n  " + blanks + L"^";
}

std::wstring encodingReason(const std::wstring& message, const std::string& bytes) {
    if (!placeIn(message)) return {};
    const std::wstring named = XMLConfig::namedEncoding(bytes);
    const std::wstring told = encodingOfFirstBytes(bytes);
    if (!told.empty()) return isNameOfUtf8(named) ? L"; it is written in " + told + L", but names " + named : L"";
    const bool isMeantAsUtf8 = named.empty() || isNameOfUtf8(named);
    return isMeantAsUtf8 && !isUtf8(bytes) ? L"; it is not in UTF-8, as it is to be where it names no other encoding" : L"";
}

}  // namespace tool
