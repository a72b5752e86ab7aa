#pragma once

#include <string>

/// Wide text of ASCII characters as narrow text, for messages of tests.
inline std::string asciiOf(const std::wstring& text) { return std::string(text.begin(), text.end()); }
