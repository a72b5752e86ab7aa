#pragma once

#include <string>
#include <vector>

namespace tool {

/// Rows of cells as lines with the columns lined up; the first row holds the headings. Each line begins with `indent`.
std::wstring tableText(const std::vector<std::vector<std::wstring>>& rows, const std::wstring& indent);

}  // namespace tool
