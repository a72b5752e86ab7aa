#include "platform/FileNames.h"

#include <sys/stat.h>

#include "platform/posix/System.h"

namespace XMLConfig {

bool isNameTaken(const std::wstring& path) {
    struct stat status {};
    return ::lstat(detail::systemPath(path).c_str(), &status) == 0;
}

std::filesystem::path pathForStreams(const std::wstring& path) { return detail::systemPath(path); }

bool isDeviceName(const std::wstring& /*path*/) { return false; }

std::vector<std::wstring> filesMatching(const std::wstring& /*pattern*/) { return {}; }

}  // namespace XMLConfig
