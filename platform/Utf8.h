#pragma once

#include <string>
#include <string_view>

#include "platform/Export.h"

/// For programs whose arguments and output are UTF-8: the library's wide text and back, whatever the locale. Wide text is
/// UTF-16 on Windows and UTF-32 elsewhere. Nothing is refused: each ill-formed part of a text, as long as it can be, becomes
/// one U+FFFD.
namespace XMLConfig {

XMLCONFIG_API std::wstring wideFromUtf8(std::string_view text);  ///< UTF-8 as the library's wide text
XMLCONFIG_API std::string utf8FromWide(std::wstring_view text);  ///< the library's wide text as UTF-8

}  // namespace XMLConfig
