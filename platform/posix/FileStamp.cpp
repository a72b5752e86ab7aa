#include "platform/FileStamp.h"

#include <ctime>

#include <sys/stat.h>

#include "platform/posix/System.h"

namespace XMLConfig::detail {
namespace {

std::int64_t nanoseconds(const timespec& time) { return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec; }

std::int64_t now() {
    timespec time{};
    ::clock_gettime(CLOCK_REALTIME, &time);
    return nanoseconds(time);
}

}  // namespace

std::optional<FileStamp> fileStamp(const std::wstring& path) {
    constexpr std::int64_t coarsestStep = 3'000'000'000;  // file systems of two seconds, and something for the clock
    const std::int64_t lookedAt = now();
    struct stat status {};
    if (::stat(systemPath(path).c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    FileStamp stamp;
    stamp.device = status.st_dev;
    stamp.number = status.st_ino;
    stamp.size = static_cast<std::uint64_t>(status.st_size);
    stamp.timeWritten = nanoseconds(status.st_mtim);
    stamp.timeChanged = nanoseconds(status.st_ctim);
    stamp.isSettled = stamp.timeChanged + coarsestStep < lookedAt;
    return stamp;
}

}  // namespace XMLConfig::detail
