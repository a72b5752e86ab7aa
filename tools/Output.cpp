#include "tools/Output.h"

#include <algorithm>
#include <iostream>
#include <utility>
#include <vector>

#include "platform/Terminal.h"
#include "platform/Utf8.h"
#include "tools/Printable.h"

namespace tool {
namespace {

std::vector<std::string>& writtenFiles() {
    static std::vector<std::string> files;
    return files;
}

}  // namespace

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

void noteWritten(const std::string& file) {
    XMLConfig::detail::outliveReader();
    if (std::find(writtenFiles().begin(), writtenFiles().end(), file) == writtenFiles().end())
        writtenFiles().push_back(file);
}

bool flushOutput() {
    if (std::cout.flush()) return true;
    std::string message = "standard output cannot be written";
    for (const std::string& file : writtenFiles()) message += "; " + file + " is written";
    complain(message);
    return false;
}

}  // namespace tool
