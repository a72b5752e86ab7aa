#include "platform/FileNames.h"

#include <algorithm>

#include "platform/Paths.h"
#include "platform/windows/System.h"

namespace XMLConfig {

bool isNameTaken(const std::wstring& path) {
    return ::GetFileAttributesW(detail::systemPath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::filesystem::path pathForStreams(const std::wstring& path) { return detail::systemPath(path); }

bool isDeviceName(const std::wstring& path) {
    const std::wstring full = detail::fullPath(path);
    return full.compare(0, 4, L"\\\\.\\") == 0;
}

std::vector<std::wstring> filesMatching(const std::wstring& pattern) {
    const std::wstring folder = pattern.substr(0, pattern.find_last_of(L"\\/:") + 1);
    const std::wstring_view name = std::wstring_view(pattern).substr(folder.size());
    if (name.find_first_of(L"*?") == std::wstring_view::npos) return {};
    std::vector<std::wstring> files;
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW(detail::systemPath(pattern).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return files;
    do {
        if (detail::isFile(found.dwFileAttributes)) files.push_back(folder + found.cFileName);
    } while (::FindNextFileW(search, &found) != 0);
    ::FindClose(search);
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace XMLConfig
