#include "tools/Output.h"

#include <iostream>
#include <utility>

#include "platform/Utf8.h"
#include "tools/Printable.h"

namespace tool {

Refusal::Refusal(const std::wstring& message, std::wstring lines)
    : std::runtime_error(XMLConfig::utf8FromWide(message)), m_lines(std::move(lines)) {}

void print(const std::wstring& text) { printExactly(printableLines(text)); }
void printExactly(const std::wstring& text) { std::cout << XMLConfig::utf8FromWide(text); }

void showProgress(const std::string& text) { std::cerr << text << std::flush; }

void complain(const std::wstring& message, const std::wstring& lines) {
    std::cerr << "xmlconfig: " << XMLConfig::utf8FromWide(printable(message)) << '\n';
    if (!lines.empty()) std::cerr << XMLConfig::utf8FromWide(printableLines(lines)) << '\n';
}
void complain(const std::string& message) { complain(XMLConfig::wideFromUtf8(message)); }

bool flushOutput() { return static_cast<bool>(std::cout.flush()); }

}  // namespace tool
