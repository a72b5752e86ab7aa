#include "platform/Environment.h"

#include <cstddef>
#include <cstdlib>

#include "platform/windows/System.h"

namespace XMLConfig::detail {

std::optional<std::wstring> environmentVariable(const std::wstring& name) {
    constexpr DWORD longest = 256;
    wchar_t value[longest + 1];
    ::SetLastError(ERROR_SUCCESS);
    const DWORD size = ::GetEnvironmentVariableW(name.c_str(), value, longest + 1);
    // An empty value gives no characters and no error.
    if (size > longest || (size == 0 && ::GetLastError() != ERROR_SUCCESS)) return std::nullopt;
    return std::wstring(value, size);
}

void setEnvironmentVariable(const std::wstring& name, const std::wstring& value) {
    ::_wputenv_s(name.c_str(), value.c_str());  // for getenv too, but takes an empty value for a removal
    ::SetEnvironmentVariableW(name.c_str(), value.c_str());
}

std::wstring temporaryFolder() {
    std::wstring folder(::GetTempPathW(0, nullptr), L'\0');
    folder.resize(::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
    while (folder.size() > 3 && folder.back() == L'\\') folder.pop_back();
    return folder;
}

std::wstring currentFolder() {
    std::wstring folder(::GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(::GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

long processId() { return static_cast<long>(::GetCurrentProcessId()); }

}  // namespace XMLConfig::detail
