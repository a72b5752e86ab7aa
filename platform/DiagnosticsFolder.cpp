#include "platform/DiagnosticsFolder.h"

#include <mutex>
#include <optional>

#include "platform/Clock.h"
#include "platform/Environment.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"
#include "platform/PrivateFolder.h"

namespace UlvanoDiagnostics {
namespace {

namespace detail = XMLConfig::detail;

struct FolderOfThisRun {
    std::mutex mutex;
    std::optional<std::wstring> path;
};

FolderOfThisRun& folderOfThisRun() {
    static FolderOfThisRun folder;
    return folder;
}

/// Where it could not be made, writing into it fails and says so.
std::wstring makeFolderOfThisRun() {
    const std::wstring run = detail::utcStamp(detail::now()) + L'-' + detail::formatInteger(detail::processId());
    const std::wstring temporary = detail::temporaryFolder();
    detail::makeFolders(temporary);
    const detail::PrivateFolder all = detail::makePrivateFolder(detail::joinPath(temporary, L"UlvanoDiagnostics"));
    return detail::makePrivateFolder(detail::joinPath(all.path, run)).path;
}

}  // namespace

std::wstring getDataSubDirectory() {
    FolderOfThisRun& folder = folderOfThisRun();
    const std::lock_guard<std::mutex> lock(folder.mutex);
    if (!folder.path) folder.path = makeFolderOfThisRun();
    return *folder.path;
}

void setDataSubDirectory(const std::wstring& path) {
    FolderOfThisRun& folder = folderOfThisRun();
    const std::lock_guard<std::mutex> lock(folder.mutex);
    folder.path = path;
}

}  // namespace UlvanoDiagnostics
