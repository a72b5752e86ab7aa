#include "store/ParseFailure.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "platform/Numbers.h"
#include "platform/Text.h"

namespace XMLConfig::detail {

namespace {

struct Place {
    unsigned long long line;
    unsigned long long column;
};

/// The column of the first wrong bytes of a line, counted as the XML library does: in units of UTF-16.
std::size_t columnOfWrongBytes(std::string_view line) {
    const std::string mended = toUtf8(fromUtf8(line));
    const auto difference = std::mismatch(line.begin(), line.end(), mended.begin(), mended.end()).second;
    const std::size_t place = mended.rfind("\uFFFD", static_cast<std::size_t>(difference - mended.begin()));
    return toUtf16(fromUtf8(mended.substr(0, place))).size() + 1;
}

/// The place of the first bytes that are no UTF-8. A carriage return and the line feed after it end one line.
std::optional<Place> placeOfWrongBytes(std::string_view text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";  // the byte order mark takes no column
    if (text.substr(0, mark.size()) == mark) text.remove_prefix(mark.size());
    for (unsigned long long number = 1;; ++number) {
        const std::size_t end = text.find_first_of("\r\n");
        const std::string_view line = text.substr(0, end);
        if (!fromUtf8Strictly(line)) return Place{number, columnOfWrongBytes(line)};
        if (end == std::string_view::npos) return std::nullopt;
        text.remove_prefix(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
    }
}

}  // namespace

ParseFailure::ParseFailure(unsigned long long line, unsigned long long column, const std::wstring& reason)
    : std::runtime_error("malformed XML"),
      m_message(L"line " + formatInteger(static_cast<long long>(line)) + L", column " +
                formatInteger(static_cast<long long>(column)) + L": " + reason) {}

WrongBytes::WrongBytes(unsigned long long line, unsigned long long column, const std::wstring& reason)
    : ParseFailure(line, column, reason), m_reason(reason) {}

void WrongBytes::throwWithPlaceIn(const std::string& bytes) const {
    const std::optional<Place> place = placeOfWrongBytes(bytes);
    if (place) throw ParseFailure(place->line, place->column, m_reason);
    throw ParseFailure(*this);
}

}  // namespace XMLConfig::detail
