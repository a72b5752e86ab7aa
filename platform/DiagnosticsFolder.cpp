#include "platform/DiagnosticsFolder.h"

#include <mutex>
#include <optional>

#include "platform/Clock.h"
#include "platform/Environment.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"

namespace UlvanoDiagnostics {
namespace {

namespace detail = XMLConfig::detail;

struct Folder {
    std::mutex mutex;
    std::optional<std::wstring> path;
};

Folder& folderOfThisRun() {
    static Folder folder;
    return folder;
}

std::wstring makeFolderOfThisRun() {
    const std::wstring run = detail::utcStamp(detail::now()) + L'-' + detail::formatInteger(detail::processId());
    std::wstring path = detail::joinPath(detail::joinPath(detail::temporaryFolder(), L"UlvanoDiagnostics"), run);
    detail::makeFolders(path);  // writing into it tells when that failed
    return path;
}

}  // namespace

std::wstring getDataSubDirectory() {
    Folder& folder = folderOfThisRun();
    const std::lock_guard<std::mutex> lock(folder.mutex);
    if (!folder.path) folder.path = makeFolderOfThisRun();
    return *folder.path;
}

void setDataSubDirectory(const std::wstring& path) {
    Folder& folder = folderOfThisRun();
    const std::lock_guard<std::mutex> lock(folder.mutex);
    folder.path = path;
}

}  // namespace UlvanoDiagnostics
