#include "sections/DeviceNames.h"

#include <string_view>

namespace XMLConfig::detail {

std::wstring nameOfNewDevice(std::wstring pattern, const std::wstring& sectionID) {
    constexpr std::wstring_view placeholder = L"%s";
    const auto place = pattern.find(placeholder);
    return place == std::wstring::npos ? pattern : pattern.replace(place, placeholder.size(), sectionID);
}

}  // namespace XMLConfig::detail
