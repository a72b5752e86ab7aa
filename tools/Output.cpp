#include "tools/Output.h"

#include <iostream>

#include "platform/Utf8.h"

namespace tool {

Refusal::Refusal(const std::wstring& message) : std::runtime_error(XMLConfig::utf8FromWide(message)) {}

void print(const std::wstring& text) { std::cout << XMLConfig::utf8FromWide(text); }

void showProgress(const std::string& text) { std::cerr << text << std::flush; }

void complain(const std::string& message) { std::cerr << "xmlconfig: " << message << '\n'; }
void complain(const std::wstring& message) { complain(XMLConfig::utf8FromWide(message)); }

bool flushOutput() { return static_cast<bool>(std::cout.flush()); }

}  // namespace tool
