#include "platform/Utf8.h"

#include "platform/Text.h"

namespace XMLConfig {

std::wstring wideFromUtf8(std::string_view text) { return detail::fromUtf8(text); }
std::string utf8FromWide(std::wstring_view text) { return detail::toUtf8(text); }

}  // namespace XMLConfig
