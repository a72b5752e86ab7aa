#include "platform/Environment.h"

#include <cstdlib>
#include <memory>

#include <unistd.h>

#include "platform/Text.h"

namespace XMLConfig::detail {

std::optional<std::wstring> environmentVariable(const std::wstring& name) {
    constexpr std::size_t longest = 256;
    const char* const bytes = std::getenv(toUtf8(name).c_str());
    if (bytes == nullptr) return std::nullopt;
    std::wstring value = fromUtf8(bytes);
    if (value.size() > longest) return std::nullopt;
    return value;
}

void setEnvironmentVariable(const std::wstring& name, const std::wstring& value) {
    ::setenv(toUtf8(name).c_str(), toUtf8(value).c_str(), 1);
}

std::wstring temporaryFolder() {
    const char* const bytes = std::getenv("TMPDIR");
    std::wstring folder = bytes == nullptr || *bytes == '\0' ? L"/tmp" : fromUtf8(bytes);
    while (folder.size() > 1 && folder.back() == L'/') folder.pop_back();
    return folder;
}

std::wstring currentFolder() {
    const std::unique_ptr<char, decltype(&std::free)> bytes(::getcwd(nullptr, 0), &std::free);
    return bytes == nullptr ? std::wstring() : fromUtf8(bytes.get());
}

long processId() { return ::getpid(); }

}  // namespace XMLConfig::detail
