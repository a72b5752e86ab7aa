#pragma once

#include <string>

namespace XMLConfig::detail {

/// The reference page of all rules in Markdown, made from their table: docs/rules.md.
std::wstring rulesPage();

}  // namespace XMLConfig::detail
