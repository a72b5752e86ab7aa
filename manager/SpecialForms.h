#pragma once

#include <optional>
#include <string>

#include "base/Setting.h"

namespace XMLConfig::detail {

/// What an accessor makes of a text of a special form (a list, a table, a black box), in the form in which it stores that:
/// "1,2" of four numbers is none, "". Nothing for types that have no form of their own.
std::optional<std::wstring> specialFormAsRead(const std::wstring& stored, SettingType type);

}  // namespace XMLConfig::detail
