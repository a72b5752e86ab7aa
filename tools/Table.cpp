#include "tools/Table.h"

#include <algorithm>

namespace tool {

std::wstring tableText(const std::vector<std::vector<std::wstring>>& rows, const std::wstring& indent) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    }
    std::wstring text;
    for (const auto& row : rows) {
        std::wstring line = indent;
        for (std::size_t i = 0; i < row.size(); ++i) line += row[i] + std::wstring(widths[i] - row[i].size() + 2, L' ');
        text += line.erase(line.find_last_not_of(L' ') + 1) + L"\n";
    }
    return text;
}

}  // namespace tool
