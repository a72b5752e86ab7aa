#pragma once

#include <optional>
#include <string>

#include "base/Setting.h"

namespace XMLConfig::detail {

/// Whether two stored texts stand for one value of the type: numbers are compared as the library reads them, lists and
/// tables by what their entries are known by, everything else exactly. Without a tolerance numbers count as equal as Diff.h
/// says.
bool areOneValue(const std::wstring& one, const std::wstring& other, SettingType type,
                 const std::optional<double>& tolerance);

}  // namespace XMLConfig::detail
