#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tool {

/// Rows of cells as lines with the columns lined up, each row one line, whatever the cells hold; the first row holds the
/// headings. Each line begins with `indent`. The cells of the column `inColour`, counted from 0, are printable already, but
/// may be coloured.
std::wstring tableText(const std::vector<std::vector<std::wstring>>& cells, const std::wstring& indent,
                       std::optional<std::size_t> inColour = std::nullopt);

/// How many columns of a terminal a text takes: two for a wide character, none for what joins the one before it.
std::size_t widthOf(const std::wstring& text);

}  // namespace tool
