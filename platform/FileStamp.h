#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace XMLConfig::detail {

/// What tells one state of a file from another without reading it. Times are in nanoseconds since an epoch of the system.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::uint64_t size = 0;
    std::int64_t timeWritten = 0;
    std::int64_t timeChanged = 0;  ///< written, replaced, renamed, other permissions: nobody can set it back
    /// The last change is so long ago that the next one will show in the times, however coarse the disk keeps them.
    bool isSettled = false;
};

/// The stamp of the regular file that the name leads to over all links; nothing where there is none or the system does
/// not show it.
std::optional<FileStamp> fileStamp(const std::wstring& path);

/// Whether nothing has happened to the file between the two looks. False where that cannot be told.
bool isSurelyUnchanged(const FileStamp& before, const FileStamp& now);

}  // namespace XMLConfig::detail
