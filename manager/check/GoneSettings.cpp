#include "manager/check/GoneSettings.h"

#include <algorithm>
#include <iterator>

namespace XMLConfig::detail {
namespace {

/// The key with a number at its end replaced by "*".
std::wstring withoutNumber(const std::wstring& key) {
    const std::size_t end = key.find_last_not_of(L"0123456789");
    return end == std::wstring::npos || end + 1 == key.size() ? key : key.substr(0, end + 1) + L"*";
}

}  // namespace

const wchar_t* releaseWithout(const std::wstring& section, const std::wstring& key) {
    const std::wstring exact = L" " + key + L" ";
    const std::wstring numbered = L" " + withoutNumber(key) + L" ";
    const auto isIt = [&](const GoneSettings& row) {
        return section == row.section &&
               (row.keys.find(exact) != std::wstring_view::npos || row.keys.find(numbered) != std::wstring_view::npos);
    };
    const auto found = std::find_if(std::begin(goneSettings), std::end(goneSettings), isIt);
    return found == std::end(goneSettings) ? nullptr : found->release;
}

}  // namespace XMLConfig::detail
