#include "platform/FileStamp.h"

#include "platform/windows/System.h"

namespace XMLConfig::detail {
namespace {

constexpr std::int64_t nanosecondsPerTick = 100;

std::int64_t ticksNow() {
    FILETIME time{};
    ::GetSystemTimeAsFileTime(&time);
    return static_cast<std::int64_t>((std::uint64_t{time.dwHighDateTime} << 32U) | time.dwLowDateTime);
}

std::optional<FileStamp> stampOf(HANDLE file) {
    constexpr std::int64_t coarsestStep = 30'000'000;  // ticks: file systems of two seconds, and something for the clock
    BY_HANDLE_FILE_INFORMATION identity{};
    FILE_BASIC_INFO times{};
    if (::GetFileInformationByHandle(file, &identity) == 0 || !isFile(identity.dwFileAttributes) ||
        ::GetFileInformationByHandleEx(file, FileBasicInfo, &times, sizeof times) == 0)
        return std::nullopt;
    FileStamp stamp;
    stamp.device = identity.dwVolumeSerialNumber;
    stamp.number = (std::uint64_t{identity.nFileIndexHigh} << 32U) | identity.nFileIndexLow;
    stamp.size = (std::uint64_t{identity.nFileSizeHigh} << 32U) | identity.nFileSizeLow;
    stamp.timeWritten = times.LastWriteTime.QuadPart * nanosecondsPerTick;
    stamp.timeChanged = times.ChangeTime.QuadPart * nanosecondsPerTick;
    stamp.isSettled = times.ChangeTime.QuadPart != 0 && times.ChangeTime.QuadPart + coarsestStep < ticksNow();
    return stamp;
}

}  // namespace

std::optional<FileStamp> fileStamp(const std::wstring& path) {
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = ::CreateFileW(systemPath(path).c_str(), FILE_READ_ATTRIBUTES, shareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return std::nullopt;
    const std::optional<FileStamp> stamp = ::GetFileType(file) == FILE_TYPE_DISK ? stampOf(file) : std::nullopt;
    ::CloseHandle(file);
    return stamp;
}

}  // namespace XMLConfig::detail
