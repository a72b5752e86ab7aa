#include "tools/TableText.h"

#include <utf8proc.h>
#include <algorithm>

#include "platform/Utf8.h"
#include "tools/Printable.h"

namespace tool {
namespace {

/// The text without its escape sequences, each of which goes from the escape character to the next letter.
std::string visible(const std::string& text) {
    std::string kept;
    bool isEscaped = false;
    for (const char character : text) {
        if (character == '\x1b') isEscaped = true;
        if (!isEscaped) kept += character;
        if (isEscaped && character == 'm') isEscaped = false;
    }
    return kept;
}

std::vector<std::vector<std::wstring>> printableRows(std::vector<std::vector<std::wstring>> rows,
                                                     std::optional<std::size_t> inColour) {
    for (auto& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            if (i != inColour) row[i] = printable(row[i]);
    return rows;
}

std::vector<std::size_t> widthsOf(const std::vector<std::vector<std::wstring>>& rows) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], widthOf(row[i]));
    }
    return widths;
}

}  // namespace

std::size_t widthOf(const std::wstring& text) {
    const std::string bytes = visible(XMLConfig::utf8FromWide(text));
    std::size_t width = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        utf8proc_int32_t character = 0;
        const auto* const begin = reinterpret_cast<const utf8proc_uint8_t*>(bytes.data()) + at;
        const utf8proc_ssize_t length =
            utf8proc_iterate(begin, static_cast<utf8proc_ssize_t>(bytes.size() - at), &character);
        if (length <= 0) break;
        width += static_cast<std::size_t>(utf8proc_charwidth(character));
        at += static_cast<std::size_t>(length);
    }
    return width;
}

std::wstring tableText(const std::vector<std::vector<std::wstring>>& cells, const std::wstring& indent,
                       std::optional<std::size_t> inColour) {
    const std::vector<std::vector<std::wstring>> rows = printableRows(cells, inColour);
    const std::vector<std::size_t> widths = widthsOf(rows);
    std::wstring text;
    for (const auto& row : rows) {
        std::wstring line = indent;
        for (std::size_t i = 0; i < row.size(); ++i) line += row[i] + std::wstring(widths[i] - widthOf(row[i]) + 2, L' ');
        text += line.erase(line.find_last_not_of(L' ') + 1) + L"\n";
    }
    return text;
}

}  // namespace tool
