#pragma once

#include <string>
#include <vector>

#include "store/Address.h"

class ConfigInfo;

namespace tool {

/// "; did you mean "..."?" with the nearest of the names, several where they are equally near; where none is near, with
/// those that hold the last part of the text, or nothing.
std::wstring suggestion(const std::wstring& text, const std::vector<std::wstring>& names);

/// The same for an address that leads to nothing: the section, device or setting that is nearest to what it names. Where no
/// device is near, "; the file holds " and those that there are.
std::wstring suggestionFor(const ConfigInfo& document, const XMLConfig::Address& address);

}  // namespace tool
