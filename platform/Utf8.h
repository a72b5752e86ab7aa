#pragma once

#include <string>
#include <string_view>

#include "platform/Export.h"

/// For programs whose arguments and output are UTF-8: the library's wide text and back, whatever the locale.
/// Ill-formed input becomes U+FFFD, one for each maximal ill-formed part.
namespace XMLConfig {

XMLCONFIG_API std::wstring wideFromUtf8(std::string_view text);
XMLCONFIG_API std::string utf8FromWide(std::wstring_view text);

}  // namespace XMLConfig
