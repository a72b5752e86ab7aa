#include "tools/Suggestion.h"

#include <algorithm>
#include <numeric>

#include "platform/Words.h"

namespace tool {
namespace {

using XMLConfig::detail::lowerAscii;

/// How many characters must be put in, taken out or replaced to make one of the other.
std::size_t distance(const std::wstring& from, const std::wstring& to) {
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = diagonal + (from[i - 1] == to[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

}  // namespace

std::wstring suggestion(const std::wstring& text, const std::vector<std::wstring>& names) {
    const std::wstring* nearest = nullptr;
    std::size_t least = std::max<std::size_t>(text.size() / 3, 2) + 1;
    for (const std::wstring& name : names) {
        const std::size_t steps = distance(lowerAscii(text), lowerAscii(name));
        if (steps >= least || steps >= name.size()) continue;
        least = steps;
        nearest = &name;
    }
    return nearest == nullptr ? L"" : L"; did you mean \"" + *nearest + L"\"?";
}

}  // namespace tool
