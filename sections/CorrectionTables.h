#pragma once

#include <string>
#include <utility>
#include <vector>

/// The text form of the target's correction tables: a pair of angles a line, in scientific notation.
namespace XMLConfig::detail {

using CorrectionTable = std::vector<std::pair<double, double>>;

std::wstring correctionTableText(const CorrectionTable& table);
/// A last number without a partner is left out.
CorrectionTable correctionTableFromText(const std::wstring& text);

}  // namespace XMLConfig::detail
